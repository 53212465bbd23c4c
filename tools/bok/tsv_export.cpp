#include "book/page_text.hpp"
#include "tools/bok/tsv.hpp"
#include "tools/bok/utf8.hpp"
#include <charconv>

namespace bok {

namespace {

void append_escape(std::uint32_t point, std::string& out)
{
    char digits[8];
    const char* const first = digits;
    const char* const end = std::to_chars(digits, digits + sizeof digits, point, 16).ptr;
    out += "\\u{";
    out.append(first, end);
    out.push_back('}');
}

// Whether a table cannot hold the character, or some readers take it for a line end.
bool needs_escape(std::uint32_t point)
{
    return point < 0x20 || point == 0x85 || point == 0x2028 || point == 0x2029 || point == 0xFEFF
        || is_surrogate_point(point);
}

void append_plain(std::wstring_view text, std::string& out)
{
    for_each_code_point(text, [&](std::uint32_t point) {
        if (point == '\\')
            out += "\\\\";
        else if (point == '\t')
            out += "\\t";
        else if (needs_escape(point))
            append_escape(point, out);
        else
            append_utf8(point, out);
    });
}

void append_box(std::wstring_view text, std::string& out)
{
    for (std::size_t start = 0;;) {
        const std::size_t end = text.find(L"\r\n", start);
        append_plain(text.substr(start, end == text.npos ? text.npos : end - start), out);
        if (end == text.npos)
            return;
        out += "\\n";
        start = end + 2;
    }
}

void append_path(std::wstring_view path, std::string& out)
{
    std::uint32_t before_before = 0;
    std::uint32_t before = 0;
    for_each_code_point(path, [&](std::uint32_t point) {
        // "\u{" in a path would be read as an escape, so its backslash is written as one.
        if (before_before == '\\' && before == 'u' && point == '{') {
            out.resize(out.size() - 2);
            out += "\\u{5c}u";
        }
        if (point == '|' || needs_escape(point))
            append_escape(point, out);
        else
            append_utf8(point, out);
        before_before = before;
        before = point;
    });
}

void append_page(const book::Page& page, std::string& out)
{
    append_box(book::trimmed(page.text[0], book::TrimMode::right), out);
    out.push_back('\t');
    append_box(book::trimmed(page.text[1], book::TrimMode::both), out);
    out.push_back('\t');
    append_box(book::trimmed(page.text[2], book::TrimMode::right), out);
    out.push_back('\t');
    for (std::size_t i = 0; i < page.files.size(); ++i) {
        if (i > 0)
            out.push_back('|');
        append_path(book::trimmed(page.files[i], book::TrimMode::both), out);
    }
    out.push_back('\t');
    append_path(book::trimmed(page.reference_folder, book::TrimMode::both), out);
    out.push_back('\n');
}

} // namespace

void export_tsv(const book::Book& book, Sink& sink, Progress& progress)
{
    for (std::size_t i = 0; i < book.pages.size(); ++i) {
        append_page(book.pages[i], sink.text());
        sink.pass_on();
        progress.show(i, book.pages.size());
    }
}

} // namespace bok
