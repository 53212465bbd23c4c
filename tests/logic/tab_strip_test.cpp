// The tabs of the strip: layout, captions, hit testing, colours and menu.
#include "core/command_ids.hpp"
#include "look/tab_strip.hpp"
#include <gtest/gtest.h>

namespace {

using look::Color;
using look::TabItem;
using platform::Point;
using platform::Rect;
using platform::Size;

constexpr Size strip{ 1000, 24 };

book::Book book_with_tabs(std::initializer_list<int> tabs)
{
    book::Book book;
    for (const int tab : tabs) {
        book::Page page;
        page.tab_number = static_cast<std::uint64_t>(tab);
        page.text = { L"一", L"二", L"三" };
        page.tab_color = 0xB3574A;
        book.pages.push_back(page);
    }
    return book;
}

std::vector<TabItem> items_at(std::vector<Rect> rects)
{
    std::vector<TabItem> items;
    for (const Rect& rect : rects)
        items.push_back({ items.size() + 1, rect, Color{}, L"" });
    return items;
}

// Built from units: where wchar_t has 32 bits, a literal would contain no surrogate pair.
std::wstring emoji(int count)
{
    std::wstring text;
    for (int i = 0; i < count; ++i)
        text += { wchar_t{ 0xD83D }, static_cast<wchar_t>(0xDE00 + i) };
    return text;
}

TEST(TabRects, OfOneTabAreTwoHundredWide)
{
    EXPECT_EQ(look::tab_rects(1, strip), (std::vector<Rect>{ { 0, 0, 200, 24 } }));
}

TEST(TabRects, OfOneTabFillANarrowStripExceptForTwoPixels)
{
    EXPECT_EQ(look::tab_rects(1, { 150, 24 }), (std::vector<Rect>{ { 0, 0, 148, 24 } }));
    EXPECT_EQ(look::tab_rects(1, { 40, 24 }), (std::vector<Rect>{ { 0, 0, 80, 24 } }));
}

TEST(TabRects, AreSideBySideWhileThereIsRoom)
{
    EXPECT_EQ(look::tab_rects(3, strip),
        (std::vector<Rect>{ { 0, 0, 200, 24 }, { 200, 0, 400, 24 }, { 400, 0, 600, 24 } }));
}

TEST(TabRects, ShareTheStripAndEndAtItsRight)
{
    const auto rects = look::tab_rects(7, strip);
    for (const Rect& rect : rects)
        EXPECT_EQ(rect.width(), 142);
    EXPECT_EQ(rects[1].left, 142); // 856 / 6, truncated
    EXPECT_EQ(rects[3].left, 428);
    EXPECT_NEAR(rects.back().right, 998, 1);
}

TEST(TabRects, OfAHundredTabsInFiveHundredPixelsOverlap)
{
    const auto rects = look::tab_rects(100, { 500, 24 });
    ASSERT_EQ(rects.size(), 100u);
    const double step = (498.0 - 80.0) / 99.0;
    double x = 0;
    for (const Rect& rect : rects) {
        EXPECT_EQ(rect, (Rect{ static_cast<int>(x), 0, static_cast<int>(80 + x), 24 }));
        x += step;
    }
    EXPECT_NEAR(rects.back().right, 498, 1);
}

TEST(TabRects, CanHoldTheLargestNumberOfTabs)
{
    const auto rects = look::tab_rects(256, { 1380, 24 });
    ASSERT_EQ(rects.size(), 256u);
    EXPECT_EQ(rects.front(), (Rect{ 0, 0, 80, 24 }));
    EXPECT_NEAR(rects.back().right, 1378, 1);
    for (std::size_t i = 1; i < rects.size(); ++i)
        EXPECT_GT(rects[i].left, rects[i - 1].left);
}

TEST(TabRects, AreNoneWithoutTabs)
{
    EXPECT_TRUE(look::tab_rects(0, strip).empty());
}

TEST(TabRects, AreHarmlessInAStripWithoutWidth)
{
    EXPECT_EQ(look::tab_rects(256, { 0, 0 }).size(), 256u);
}

TEST(TabCaption, EndsAtTheFirstLineEnd)
{
    EXPECT_EQ(look::tab_caption(L"abc\r\ndef"), L"abc");
    EXPECT_EQ(look::tab_caption(L"\r\nabc"), L"");
    EXPECT_EQ(look::tab_caption(L"a\nb\rc"), L"a\nb\rc");
}

TEST(TabCaption, EndsAfterFortyCharacters)
{
    EXPECT_EQ(look::tab_caption(std::wstring(41, L'字')), std::wstring(40, L'字'));
    EXPECT_EQ(look::tab_caption(std::wstring(40, L'字')), std::wstring(40, L'字'));
    EXPECT_EQ(look::tab_caption(std::wstring(40, L'字') + L"\r\nx"), std::wstring(40, L'字'));
}

TEST(TabCaption, CountsASurrogatePairAsOne)
{
    EXPECT_EQ(look::tab_caption(emoji(41)), emoji(40));
    EXPECT_EQ(look::tab_caption(L"a" + emoji(40)), L"a" + emoji(39));
    const std::wstring all_of_it = std::wstring(39, L'a') + emoji(1);
    EXPECT_EQ(look::tab_caption(all_of_it), all_of_it);
}

TEST(TabCaption, CountsALoneSurrogateAsOne)
{
    const std::wstring high(45, wchar_t{ 0xD83D });
    EXPECT_EQ(look::tab_caption(high), high.substr(0, 40));
    const std::wstring low(45, wchar_t{ 0xDE00 });
    EXPECT_EQ(look::tab_caption(low), low.substr(0, 40));
}

TEST(TabHit, PrefersTheLaterOfTwoTabs)
{
    const auto items = items_at({ { 0, 0, 80, 24 }, { 40, 0, 120, 24 } });
    EXPECT_EQ(look::tab_at(items, { 39, 5 }), 1u);
    EXPECT_EQ(look::tab_at(items, { 40, 5 }), 2u);
    EXPECT_EQ(look::tab_at(items, { 119, 23 }), 2u);
    EXPECT_EQ(look::tab_at(items, { 0, 0 }), 1u);
}

TEST(TabHit, FindsNothingOutsideTheTabs)
{
    const auto items = items_at({ { 0, 0, 80, 24 } });
    EXPECT_EQ(look::tab_at(items, { 80, 5 }), 0u);
    EXPECT_EQ(look::tab_at(items, { 5, 24 }), 0u);
    EXPECT_EQ(look::tab_at(items, { -1, 5 }), 0u);
    EXPECT_EQ(look::tab_at({}, { 0, 0 }), 0u);
}

TEST(TabItems, AreFoundByNumber)
{
    const auto items = items_at({ { 0, 0, 80, 24 }, { 40, 0, 120, 24 } });
    EXPECT_EQ(look::find_tab(items, 2), &items[1]);
    EXPECT_EQ(look::find_tab(items, 0), nullptr);
    EXPECT_EQ(look::find_tab(items, 3), nullptr);
}

TEST(TabItems, ComeFromTheTabbedPagesInStoredOrder)
{
    book::Book book = book_with_tabs({ 0, 9, 0, 5 });
    book.pages[3].text[0] = L"四ページ\r\n二行目";
    book.pages[3].tab_color = 0xFF1E78BE;
    book.header.position = 3;
    const look::TabItems tabs = look::make_tabs(book, strip);
    ASSERT_EQ(tabs.items.size(), 2u);
    EXPECT_EQ(tabs.items[0], (TabItem{ 1, { 0, 0, 200, 24 }, Color{ 0xB3574A }, L"一" }));
    EXPECT_EQ(tabs.items[1], (TabItem{ 2, { 200, 0, 400, 24 }, Color{ 0x1E78BE }, L"四ページ" }));
    EXPECT_EQ(tabs.current_tab, 2u);
    EXPECT_EQ(book.pages[3].tab_number, 2u);
}

TEST(TabItems, HaveNoCurrentTabOnAPageWithoutOne)
{
    book::Book book = book_with_tabs({ 0, 1 });
    EXPECT_EQ(look::make_tabs(book, strip).current_tab, 0u);
}

TEST(TabItems, FollowTheDisplayOrderForTheCurrentTab)
{
    book::Book book = book_with_tabs({ 1, 1, 1 });
    book.header.order_mode = -2700;
    book.header.position = 0;
    book.rebuild_order();
    EXPECT_EQ(look::make_tabs(book, strip).current_tab, 3u);
}

TEST(TabItems, TakeTheirCaptionFromTheBoxThatTheBookNames)
{
    book::Book book = book_with_tabs({ 1 });
    const std::pair<std::int32_t, const wchar_t*> cases[] = { { 4000, L"一" }, { 4001, L"二" },
        { 4002, L"三" }, { 0, L"一" }, { -7, L"一" }, { 4003, L"三" }, { 2147483647, L"三" } };
    for (const auto& [box, caption] : cases) {
        book.header.tab_label_box = box;
        EXPECT_EQ(look::make_tabs(book, strip).items.at(0).caption, caption) << box;
    }
}

TEST(TabItems, AreNoneInABookWithoutTabs)
{
    book::Book book = book_with_tabs({ 0, 0 });
    EXPECT_TRUE(look::make_tabs(book, strip).items.empty());
    book.pages.clear();
    EXPECT_TRUE(look::make_tabs(book, strip).items.empty());
}

TEST(TabItems, StopAtTheLargestNumberOfTabs)
{
    book::Book book;
    book.pages.resize(300);
    for (book::Page& page : book.pages)
        page.tab_number = 1;
    EXPECT_EQ(look::make_tabs(book, strip).items.size(), 256u);
}

TEST(TabColors, AreTheSameInEveryTheme)
{
    const std::uint32_t expected[] = { 0x535864, 0xB3574A, 0x698C20, 0x32A0BE, 0x1E78BE, 0x403CBE, 0xB4468C };
    for (std::size_t i = 0; i < 7; ++i)
        EXPECT_EQ(look::tab_color(i).value, expected[i]) << i;
    for (std::size_t i = 7; i < 16; ++i)
        EXPECT_EQ(look::tab_color(i).value, 0u) << i;
}

TEST(TabColors, AreChosenByCommand)
{
    EXPECT_FALSE(look::is_tab_color_command(2299));
    EXPECT_TRUE(look::is_tab_color_command(2300));
    EXPECT_TRUE(look::is_tab_color_command(2315));
    EXPECT_FALSE(look::is_tab_color_command(2316));
    EXPECT_EQ(look::chosen_tab_color(2300).value, 0x535864u);
    EXPECT_EQ(look::chosen_tab_color(2306).value, 0xB4468Cu);
    EXPECT_EQ(look::chosen_tab_color(2307).value, 0u);
    EXPECT_EQ(look::chosen_tab_color(2315).value, 0u);
    EXPECT_EQ(look::chosen_tab_color(2299).value, 0x535864u);
    EXPECT_EQ(look::chosen_tab_color(9999).value, 0u);
}

TEST(TabMenu, HasItsItemsInOrder)
{
    using ovlib::menu_item;
    using ovlib::menu_separator;
    const ovlib::MenuRows expected{ menu_item(2300, L"(Default)"), menu_separator(), menu_item(2301, L"Blue"),
        menu_item(2302, L"Green"), menu_item(2303, L"Yellow"), menu_item(2304, L"Orange"),
        menu_item(2305, L"Red"), menu_item(2306, L"Purple"), menu_separator(),
        menu_item(2508, L"タブの削除") };
    EXPECT_EQ(look::tab_menu(), expected);
}

TEST(TabShape, HasCutUpperCorners)
{
    const look::TabOutline expected{ { { 14, 0 }, { 205, 0 }, { 209, 4 }, { 209, 24 }, { 10, 24 },
        { 10, 4 } } };
    EXPECT_EQ(look::tab_outline({ 10, 0, 210, 24 }), expected);
}

TEST(TabShape, IsEdgedAlongTheTopWhenHotAndAlongTheRightOtherwise)
{
    const look::TabOutline outline = look::tab_outline({ 10, 0, 210, 24 });
    EXPECT_EQ(look::tab_edge(outline, true), (std::vector<Point>{ { 13, 2 }, { 206, 2 } }));
    EXPECT_EQ(look::tab_edge(outline, false), (std::vector<Point>{ { 205, 0 }, { 209, 4 }, { 209, 24 } }));
}

TEST(TabShape, HasItsCaptionVerticallyCentred)
{
    EXPECT_EQ(look::tab_caption_rect({ 10, 0, 210, 24 }, 14), (Rect{ 14, 5, 208, 19 }));
}

TEST(TabPainting, ColoursAColdTabByItsOwnColour)
{
    const look::ThemePalette palette = look::theme_colors(look::theme_standard);
    const Color blue{ 0xB3574A };
    const look::TabColors expected{ blue.shade(150), blue, blue.shade(-150), 1, Color{ 0xFFFFFF } };
    EXPECT_EQ(look::tab_colors(blue, false, palette), expected);
}

TEST(TabPainting, ColoursAHotTabByThePanel)
{
    const Color blue{ 0xB3574A };
    for (std::int32_t theme = 6000; theme <= 6005; ++theme) {
        const look::ThemePalette palette = look::theme_colors(theme);
        const Color text = blue.shade(theme == 6002 ? 150 : -150);
        const look::TabColors expected{ blue, palette.panel_back, blue.shade(50), 2, text };
        EXPECT_EQ(look::tab_colors(blue, true, palette), expected) << theme;
    }
}

TEST(TabPainting, ShadesThePanelForTheStrip)
{
    const look::ThemePalette palette = look::theme_colors(look::theme_standard);
    const look::StripColors expected{ palette.panel_back.shade(-80), palette.panel_back.shade(150) };
    EXPECT_EQ(look::strip_colors(palette), expected);
}

TEST(TabSwatch, HasItsMarkFourPixelsInside)
{
    EXPECT_EQ(look::swatch_mark({ 15, 15 }), (Rect{ 4, 4, 11, 11 }));
    EXPECT_EQ(look::swatch_mark({ 6, 7 }), (Rect{ 2, 3, 2, 3 }));
    EXPECT_EQ(look::swatch_frame(Color{ 0xB3574A }), Color{ 0xB3574A }.shade(-80));
}

TEST(ChosenTabColor, IsThatOfTheNextTab)
{
    look::ChosenTabColor chosen;
    EXPECT_EQ(chosen.color(), look::tab_color(0));
    book::Page page;
    EXPECT_TRUE(chosen.choose(2303, page));
    EXPECT_EQ(page.tab_color, look::chosen_tab_color(2303).value);
    EXPECT_EQ(chosen.color(), look::chosen_tab_color(2303));
    EXPECT_FALSE(chosen.choose(2316, page));
    EXPECT_EQ(page.tab_color, look::chosen_tab_color(2303).value);
    EXPECT_EQ(chosen.color(), look::chosen_tab_color(2303));
}

} // namespace
