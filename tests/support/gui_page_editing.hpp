// The page editor, opened over a Book, and used by commands and messages.
#pragma once
#include "tests/support/gui_editing.hpp"

namespace gui {

namespace place = book::page_editor_place;

class PageEditing : public EditingWindows {
protected:
    static constexpr auto caption = L"Pagewick - ブックエディタ";

    void open_letters(std::wstring_view letters)
    {
        open(lettered(letters));
        open_editor();
    }
    void go_to(std::uint64_t position)
    {
        command(command::first_page);
        for (std::uint64_t i = 0; i < position; ++i)
            command(command::next_page);
        ASSERT_EQ(book().header.position, position);
    }
    void select(std::initializer_list<std::uint64_t> positions)
    {
        for (const std::uint64_t position : positions) {
            go_to(position);
            set_check(editor(), command::select_page, true);
        }
    }
    void order(int id) { editor().send_command(id, 0, 0); }
    MetBox order(int id, int answer)
    {
        return answered(answer, [&] { order(id); });
    }
    std::wstring label(int id) const { return text_of(item(editor(), id)); }
    bool is_shown(int id) const { return IsWindowVisible(item(editor(), id)) != FALSE; }
    std::wstring range() const
    {
        std::wstring text = label(command::go_to_range_start);
        if (is_shown(command::go_to_range_end))
            text += L"-" + label(command::go_to_range_end);
        return text;
    }
    void turn_with_shift(int id)
    {
        const HeldKey shift{ VK_SHIFT };
        command(id);
    }
    // Mouse messages at this x of the strip.
    void strip(UINT message, int x)
    {
        editor().send(message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON,
            MAKELPARAM(place::strip.left + x, place::strip.top + 8));
    }
    void press_key_in(int id, WPARAM key) { SendMessageW(item(editor(), id), WM_KEYDOWN, key, 1); }
    // A message box changes the state of the keys, so each press holds Ctrl anew.
    void press_ctrl_and(WPARAM key)
    {
        const HeldKey ctrl{ VK_CONTROL };
        ASSERT_TRUE(pump_until([] { return GetKeyState(VK_CONTROL) < 0; }));
        press_key_in(command::select_page, key);
    }
    COLORREF window_pixel(int x, int y) const
    {
        RedrawWindow(editor().hwnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ERASENOW);
        const ovlib::ClientDC dc{ editor() };
        return GetPixel(dc.handle(), x, y);
    }
    COLORREF strip_pixel(int x) const { return window_pixel(place::strip.left + x, place::strip.top + 8); }
    void open_changed()
    {
        open_letters(L"あいう");
        select({ 1 });
        order(command::delete_pages, IDYES);
        ASSERT_TRUE(editor().has_changed());
    }
    MetBox close_by(int button)
    {
        return answered(button, [&] { editor().send(WM_CLOSE, 0, 0); });
    }
};

} // namespace gui
