#include "look/status_parts.hpp"
#include "core/byte_size.hpp"
#include "platform/decimal.hpp"

// Each part is a pure function of the Book and yields everything that painting needs: texts, tones, fonts and
// offsets. So the bar compares a part with the one it last drew and repaints only a part that changed, and
// tests check the texts without a window.

namespace look {

namespace {

StatusRun value(std::wstring text)
{
    return { std::move(text), StatusTone::value };
}

StatusRun label(std::wstring text)
{
    return { std::move(text), StatusTone::label };
}

std::uint64_t text_bytes(const book::Page& page)
{
    constexpr std::uint64_t unit = 2;
    std::uint64_t units = page.reference_folder.size();
    for (const std::wstring& text : page.text)
        units += text.size();
    for (const std::wstring& file : page.files)
        units += file.size();
    return units * unit;
}

StatusPart page_number(const book::Book& book)
{
    if (book.current_page() == nullptr)
        return {};
    return { 5,
        { { std::to_wstring(book.header.position + 1), StatusTone::value, SharedFont::ui_11_bold, 0 },
            { L"/" + std::to_wstring(book.pages.size()), StatusTone::label, SharedFont::ui_8_bold, 3 } } };
}

StatusPart marks_and_tabs(const book::Book& book)
{
    if (book.pages.empty())
        return {};
    const double percent =
        static_cast<double>(book.mark_count) / static_cast<double>(book.pages.size()) * 100;
    StatusPart part;
    part.runs = { value(L"Marks: " + std::to_wstring(book.mark_count)),
        label(L" [" + platform::fixed_text(percent, 1) + L"%]"),
        value(L"   Tabs: " + std::to_wstring(book.tab_count)) };
    return part;
}

StatusPart sizes(const book::Book& book)
{
    StatusPart part;
    if (const book::Page* page = book.current_page()) {
        part.runs = { value(core::format_byte_size(text_bytes(*page))),
            label(L"/" + core::format_byte_size(book.file_size)) };
    }
    return part;
}

StatusPart dates(const book::Book& book)
{
    StatusPart part;
    const book::Page* page = book.current_page();
    // A stamp read from a file may be shorter than two times.
    if (page != nullptr && page->stamp.size() >= 2 * book::time_length) {
        part.runs = { label(L"created "), value(date_text(page->stamp.substr(0, book::time_length))),
            label(L"    modified "), value(date_text(page->stamp.substr(book::time_length))) };
    }
    return part;
}

StatusPart path(const book::Book& book)
{
    StatusPart part;
    part.is_path = true;
    part.runs = { value(book.path) };
    return part;
}

constexpr std::array<StatusPart (*)(const book::Book&), status_part_count> parts{ &page_number,
    &marks_and_tabs, &sizes, &dates, &path };

} // namespace

std::wstring date_text(std::wstring digits)
{
    struct Separator {
        std::size_t at;
        wchar_t unit;
    };
    // Indices into the text that already has the separators before them.
    constexpr Separator separators[] = { { 4, L'.' }, { 7, L'.' }, { 10, L' ' }, { 13, L':' }, { 16, L':' } };
    for (const Separator& separator : separators) {
        if (separator.at < digits.size())
            digits.insert(separator.at, 1, separator.unit);
    }
    return digits;
}

StatusPart status_part(const book::Book& book, int index)
{
    const bool is_known = index >= 0 && index < status_part_count;
    return is_known ? parts[static_cast<std::size_t>(index)](book) : StatusPart{};
}

} // namespace look
