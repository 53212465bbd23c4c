#include "tools/bok/markdown.hpp"
#include "book/page_text.hpp"
#include "tools/bok/tables.hpp"
#include "tools/bok/utf8.hpp"
#include <algorithm>

namespace bok {

namespace {

bool is_digit(wchar_t unit)
{
    return unit >= L'0' && unit <= L'9';
}

// Whether the first character would begin a list, a heading, a rule or another block.
bool opens_block(std::wstring_view line)
{
    constexpr std::wstring_view openers = L"#+-=:>";
    return !line.empty() && openers.find(line.front()) != openers.npos;
}

// The index of the dot or bracket after a number that would begin a numbered list, or npos.
std::size_t list_number_end(std::wstring_view line)
{
    const auto end = static_cast<std::size_t>(std::ranges::find_if_not(line, is_digit) - line.begin());
    const bool is_number = end > 0 && end < line.size() && (line[end] == L'.' || line[end] == L')');
    return is_number ? end : line.npos;
}

void append_point(std::uint32_t point, std::string& out)
{
    constexpr std::string_view marks = "\\`*_[]<>|~$";
    if (point == '&') {
        out += "&amp;";
        return;
    }
    if (point < 0x80 && marks.find(static_cast<char>(point)) != marks.npos)
        out.push_back('\\');
    const bool is_refused = (point < 0x20 && point != '\t') || (point >= 0x7F && point < 0xA0);
    append_utf8(is_refused ? replacement_character : point, out);
}

// One line. Spaces at its start would make a code block, so they are written as entities.
void append_line(std::wstring_view line, std::string& out)
{
    line = book::trimmed(line, book::TrimMode::right);
    while (!line.empty() && (line.front() == L' ' || line.front() == L'\t')) {
        out += line.front() == L' ' ? "&nbsp;" : "&nbsp;&nbsp;&nbsp;&nbsp;";
        line.remove_prefix(1);
    }
    if (opens_block(line) && line.front() != L'>')
        out.push_back('\\');
    const std::size_t number_end = list_number_end(line);
    std::size_t unit = 0;
    for_each_code_point(line, [&](std::uint32_t point) {
        if (unit == number_end)
            out.push_back('\\');
        append_point(point, out);
        unit += point > 0xFFFF ? 2 : 1;
    });
}

std::wstring_view take_line(std::wstring_view& text)
{
    const std::size_t end = std::min(text.find_first_of(L"\r\n"), text.size());
    const std::wstring_view line = text.substr(0, end);
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with(L"\r\n") ? 2 : (text.empty() ? 0 : 1));
    return line;
}

// Lines with `prefix` before each. A line that is followed by another in its paragraph ends in a hard line
// break.
void append_lines(std::wstring_view text, std::string_view prefix, std::string& out)
{
    text = book::trimmed(text, book::TrimMode::right);
    bool is_open = false;
    while (!text.empty()) {
        const std::wstring_view line = take_line(text);
        const bool is_blank = book::trimmed(line, book::TrimMode::both).empty();
        if (is_open)
            out += is_blank ? "\n" : "\\\n";
        out += prefix;
        if (is_blank)
            out += '\n';
        else
            append_line(line, out);
        is_open = !is_blank;
    }
    if (is_open)
        out += '\n';
}

void append_heading(const book::Page& page, std::uint64_t position, std::string& out)
{
    out += "## " + std::to_string(position + 1) + "　";
    std::wstring_view rest = page.text[1];
    while (!rest.empty()) {
        append_line(take_line(rest), out);
        if (!rest.empty())
            out += ' ';
    }
    if (page.mark != 0)
        out += " ★";
    out += "\n\n";
}

void append_files(const book::Page& page, std::string& out)
{
    for (const std::wstring& file : page.files) {
        out += "- ";
        append_line(file, out);
        out += '\n';
    }
    if (!page.files.empty())
        out += '\n';
    if (page.reference_folder.empty())
        return;
    out += "資料フォルダ: ";
    append_line(page.reference_folder, out);
    out += "\n\n";
}

void append_page(const book::Page& page, std::uint64_t position, std::string& out)
{
    append_heading(page, position, out);
    if (!book::trimmed(page.text[0], book::TrimMode::both).empty()) {
        append_lines(page.text[0], "> ", out);
        out += '\n';
    }
    if (!book::trimmed(page.text[2], book::TrimMode::both).empty()) {
        append_lines(page.text[2], "", out);
        out += '\n';
    }
    append_files(page, out);
}

} // namespace

void export_markdown(const book::Book& book, Sink& sink, Progress& progress)
{
    for (std::uint64_t position = 0; position < book.pages.size(); ++position) {
        append_page(book.pages[book.position_to_index(position)], position, sink.text());
        sink.pass_on();
        progress.show(position, book.pages.size());
    }
}

} // namespace bok
