#include "tools/bok/input.hpp"
#include "book/book_file.hpp"
#include "platform/file.hpp"
#include "tools/bok/inspect.hpp"
#include "tools/bok/progress.hpp"
#include "tools/bok/utf8.hpp"
#include <algorithm>
#include <array>
#include <istream>
#include <vector>

namespace bok {

namespace {

// Six times the largest Book that is likely to exist.
constexpr std::uint64_t size_limit = std::uint64_t{ 1 } << 30;
// Larger files are scanned first, to refuse those whose Book would not fit in memory.
constexpr std::uint64_t unquestioned_size = std::uint64_t{ 64 } << 20;
constexpr std::uint64_t memory_limit = std::uint64_t{ 4 } << 30;
constexpr std::uint64_t announced_size = std::uint64_t{ 16 } << 20;
constexpr std::size_t piece_size = std::size_t{ 1 } << 20;

[[noreturn]] void fail(const std::wstring& path, const std::string& reason)
{
    throw Problem(printable(path) + ": " + reason);
}

platform::File open_ordinary(const std::wstring& path)
{
    check_readable(path);
    platform::File file = platform::File::open_read(path);
    if (!file.is_open())
        fail(path, "cannot be opened");
    return file;
}

// An upper estimate of the memory that the Book takes. A hostile file takes most by empty pages and list
// entries: a few bytes each in the file, hundreds in memory. Vectors may hold twice their size.
std::uint64_t memory_need(platform::File& file)
{
    std::vector<char16_t> piece(piece_size);
    std::uint64_t units = 0;
    std::uint64_t separators = 0;
    std::uint64_t line_ends = 0;
    while (const std::size_t bytes = file.read(std::as_writable_bytes(std::span(piece)))) {
        const auto taken = std::span(piece).first(bytes / sizeof(char16_t));
        units += taken.size();
        separators += static_cast<std::uint64_t>(std::ranges::count(taken, u'\x03'));
        line_ends += static_cast<std::uint64_t>(std::ranges::count(taken, u'\n'));
    }
    file.seek_to_start();
    return units * sizeof(wchar_t) + separators / 6 * sizeof(book::Page) * 2
        + line_ends * sizeof(std::wstring) * 2;
}

void check_memory(const std::wstring& path, platform::File& file)
{
    if (file.size().value_or(0) <= unquestioned_size)
        return;
    if (memory_need(file) > memory_limit)
        fail(path, "is too large for one Book: it would take more than 4 GiB of memory");
}

// Throws Problem with the first finding in the file that stops loading. Skips the header's finding if the
// user agreed to continue with it.
[[noreturn]] void tell_failure(const std::wstring& path, platform::File& file, bool consented)
{
    file.seek_to_start();
    book::FileSource source(file);
    std::string reason = "cannot be read";
    bool is_header = consented;
    bool is_found = false;
    const auto note = [&](const Finding& finding) {
        if (!finding.stops_loading || is_found || std::exchange(is_header, false))
            return;
        is_found = true;
        reason = text_of(finding);
    };
    const Inspection inspection = inspect(source, source.size(), note);
    const bool is_curable = inspection.header == book::HeaderStatus::older_format
        || inspection.header == book::HeaderStatus::damaged;
    if (!is_curable)
        reason += "; `bok check` lists the problems, `bok convert` cannot repair them";
    fail(path, reason);
}

} // namespace

void check_readable(const std::wstring& path)
{
    if (path.empty() || !platform::exists(path))
        fail(path, "no such file");
    if (platform::is_folder(path))
        fail(path, "is a folder");
    if (!platform::is_regular_file(path))
        fail(path, "is not an ordinary file");
    const platform::File file = platform::File::open_read(path);
    if (!file.is_open())
        fail(path, "cannot be opened");
    if (file.size().value_or(0) > size_limit)
        fail(path, "is larger than 1 GiB, the most that bok reads");
}

book::Book open_any_book(const std::string& path, Streams& streams, const AskConsent& ask)
{
    const std::wstring wide_path = platform::from_utf8(path);
    platform::File file = open_ordinary(wide_path);
    check_memory(wide_path, file);
    Progress progress(streams, "reading");
    book::FileSource source(file);
    if (source.size() > announced_size)
        progress.announce();

    // load_book asks by a text only. Reading the header here tells which of its two questions it will be.
    book::LineReader reader(source);
    book::BookHeader ignored;
    const book::HeaderStatus header = book::read_header(reader, ignored);
    source.restart();
    bool consented = false;
    const auto answer = [&](const std::wstring&) {
        progress.hide();
        consented =
            ask(header == book::HeaderStatus::older_format ? Consent::older_format : Consent::damaged_header);
        return consented;
    };
    book::Book book;
    std::wstring error;
    if (!book::load_book(book, source, wide_path, error, answer))
        tell_failure(wide_path, file, consented);
    return book;
}

book::Book open_book(const std::string& path, Streams& streams)
{
    return open_any_book(path, streams, [](Consent) { return false; });
}

std::string read_all(const std::string& path, Streams& streams)
{
    const std::wstring wide_path = platform::from_utf8(path);
    std::string text;
    std::string piece(piece_size, '\0');
    const auto take = [&](std::size_t count) {
        text.append(piece, 0, count);
        if (text.size() > size_limit)
            fail(wide_path, "is larger than 1 GiB, the most that bok reads");
    };
    if (path == "-") {
        while (streams.in.read(piece.data(), static_cast<std::streamsize>(piece.size()))
            || streams.in.gcount() > 0)
            take(static_cast<std::size_t>(streams.in.gcount()));
        return text;
    }
    if (path.empty() || !platform::exists(wide_path))
        fail(wide_path, "no such file");
    if (platform::is_folder(wide_path))
        fail(wide_path, "is a folder");
    platform::File file = platform::File::open_read(wide_path);
    if (!file.is_open())
        fail(wide_path, "cannot be opened");
    while (const std::size_t count = file.read(std::as_writable_bytes(std::span(piece))))
        take(count);
    return text;
}

} // namespace bok
