// The windows that edit the Book's pages, opened by the main window's commands.
#pragma once
#include "book/page_editor_view.hpp"
#include "book/replace_view.hpp"
#include "book/wnd/bookeditor.hpp"
#include "book/wnd/replacewnd.hpp"
#include "tests/support/gui_app_windows.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_menu.hpp"
#include "tests/support/gui_typing.hpp"
#include <deque>
#include <fstream>
#include <iterator>

namespace gui {

namespace command = core::command;

class EditingWindows : public AppWindows {
protected:
    static constexpr auto replace_caption = L"Pagewick - 文字列の置換";
    static constexpr auto damaged_book = L"\x3\x3\r\nzz\r\n\x3\x3\r\n";
    static constexpr DWORD editing_frame = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;

    // Without the styles that say how the window is shown at the moment.
    static DWORD frame_style(const ovlib::Wnd& window)
    {
        return static_cast<DWORD>(GetWindowLongW(window.hwnd(), GWL_STYLE))
            & ~(WS_VISIBLE | WS_DISABLED | WS_CLIPSIBLINGS);
    }

    book::ReplaceWnd& replace() const { return beside<book::ReplaceWnd>(); }
    book::BookEditor& editor() const { return beside<book::BookEditor>(); }

    // A control of a window beside the main one.
    static HWND item(const ovlib::Wnd& window, int id) { return GetDlgItem(window.hwnd(), id); }
    static look::MyCheckBox& check_in(const ovlib::Wnd& window, int id)
    {
        return dynamic_cast<look::MyCheckBox&>(*ovlib::Wnd::from_handle(item(window, id)));
    }
    static void click_in(const ovlib::Wnd& window, int id) { SendMessageW(item(window, id), BM_CLICK, 0, 0); }
    static void set_check(const ovlib::Wnd& window, int id, bool on)
    {
        if (check_in(window, id).is_checked() != on)
            click_in(window, id);
    }
    static void set_field(const ovlib::Wnd& window, int id, const std::wstring& text)
    {
        SetWindowTextW(item(window, id), text.c_str());
    }

    void open_replace()
    {
        command(command::show_replace);
        ASSERT_TRUE(replace().is_open());
    }
    void open_editor()
    {
        command(command::show_book_editor);
        ASSERT_TRUE(editor().is_open());
    }
    // Fills the window and replaces, with the message that follows.
    MetBox replaced(const std::wstring& search, const std::wstring& replacement, int order)
    {
        set_field(replace(), command::replace_search_text, search);
        set_field(replace(), command::replace_new_text, replacement);
        return answered(IDOK, [&] { replace().send_command(order, 0, 0); });
    }

    // The controls that get the focus, from the first one on, by the Tab key.
    static std::vector<int> tabbed_controls(ovlib::Wnd& window, std::size_t count)
    {
        std::vector<int> seen;
        if (!bring_to_front(window))
            return seen;
        window.set_focus();
        while (seen.size() < count) {
            seen.push_back(GetDlgCtrlID(GetFocus()));
            SendMessageW(GetFocus(), WM_CHAR, VK_TAB, 1);
        }
        return seen;
    }

    std::string bytes_of(const std::wstring& name = L"手帖.bok") const
    {
        std::ifstream in{ std::filesystem::path(file(name)), std::ios::binary };
        return { std::istreambuf_iterator<char>(in), {} };
    }
    // The text of box 1. Saving removes the line break at its end.
    std::wstring first_line() const
    {
        const std::wstring text = box_text(command::box_1);
        return text.substr(0, text.find(L'\r'));
    }
    // The first texts of all pages, without their line breaks.
    std::wstring first_texts() const
    {
        std::wstring all;
        for (const book::Page& one : book().pages)
            all += one.text[0].substr(0, one.text[0].find(L'\r'));
        return all;
    }
    static book::Book lettered(std::wstring_view letters)
    {
        book::Book made;
        for (const wchar_t letter : letters)
            made.pages.push_back(page((std::wstring(1, letter) + L"\r\n").c_str()));
        return made;
    }
    // The selection of all pages, one digit a page.
    std::wstring selection() const
    {
        std::wstring digits;
        for (const book::Page& one : book().pages)
            digits += std::to_wstring(static_cast<unsigned>(one.selected));
        return digits;
    }

    // Runs an action that shows boxes and presses these buttons. While the box after them is open the main
    // window is destroyed, with everything it owns.
    void end_under_box(const std::function<void()>& action, std::deque<int> buttons = {})
    {
        static HWND main;
        static std::deque<int> pressed;
        main = window().hwnd();
        pressed = std::move(buttons);
        constexpr UINT often = 10;
        const UINT_PTR timer = SetTimer(nullptr, 0, often, [](HWND, UINT, UINT_PTR, DWORD) {
            HWND const dialog = dialog_of(GetCurrentThreadId());
            if (!dialog)
                return;
            if (pressed.empty()) {
                DestroyWindow(main);
                return;
            }
            SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(pressed.front()), 0);
            pressed.pop_front();
        });
        action();
        KillTimer(nullptr, timer);
        EXPECT_FALSE(IsWindow(main));
        take_quit();
    }
};

} // namespace gui
