// Checks that every tool window must pass: complete texts, the Tab order and pixels of its background.
#pragma once
#include "look/wnd/fonts.hpp"
#include "look/wnd/my_check_box.hpp"
#include "ovlib/gui/dc.hpp"
#include "tests/support/gui_driver.hpp"
#include "tests/support/gui_pump.hpp"
#include <windows.h>
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace gui {

inline SIZE extent_of(HWND control, const std::wstring& text)
{
    const ovlib::UniqueLentDC lent{ { control, GetDC(control) } };
    const ovlib::DC dc{ lent.get().hdc };
    const ovlib::ObjectSelection selected{ dc,
        reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)) };
    SIZE size{};
    GetTextExtentPoint32W(dc.handle(), text.c_str(), static_cast<int>(text.size()), &size);
    return size;
}

inline RECT place_in_parent(HWND control)
{
    RECT rect{};
    GetWindowRect(control, &rect);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

// The children of a window in their order of creation.
inline std::vector<HWND> children_of(HWND window)
{
    std::vector<HWND> children;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    std::ranges::sort(children, {}, [](HWND child) {
        const ovlib::Wnd* const wnd = ovlib::Wnd::from_handle(child);
        return wnd ? wnd->tab_order() : 0;
    });
    return children;
}

// Expects that buttons, checks and combo boxes show their texts completely, lie in the client area and do not
// overlap.
inline void expect_complete_texts(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    const std::vector<HWND> children = children_of(window);
    for (HWND const child : children) {
        const RECT place = place_in_parent(child);
        std::wstring text = text_of(child);
        int room = place.right - place.left;
        if (dynamic_cast<look::MyCheckBox*>(ovlib::Wnd::from_handle(child)))
            room -= 18; // the box and its gap
        else if (!text.empty())
            room -= 4;
        if (SendMessageW(child, CB_GETCOUNT, 0, 0) > 0)
            room -= GetSystemMetrics(SM_CXVSCROLL) + 4;
        EXPECT_LE(extent_of(child, text).cx, room) << testing::PrintToString(text);
        EXPECT_LE(extent_of(child, text).cy, place.bottom - place.top) << testing::PrintToString(text);
        EXPECT_TRUE(
            place.left >= 0 && place.top >= 0 && place.right <= client.right && place.bottom <= client.bottom)
            << testing::PrintToString(text);
        for (HWND const other : children) {
            RECT common{};
            const RECT other_place = place_in_parent(other);
            EXPECT_TRUE(other == child || !IntersectRect(&common, &place, &other_place))
                << testing::PrintToString(text) << testing::PrintToString(text_of(other));
        }
    }
}

inline COLORREF pixel_of(HWND window, int x, int y)
{
    UpdateWindow(window);
    const ovlib::UniqueLentDC lent{ { window, GetDC(window) } };
    return GetPixel(lent.get().hdc, x, y);
}

// Whether a pixel of this colour is in the area, which a drawn text must leave.
inline bool has_color(HWND window, const RECT& area, COLORREF color)
{
    UpdateWindow(window);
    const ovlib::UniqueLentDC lent{ { window, GetDC(window) } };
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            if (GetPixel(lent.get().hdc, x, y) == color)
                return true;
        }
    }
    return false;
}

} // namespace gui
