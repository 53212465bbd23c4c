// Random texts, pages and Books for a walk.
#include "book/page_text.hpp"
#include "platform/text.hpp"
#include "walk_walker.hpp"

namespace walk {

namespace {

constexpr const wchar_t* pieces[] = { L"a", L"B", L"Ab", L"あ", L"い", L"漢字", L" ", L"\x3000", L"ＡＢ",
    L"\t", L"\"", L"\x3", L"\xD842\xDFB7", L"\xD83D\xDE00", L"ß", L"Ω", L"12", L"-", L"." };
constexpr const wchar_t* line_end = L"\r\n";
constexpr const wchar_t* entries[] = { L"C:\\絵\\一.png", L"C:\\絵\\二.jpg", L"D:\\音\\三.mp3",
    L"https://example.org/a?b=Ab", L"relative\\Ab.txt", L"C:\\無い\\あ い.gif" };
constexpr const wchar_t* book_names[] = { L"甲.bok", L"乙.bok", L"丙.bok", L"新しい.bok", L"写し.bok" };

} // namespace

std::size_t Walker::place_in(const std::wstring& text, std::size_t from)
{
    std::size_t place = from + below(text.size() - from + 1);
    const auto splits = [&] {
        if (place == 0 || place >= text.size())
            return false;
        return (text[place - 1] == L'\r' && text[place] == L'\n') || platform::is_low_surrogate(text[place]);
    };
    while (splits())
        ++place;
    return place;
}

std::wstring Walker::some_text(bool many_lines)
{
    std::wstring text;
    const std::size_t count = 1 + below(chance(5) ? 200 : 6);
    for (std::size_t i = 0; i < count; ++i)
        text += many_lines && chance(20) ? line_end : pieces[below(std::size(pieces))];
    return text;
}

std::wstring Walker::some_path(bool may_be_new)
{
    if (may_be_new)
        return (root_.folder() / book_names[below(std::size(book_names))]).wstring();
    auto chosen = model.files.begin();
    std::advance(chosen, static_cast<std::ptrdiff_t>(below(model.files.size())));
    return chosen->first;
}

book::Page Walker::some_page()
{
    const auto clean = [this](bool many_lines) {
        std::wstring text = some_text(many_lines);
        book::remove_separator(text);
        book::trim_text(text, book::TrimMode::both);
        return text;
    };
    book::Page page = e2e::make_page(clean(true), clean(false), clean(true));
    page.stamp.replace(10, 4, std::to_wstring(1000 + below(9000)));
    page.stamp.replace(24, 4, std::to_wstring(1000 + below(9000)));
    page.mark = chance(30);
    page.tab_number = chance(40);
    page.tab_color = chance(50) ? 0x535864 : 0x403CBE;
    if (chance(40))
        page.reference_folder = missing_folder;
    for (std::size_t i = below(5); i > 0; --i)
        page.files.emplace_back(entries[below(std::size(entries))]);
    page.current_file = page.files.empty() ? 0 : below(page.files.size());
    return page;
}

void Walker::make_books()
{
    for (const wchar_t* name : { book_names[0], book_names[1], book_names[2] }) {
        Record record;
        record.header.divider = static_cast<std::int32_t>(110 + below(300));
        record.header.theme = static_cast<std::int32_t>(6000 + below(6));
        record.header.sort_key = static_cast<std::int32_t>(3000 + below(6));
        record.header.tab_label_box = static_cast<std::int32_t>(4000 + below(3));
        record.header.wrap_text = chance(30);
        record.header.seed = random_();
        const std::size_t count = 1 + below(9);
        record.header.position = below(count);
        std::vector<book::Page> pages;
        for (std::size_t i = 0; i < count; ++i) {
            pages.push_back(some_page());
            record.pages.push_back({ pages.back() });
        }
        const std::wstring file = root_.add_book(name, pages, record.header).wstring();
        model.files[file] = record;
        model.history.push_back(file);
    }
    root_.write_history(model.history);
}

} // namespace walk
