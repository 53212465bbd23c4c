#include "tools/bok/page_rules.hpp"
#include "book/page_text.hpp"
#include "platform/text.hpp"
#include <algorithm>
#include <array>
#include <string_view>

namespace bok {

namespace {

constexpr std::array box_fields{ PageField::box1, PageField::box2, PageField::box3 };
constexpr std::size_t title_box = 1;
constexpr std::wstring_view line_end = L"\r\n";

using Flaw = std::optional<PageFlaw>;

PageFlaw flaw(PageField field, std::string reason, std::size_t entry = 0)
{
    return { field, entry, std::move(reason) };
}

bool has(std::wstring_view text, std::wstring_view units)
{
    return text.find_first_of(units) != std::wstring_view::npos;
}

bool has_separator(std::wstring_view text)
{
    return text.find(book::separator) != std::wstring_view::npos;
}

// Whether there is a CR without LF or an LF without CR.
bool has_half_line_end(std::wstring_view text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\n')
            return true;
        if (text[i] == L'\r' && (++i == text.size() || text[i] != L'\n'))
            return true;
    }
    return false;
}

void unify_line_ends(std::wstring& text)
{
    if (!has_half_line_end(text))
        return;
    std::wstring unified;
    unified.reserve(text.size() + text.size() / 16);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != L'\r' && text[i] != L'\n') {
            unified.push_back(text[i]);
            continue;
        }
        unified += line_end;
        if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n')
            ++i;
    }
    text = std::move(unified);
}

Flaw check_separator(std::wstring_view text, PageField field, std::size_t entry = 0)
{
    if (has_separator(text))
        return flaw(field, "contains U+0003, which separates the fields of a Book", entry);
    return std::nullopt;
}

Flaw tidy_single_line(std::wstring& text, PageField field, std::size_t entry = 0)
{
    book::trim_text(text, book::TrimMode::both);
    if (has(text, line_end))
        return flaw(field, "contains a line break, but this field has only one line", entry);
    return check_separator(text, field, entry);
}

// Whether the unit ends a token of the numbers line.
bool is_blank(wchar_t unit)
{
    return unit == L' ' || (unit >= L'\t' && unit <= L'\r');
}

// A new page may have no white space in its stamp at all; one from a file only none that would end the token.
Flaw check_stamp(const std::wstring& stamp, bool (*is_white)(wchar_t))
{
    if (stamp.empty())
        return flaw(PageField::stamp, "is empty, and a Book with such a page cannot be opened again");
    if (std::ranges::any_of(stamp, is_white))
        return flaw(PageField::stamp, "contains white space");
    return std::nullopt;
}

Flaw check_current_file(const book::Page& page)
{
    if (page.current_file != 0 && page.current_file >= page.files.size())
        return flaw(PageField::current_file, "is past the end of the file list");
    return std::nullopt;
}

Flaw check_blank(std::wstring_view entry, std::size_t index)
{
    if (entry.empty())
        return flaw(PageField::files, "is blank, and blank entries are dropped", index);
    return std::nullopt;
}

Flaw tidy_files(std::vector<std::wstring>& files)
{
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (auto found = tidy_single_line(files[i], PageField::files, i))
            return found;
        if (auto found = check_blank(files[i], i))
            return found;
    }
    return std::nullopt;
}

// Checks a field whose line is trimmed: a second line would be lost, and a leading U+0003 would end the
// field.
Flaw check_verbatim_line(std::wstring_view text, PageField field, std::size_t entry = 0)
{
    const std::wstring_view line = book::trimmed(text, book::TrimMode::both);
    if (line.find(line_end) != std::wstring_view::npos)
        return flaw(field, "contains a line break, but this field has only one line", entry);
    if (line.starts_with(book::separator))
        return flaw(field, "begins with U+0003, which separates the fields of a Book", entry);
    return std::nullopt;
}

Flaw check_verbatim_lines(std::wstring_view text, PageField field)
{
    const std::wstring_view kept = book::trimmed(text, book::TrimMode::right);
    for (std::size_t start = 0; start < kept.size();) {
        if (kept[start] == book::separator)
            return flaw(field, "has a line that begins with U+0003, which separates the fields of a Book");
        const std::size_t end = kept.find(line_end, start);
        if (end == std::wstring_view::npos)
            break;
        start = end + line_end.size();
    }
    return std::nullopt;
}

bool is_tidy_line(std::wstring_view text)
{
    return !has(book::trimmed(text, book::TrimMode::both), line_end) && !has_separator(text);
}

bool is_tidy_box(std::wstring_view text)
{
    return !has_half_line_end(text) && !has_separator(text);
}

} // namespace

std::string name_of(const PageFlaw& flaw)
{
    switch (flaw.field) {
    case PageField::box1:
        return "text[0]";
    case PageField::box2:
        return "text[1]";
    case PageField::box3:
        return "text[2]";
    case PageField::files:
        return "files[" + std::to_string(flaw.entry) + "]";
    case PageField::folder:
        return "reference_folder";
    case PageField::stamp:
        return "stamp";
    default:
        return "current_file";
    }
}

std::optional<PageFlaw> tidy_page(book::Page& page, LineEnds line_ends)
{
    for (std::size_t box = 0; box < book::box_count; ++box) {
        if (box == title_box)
            continue;
        if (line_ends == LineEnds::unify)
            unify_line_ends(page.text[box]);
        if (auto found = check_separator(page.text[box], box_fields[box]))
            return found;
    }
    if (auto found = tidy_single_line(page.text[title_box], PageField::box2))
        return found;
    if (auto found = tidy_files(page.files))
        return found;
    if (auto found = tidy_single_line(page.reference_folder, PageField::folder))
        return found;
    if (auto found = check_stamp(page.stamp, platform::is_white_space))
        return found;
    if (auto found = check_separator(page.stamp, PageField::stamp))
        return found;
    return check_current_file(page);
}

std::optional<PageFlaw> check_verbatim_page(const book::Page& page)
{
    for (std::size_t box = 0; box < book::box_count; ++box) {
        auto found = box == title_box ? check_verbatim_line(page.text[box], PageField::box2)
                                      : check_verbatim_lines(page.text[box], box_fields[box]);
        if (found)
            return found;
    }
    for (std::size_t i = 0; i < page.files.size(); ++i) {
        if (auto found = check_verbatim_line(page.files[i], PageField::files, i))
            return found;
        if (auto found = check_blank(book::trimmed(page.files[i], book::TrimMode::both), i))
            return found;
    }
    if (auto found = check_verbatim_line(page.reference_folder, PageField::folder))
        return found;
    if (page.stamp.starts_with(book::separator))
        return flaw(PageField::stamp, "begins with U+0003, which separates the fields of a Book");
    if (auto found = check_stamp(page.stamp, is_blank))
        return found;
    return check_current_file(page);
}

bool is_tidy(const book::Page& page)
{
    return is_tidy_box(page.text[0]) && is_tidy_line(page.text[1]) && is_tidy_box(page.text[2])
        && std::ranges::all_of(page.files, is_tidy_line) && is_tidy_line(page.reference_folder)
        && !has_separator(page.stamp) && std::ranges::none_of(page.stamp, platform::is_white_space);
}

} // namespace bok
