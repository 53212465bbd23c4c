// The popup of a page tab: its items, colours and swatches.
#include "core/command_ids.hpp"
#include "look/wnd/tab_drawing.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_tabs.hpp"
#include <memory>

extern "C" void* __imp_CreateDIBSection;

namespace {

namespace command = core::command;
using namespace gui; // the indices of the items
using look::Color;
using TabPopup = gui::TabStrip;

constexpr Color blue = gui::tab_blue;
constexpr Color white{ 0xFFFFFF };

TEST_F(TabPopup, HasItsItemsInOrder)
{
    open_three();
    const wchar_t* const texts[] = { L"(Default)", L"", L"Blue", L"Green", L"Yellow", L"Orange", L"Red",
        L"Purple", L"", L"タブの削除" };
    use_menu(20, [&](const ShownMenu& menu) {
        EXPECT_EQ(GetMenuItemCount(menu.menu()), item_count);
        for (int item = 0; item < item_count; ++item)
            EXPECT_EQ(menu.text(item), texts[item]) << item;
    });
    EXPECT_EQ(GetFocus(), strip_.hwnd());
}

TEST_F(TabPopup, ChecksTheColourOfItsTab)
{
    add_page(L"青");
    add_page(L"紫", true, look::tab_color(6));
    strip_.rebuild();
    EXPECT_EQ(checked(20), std::vector<int>{ first_named });
    EXPECT_EQ(checked(strip_.items()[1].rect.left + 20), std::vector<int>{ last_named });
}

TEST_F(TabPopup, ChecksNothingForAColourOutsideTheTable)
{
    add_page(L"他", true, Color{ 0x123456 });
    strip_.rebuild();
    EXPECT_EQ(checked(20), std::vector<int>{});
}

TEST_F(TabPopup, KeepsTheTabUnderTheMouseHot)
{
    open_three();
    ASSERT_TRUE(hover(20));
    use_menu(20, [&](const ShownMenu&) {
        strip_.send(WM_MOUSELEAVE, 0, 0);
        EXPECT_EQ(strip_.hover_tab(), 1u);
        EXPECT_FALSE(strip_.tip().is_visible());
    });
    EXPECT_FALSE(strip_.menu().is_showing());
}

TEST_F(TabPopup, PaintsTheTabInTheChosenColour)
{
    open_three();
    const int second = strip_.items()[1].rect.left + 20;
    use_menu(second, [](const ShownMenu& menu) { menu.choose(last_named); });
    EXPECT_EQ(book_.pages[1].tab_color, look::tab_color(6).value);
    EXPECT_EQ(strip_.items()[1].color, look::tab_color(6));
    EXPECT_EQ(strip_.chosen_color(), look::tab_color(6)) << "which the next tab gets";
    EXPECT_EQ(book_.pages[0].tab_color, blue.value);
    EXPECT_TRUE(sent_.empty());
    EXPECT_TRUE(leave_until([&] { return strip_.hover_tab() == 0; }));
    EXPECT_EQ(pixel(second + 60, 20), look::tab_color(6));
}

TEST_F(TabPopup, AChosenColourInvalidatesTheStrip)
{
    open_three();
    use_menu(20, [](const ShownMenu&) {});
    paint();
    ASSERT_FALSE(GetUpdateRect(strip_.hwnd(), nullptr, FALSE));
    ovlib::WndMessage message{ strip_.hwnd(), WM_COMMAND, command::first_tab_color, 0, 0 };
    EXPECT_TRUE(strip_.on_message(message));
    EXPECT_TRUE(GetUpdateRect(strip_.hwnd(), nullptr, FALSE));
}

TEST_F(TabPopup, AsksTheParentToRemoveTheTab)
{
    open_three();
    use_menu(strip_.items()[1].rect.left + 20, [](const ShownMenu& menu) { menu.choose(remove_item); });
    EXPECT_EQ(sent_,
        (std::vector<Sent>{ { command::remove_tab, reinterpret_cast<std::intptr_t>(&book_.pages[1]) } }));
    EXPECT_NE(book_.pages[1].tab_number, 0u);
}

TEST_F(TabPopup, ARightClickOutsideTheTabsOnlyTakesTheFocus)
{
    add_page(L"一");
    strip_.rebuild();
    other_.set_focus();
    right_click_at(on_strip(400));
    EXPECT_TRUE(pump_until([&] { return GetFocus() == strip_.hwnd(); }));
    EXPECT_TRUE(popups_of(GetCurrentThreadId()).empty());
}

TEST_F(TabPopup, RefusesAColourWithoutATab)
{
    open_three();
    ovlib::WndMessage message{ strip_.hwnd(), WM_COMMAND, 2301, 0, 0 };
    EXPECT_FALSE(strip_.on_message(message));
    use_menu(20, [](const ShownMenu&) {});
    book_.pages[0].tab_number = 0;
    EXPECT_FALSE(strip_.on_message(message));
    EXPECT_EQ(book_.pages[0].tab_color, blue.value);
    EXPECT_EQ(strip_.chosen_color(), look::tab_color(0));
}

TEST_F(TabPopup, AcceptsEveryColourNumberOnce)
{
    open_three();
    for (int id = command::first_tab_color; id <= command::last_tab_color; ++id) {
        use_menu(20, [](const ShownMenu&) {});
        ovlib::WndMessage message{ strip_.hwnd(), WM_COMMAND, static_cast<std::uint64_t>(id), 0, 0 };
        EXPECT_TRUE(strip_.on_message(message)) << id;
        EXPECT_EQ(Color{ book_.pages[0].tab_color }, look::chosen_tab_color(id));
        EXPECT_FALSE(strip_.on_message(message)) << "the popup's choice was used up";
    }
}

TEST_F(TabPopup, HasSwatchesInTheSizeOfAMenusMark)
{
    const look::Swatches swatches = look::make_swatches();
    const int width = GetSystemMetrics(SM_CXMENUCHECK);
    const int height = GetSystemMetrics(SM_CYMENUCHECK);
    for (std::size_t i = 0; i < swatches.size(); ++i) {
        const ovlib::MemDC dc;
        const auto at = [&](const ovlib::GDI::Bitmap& bitmap, int x, int y) {
            const ovlib::ObjectSelection selected(dc, bitmap);
            return Color{ GetPixel(dc.handle(), x, y) };
        };
        const look::Swatch& swatch = swatches[i];
        const Color color = look::tab_color(i);
        EXPECT_EQ(at(swatch.unchecked, 0, 0), look::swatch_frame(color)) << i;
        EXPECT_EQ(at(swatch.unchecked, width - 1, height - 1), look::swatch_frame(color)) << i;
        EXPECT_EQ(at(swatch.unchecked, 4, 4), color) << i;
        EXPECT_EQ(at(swatch.checked, 4, 4), white) << i;
        EXPECT_EQ(at(swatch.checked, width - 5, height - 5), white) << i;
        EXPECT_EQ(at(swatch.checked, 3, 3), color) << i;
        EXPECT_EQ(at(swatch.checked, 5, 5), color) << i;
    }
}

struct CheckBitmaps {
    HBITMAP unchecked = nullptr;
    HBITMAP checked = nullptr;
};

CheckBitmaps check_bitmaps(const ovlib::Menu& menu, UINT item)
{
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_CHECKMARKS;
    GetMenuItemInfoW(menu.handle(), item, TRUE, &info);
    return { info.hbmpUnchecked, info.hbmpChecked };
}

bool is_color_item(UINT item)
{
    return item == default_item || (item >= first_named && item <= last_named);
}

TEST_F(TabPopup, HasASwatchForEveryColour)
{
    for (UINT item = 0; item < item_count; ++item) {
        const CheckBitmaps shown = check_bitmaps(strip_.menu(), item);
        EXPECT_EQ(shown.unchecked != nullptr, is_color_item(item)) << item;
        EXPECT_EQ(shown.checked != nullptr, is_color_item(item)) << item;
        if (is_color_item(item)) {
            EXPECT_NE(shown.checked, shown.unchecked) << item;
        }
    }
}

TEST_F(TabPopup, HasNoPicturesWithoutSwatches)
{
    open_three();
    std::unique_ptr<look::TabWnd> plain;
    {
        const ReplacedImport<decltype(CreateDIBSection)> failing{ &__imp_CreateDIBSection,
            [](HDC, const BITMAPINFO*, UINT, void**, HANDLE, DWORD) -> HBITMAP { return nullptr; } };
        plain = std::make_unique<look::TabWnd>(&top_, &book_);
    }
    ASSERT_TRUE(plain->create(L""));
    plain->set_rect({ 2, 40, 482, 64 }, true);
    plain->rebuild();
    pump();
    EXPECT_EQ(plain->menu().count(), item_count);
    for (UINT item = 0; item < item_count; ++item) {
        EXPECT_EQ(check_bitmaps(plain->menu(), item).unchecked, nullptr) << item;
        EXPECT_EQ(check_bitmaps(plain->menu(), item).checked, nullptr) << item;
    }
    EXPECT_EQ(gui::pixel(plain->buffer(), plain->items()[1].rect.left + 80, 20), blue);
}

} // namespace
