// Uses a popup menu of this process from a second thread, as a user would, with keys and mouse.
#pragma once
#include "tests/support/gui_driver.hpp"
#include "tests/support/gui_input.hpp"
#include "tests/support/gui_pump.hpp"
#include <windows.h>
#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace gui {

// The open popup menus of a thread, outermost first.
inline std::vector<HWND> popups_of(DWORD thread)
{
    std::vector<HWND> found = visible_windows_of(thread, L"#32768");
    std::ranges::reverse(found);
    return found;
}

// A popup on the screen. Items are counted from 0, including separators.
class ShownMenu {
public:
    ShownMenu(DWORD thread, std::size_t depth)
        : thread_(thread)
        , depth_(depth)
    {
    }

    HWND hwnd() const
    {
        const auto popups = popups_of(thread_);
        return popups.size() > depth_ ? popups[depth_] : nullptr;
    }
    HMENU menu() const
    {
        constexpr UINT get_menu = 0x1E1; // MN_GETHMENU
        return reinterpret_cast<HMENU>(SendMessageW(hwnd(), get_menu, 0, 0));
    }
    bool is_open() const { return hwnd() != nullptr; }
    bool wait() const
    {
        return poll_until([&] { return is_open(); });
    }
    // The popup that opens from an item of this one.
    ShownMenu inner() const { return { thread_, depth_ + 1 }; }

    RECT item_rect(int item) const
    {
        RECT rect{};
        GetMenuItemRect(nullptr, menu(), static_cast<UINT>(item), &rect);
        return rect;
    }
    bool is_highlighted(int item) const { return (state(item) & MF_HILITE) != 0; }
    bool is_grey(int item) const { return (state(item) & (MF_GRAYED | MF_DISABLED)) != 0; }
    bool is_checked(int item) const { return (state(item) & MF_CHECKED) != 0; }
    UINT state(int item) const { return GetMenuState(menu(), static_cast<UINT>(item), MF_BYPOSITION); }
    std::wstring text(int item) const
    {
        wchar_t buffer[256] = {};
        GetMenuStringW(menu(), static_cast<UINT>(item), buffer, 256, MF_BYPOSITION);
        return buffer;
    }

    void point_at(int item, int aside = 0) const
    {
        const RECT rect = item_rect(item);
        SetCursorPos((rect.left + rect.right) / 2 + aside, (rect.top + rect.bottom) / 2);
    }
    // Moves the pointer until the menu highlights the item: a menu that is just opening ignores the first
    // moves.
    bool point_at_until_highlighted(int item) const
    {
        int moves = 0;
        return poll_until([&] {
            if (!is_highlighted(item))
                point_at(item, ++moves % 2);
            return is_highlighted(item);
        });
    }
    void click(int item) const
    {
        point_at_until_highlighted(item);
        press_button(MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP);
    }
    // Presses the down arrow until the item is highlighted.
    bool step_to(int item) const
    {
        const int count = GetMenuItemCount(menu());
        for (int presses = 0; presses <= count && !is_highlighted(item); ++presses) {
            const int before = highlighted();
            press_key(VK_DOWN);
            poll_until([&] { return highlighted() != before; });
        }
        return is_highlighted(item);
    }
    int highlighted() const
    {
        for (int i = GetMenuItemCount(menu()) - 1; i >= 0; --i) {
            if (is_highlighted(i))
                return i;
        }
        return -1;
    }
    void choose(int item) const
    {
        step_to(item);
        press_key(VK_RETURN);
    }
    bool wait_closed() const
    {
        return poll_until([&] { return !is_open(); });
    }
    // Closes all popups, however deep.
    void leave() const
    {
        while (const std::size_t before = popups_of(thread_).size()) {
            press_key(VK_ESCAPE);
            poll_until([&] { return popups_of(thread_).size() < before; });
        }
    }

private:
    DWORD thread_;
    std::size_t depth_;
};

// Waits for the next popup menu of the constructing thread and passes it to `act`. Closes popups that `act`
// leaves open.
class MenuDriver : public ShownDriver {
public:
    explicit MenuDriver(std::function<void(const ShownMenu&)> act)
        : ShownDriver([act = std::move(act)](DWORD thread) {
            const ShownMenu menu{ thread, 0 };
            const bool is_met = menu.wait();
            if (is_met)
                act(menu);
            menu.leave();
            return is_met;
        })
    {
    }
};

} // namespace gui
