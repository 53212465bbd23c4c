#include "tools/bok/new_page.hpp"
#include "tools/bok/page_rules.hpp"
#include "tools/bok/tsv.hpp"
#include "tools/bok/utf8.hpp"
#include <array>
#include <charconv>
#include <string>

namespace bok {

namespace {

constexpr std::array<std::string_view, 5> column_names{ "box 1", "box 2", "box 3", "files", "folder" };
using Row = std::array<std::string_view, column_names.size()>;
constexpr std::size_t files_column = 3;
constexpr std::size_t folder_column = 4;

// The reader's position in the table; columns count from 0.
struct Place {
    std::size_t line;
    std::size_t column;
};

[[noreturn]] void fail(const Place& place, const std::string& reason)
{
    throw TsvError("line " + std::to_string(place.line) + ", column " + std::to_string(place.column + 1)
        + " (" + std::string(column_names[place.column]) + "): " + reason);
}

Row split(std::string_view line, std::size_t number)
{
    Row row;
    std::size_t count = 0;
    for (std::size_t start = 0; start <= line.size(); ++count) {
        const std::size_t end = std::min(line.find('\t', start), line.size());
        if (count < row.size())
            row[count] = line.substr(start, end - start);
        start = end + 1;
    }
    if (count != row.size())
        throw TsvError("line " + std::to_string(number) + ": " + std::to_string(count)
            + (count == 1 ? " column" : " columns") + " instead of " + std::to_string(row.size()));
    return row;
}

// The escape after a backslash: its code point and its length; length 0 if there is none.
struct Escape {
    std::uint32_t point = 0;
    std::size_t length = 0;
};

Escape braced_escape(std::wstring_view rest)
{
    if (!rest.starts_with(L"u{"))
        return {};
    const std::size_t end = rest.find(L'}');
    constexpr std::size_t last_place = 2 + 6; // after six digits; npos is larger
    if (end > last_place)
        return {};
    const std::string digits = printable(rest.substr(2, end - 2));
    std::uint32_t point = 0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), point, 16);
    if (digits.empty() || error != std::errc{} || stop != digits.data() + digits.size() || point > 0x10FFFF)
        return {};
    return { point, end + 1 };
}

Escape box_escape(std::wstring_view rest)
{
    switch (rest.empty() ? L'\0' : rest.front()) {
    case L'n':
        return { '\n', 1 };
    case L't':
        return { '\t', 1 };
    case L'\\':
        return { '\\', 1 };
    default:
        return braced_escape(rest);
    }
}

void append_cell(std::string_view cell, const Place& place, std::wstring& text)
{
    if (append_utf16(cell, text))
        fail(place, "contains bytes that are not UTF-8");
    if (cell.find('\r') != cell.npos)
        fail(place, "contains a carriage return; write a line break as \\n");
}

// Replaces the escapes in `text`. A backslash that begins no escape is kept in a path and is an error in a
// box.
void unescape(std::wstring& text, bool is_path, const Place& place)
{
    std::size_t at = text.find(L'\\');
    if (at == text.npos)
        return;
    std::wstring plain(text, 0, at);
    while (at < text.size()) {
        if (text[at] != L'\\') {
            plain.push_back(text[at++]);
            continue;
        }
        const std::wstring_view rest = std::wstring_view(text).substr(at + 1);
        const Escape escape = is_path ? braced_escape(rest) : box_escape(rest);
        if (escape.length == 0) {
            if (!is_path || rest.starts_with(L"u{"))
                fail(place,
                    is_path ? "\\u{...} must contain a hexadecimal number"
                            : "unknown escape; write a backslash as \\\\");
            plain.push_back(text[at++]);
            continue;
        }
        if (escape.point == '\n' && rest.front() == L'n')
            plain += L"\r\n";
        else
            append_utf16(escape.point, plain);
        at += 1 + escape.length;
    }
    text = std::move(plain);
}

void read_files(std::string_view cell, const Place& place, std::vector<std::wstring>& files)
{
    if (cell.empty())
        return;
    for (std::size_t start = 0; start <= cell.size();) {
        const std::size_t end = std::min(cell.find('|', start), cell.size());
        std::wstring& entry = files.emplace_back();
        append_cell(cell.substr(start, end - start), place, entry);
        unescape(entry, true, place);
        start = end + 1;
    }
}

void check(book::Page& page, std::size_t line)
{
    const auto flaw = tidy_page(page, LineEnds::keep);
    if (!flaw)
        return;
    switch (flaw->field) {
    case PageField::files:
        fail({ line, files_column }, "entry " + std::to_string(flaw->entry + 1) + " " + flaw->reason);
    case PageField::folder:
        fail({ line, folder_column }, flaw->reason);
    default:
        fail({ line, static_cast<std::size_t>(flaw->field) }, flaw->reason);
    }
}

void read_row(const Row& row, std::size_t line, book::Page& page)
{
    for (std::size_t box = 0; box < book::box_count; ++box) {
        append_cell(row[box], { line, box }, page.text[box]);
        unescape(page.text[box], false, { line, box });
    }
    read_files(row[files_column], { line, files_column }, page.files);
    append_cell(row[folder_column], { line, folder_column }, page.reference_folder);
    unescape(page.reference_folder, true, { line, folder_column });
    check(page, line);
}

} // namespace

void import_tsv(std::string_view table, book::Book& book, Progress& progress)
{
    const book::Page blank = new_page(book.header);
    std::size_t start = table.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    for (std::size_t line = 1; start < table.size(); ++line) {
        const std::size_t end = std::min(table.find('\n', start), table.size());
        std::string_view text = table.substr(start, end - start);
        if (text.ends_with('\r'))
            text.remove_suffix(1);
        if (book.pages.size() == book::page_limit)
            throw TsvError("line " + std::to_string(line) + ": a Book has at most "
                + std::to_string(book::page_limit) + " pages");
        read_row(split(text, line), line, book.pages.emplace_back(blank));
        start = end + 1;
        progress.show(start, table.size());
    }
    if (book.pages.empty())
        throw TsvError("the table is empty, and a Book needs a page");
}

} // namespace bok
