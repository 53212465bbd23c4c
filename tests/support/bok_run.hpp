// Runs the commands of bok in this process, with streams in memory.
#pragma once
#include "book/header_text.hpp"
#include "platform/text.hpp"
#include "tests/support/temp_folder.hpp"
#include "tools/bok/run.hpp"
#include <algorithm>
#include <initializer_list>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace test_support {

struct Outcome {
    int code = -1;
    std::string out;
    std::string err;

    // Lines of the error stream.
    std::ptrdiff_t complaints() const { return std::ranges::count(err, '\n'); }
};

enum class Terminal { no, yes };

inline Outcome bok(
    const std::vector<std::string>& arguments, std::string input = {}, Terminal terminal = Terminal::no)
{
    std::istringstream in(std::move(input));
    std::ostringstream out;
    std::ostringstream err;
    const bool is_terminal = terminal == Terminal::yes;
    bok::Streams streams{ in, out, err, is_terminal, is_terminal, is_terminal };
    Outcome outcome;
    outcome.code = bok::run(arguments, streams);
    outcome.out = out.str();
    outcome.err = err.str();
    return outcome;
}

// Files of a test, named shortly for use as command line arguments.
class BokFolder {
public:
    std::string path(const std::wstring& name) const { return platform::to_utf8(folder_.file(name)); }
    std::wstring wide_path(const std::wstring& name) const { return folder_.file(name); }

    std::string write(const std::wstring& name, std::wstring_view text) const
    {
        write_text(folder_.file(name), text);
        return path(name);
    }
    std::string write_utf8(const std::wstring& name, std::string_view text) const
    {
        write_bytes(folder_.file(name), std::as_bytes(std::span(text)));
        return path(name);
    }
    std::string read_utf8(const std::wstring& name) const
    {
        const Bytes bytes = read_bytes(folder_.file(name));
        return { reinterpret_cast<const char*>(bytes.data()), bytes.size() };
    }
    Bytes read(const std::wstring& name) const { return read_bytes(folder_.file(name)); }

private:
    TempFolder folder_;
};

// The six fields of a page. The caller writes the CR LF of every line.
struct PageText {
    std::wstring box1{};
    std::wstring box2{};
    std::wstring box3{};
    std::wstring files{};
    std::wstring folder{};
    std::wstring numbers = L"2026010203040520260607080910 0 0 0 16777215 16777215 16777215 0 0 0 0 0 0\r\n";

    std::wstring text() const
    {
        std::wstring whole;
        for (const std::wstring* field : { &box1, &box2, &box3, &files, &folder, &numbers })
            whole += *field + L"\x03\r\n";
        return whole;
    }
};

// The three header lines.
inline std::wstring header_lines(const book::BookHeader& header = {})
{
    const std::string digits = book::header_text(header);
    return L"\x03\x03\r\n" + std::wstring(digits.begin(), digits.end()) + L"\r\n\x03\x03\r\n";
}

} // namespace test_support
