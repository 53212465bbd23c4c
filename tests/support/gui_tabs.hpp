// The tab strip in a separate window, used with the real mouse.
#pragma once
#include "look/wnd/tabwnd.hpp"
#include "tests/support/gui_look.hpp"
#include "tests/support/gui_menu.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_typing.hpp"
#include "tests/support/gui_window.hpp"
#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace gui {

inline constexpr look::Color tab_blue{ 0xB3574A };

// The items of the context menu, by index.
enum : int {
    default_item,
    line_1,
    first_named,
    last_named = first_named + 5,
    line_2,
    remove_item,
    item_count
};

class TabStrip : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top_.create(L"top"));
        ASSERT_TRUE(strip_.create(L""));
        ASSERT_TRUE(other_.create(L""));
        place(480);
        top_.show(true);
        ASSERT_TRUE(bring_to_front(top_));
        point_at(on_screen(top_, { 200, 300 }));
        pump();
        top_.answer = [this](ovlib::WndMessage& message) {
            if (message.message == WM_COMMAND && HIWORD(message.wparam) == 0)
                sent_.push_back({ LOWORD(message.wparam), message.lparam });
            return false;
        };
    }
    void TearDown() override { top_.destroy(); }

    void place(int width) { strip_.set_rect({ 2, 4, 2 + width, 28 }, true); }
    void add_page(const wchar_t* text, bool has_tab = true, look::Color color = tab_blue)
    {
        book::Page page;
        page.text[0] = text;
        page.tab_number = has_tab ? 1 : 0;
        page.tab_color = color.value;
        book_.pages.push_back(page);
    }
    // Opens a Book with the pages "一", "二" and so on, all with tabs, and shows the first.
    void open_three()
    {
        for (const wchar_t* const text : { L"一", L"二", L"三" })
            add_page(text);
        strip_.rebuild();
        pump();
    }
    void paint()
    {
        InvalidateRect(strip_.hwnd(), nullptr, FALSE);
        UpdateWindow(strip_.hwnd());
    }
    look::Color pixel(int x, int y)
    {
        paint();
        return gui::pixel(strip_.buffer(), x, y);
    }
    POINT on_strip(int x) const { return on_screen(strip_, { x, 12 }); }
    bool hover(int x)
    {
        point_at(on_strip(x));
        return pump_until([&] { return strip_.hover_tab() == look::tab_at(strip_.items(), { x, 12 }); });
    }
    // Moves the pointer off the strip until `state` holds.
    template <class State> bool leave_until(State state)
    {
        point_at(on_screen(top_, { 200, 300 }));
        return pump_until(state);
    }
    void use_menu(int x, const std::function<void(const ShownMenu&)>& act)
    {
        std::atomic<bool> used = false;
        MenuDriver driver([&](const ShownMenu& menu) {
            act(menu);
            used = true;
        });
        right_click_at(on_strip(x));
        ASSERT_TRUE(pump_until([&] { return used.load(); }));
        EXPECT_TRUE(driver.finish());
        pump();
    }
    std::vector<int> checked(int x)
    {
        std::vector<int> items;
        use_menu(x, [&](const ShownMenu& menu) {
            for (int item = 0; item < item_count; ++item) {
                if (menu.is_checked(item))
                    items.push_back(item);
            }
        });
        return items;
    }

    using Sent = std::pair<int, std::int64_t>;

    book::Book book_;
    const Look look_;
    TopWnd top_;
    look::TabWnd strip_{ &top_, &book_ };
    Edit other_{ &top_, 7 };
    std::vector<Sent> sent_;
};

} // namespace gui
