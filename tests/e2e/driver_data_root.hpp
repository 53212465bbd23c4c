// The folder that a program under test runs in, and the files a test puts there and looks at afterwards.
#pragma once
#include "book/book.hpp"
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>
#include <windows.h>

namespace e2e {

// Bytes of a file as they stand on disk; empty for a missing one.
std::string file_bytes(const std::filesystem::path& file);
void write_bytes(const std::filesystem::path& file, std::string_view bytes);
// The raw UTF-16 of a text, without a byte order mark, and back.
std::string utf16_bytes(std::wstring_view text);
std::wstring utf16_text(std::string_view bytes);

// Times and attributes decide whether a file was written: an age makes a later write visible.
void make_old(const std::filesystem::path& file);
bool is_old(const std::filesystem::path& file);

// A page of three boxes, stamped in the past.
book::Page make_page(std::wstring box1, std::wstring box2 = L"", std::wstring box3 = L"");
inline constexpr std::wstring_view old_stamp = L"2001020304050620010203040506";

// A Book as its file holds it. Throws DriverError when it cannot be read without a question.
book::Book load_book(const std::filesystem::path& file);

// Keeps a file from being written until it goes, and marks it read-only meanwhile. The mark alone stops
// nobody where the tests run as the superuser, so the file is held open as well.
class ReadOnly {
public:
    explicit ReadOnly(std::filesystem::path file);
    ReadOnly(const ReadOnly&) = delete;
    ReadOnly& operator=(const ReadOnly&) = delete;
    ~ReadOnly();

private:
    std::filesystem::path file_;
    HANDLE handle_;
};

// A copy of the program with everything it ships, in a folder of its own. What stood there before is gone.
class DataRoot {
public:
    explicit DataRoot(const std::wstring& name);

    const std::filesystem::path& folder() const { return folder_; }
    std::filesystem::path program() const { return folder_ / L"pagewick.exe"; }
    std::filesystem::path history_file() const { return folder_ / L"dat" / L"history.txt"; }
    std::filesystem::path settings_file() const { return folder_ / L"dat" / L"pagewick.ini"; }
    std::filesystem::path log_file() const { return folder_ / L"pagewick_log.txt"; }

    // Writes the Book there and returns its full path. `header` is taken as given.
    std::filesystem::path add_book(
        const std::wstring& name, std::vector<book::Page> pages, const book::BookHeader& header = {}) const;
    void write_history(const std::vector<std::wstring>& entries) const;
    std::vector<std::wstring> history() const;
    void remove() const;

private:
    std::filesystem::path folder_;
};

} // namespace e2e
