// Access to the windows beside the main one.
#pragma once
#include "book/wnd/book_search_result_wnd.hpp"
#include "book/wnd/filelist_editor.hpp"
#include "tests/support/gui_app_controls.hpp"
#include <stdexcept>

namespace gui {

class AppWindows : public AppControls {
protected:
    // The main window has one of each class, which may not be created yet.
    template <class Window> static Window& beside()
    {
        for (ovlib::Wnd* wnd = ovlib::Wnd::first(); wnd; wnd = wnd->next()) {
            if (auto* const found = dynamic_cast<Window*>(wnd))
                return *found;
        }
        throw std::runtime_error("no such window");
    }
    static book::BookSearchResultWnd& results() { return beside<book::BookSearchResultWnd>(); }
    static book::FileListEditor& list_editor() { return beside<book::FileListEditor>(); }
    static HWND list_box() { return GetDlgItem(list_editor().hwnd(), core::command::file_list_box); }
    static std::wstring list_text() { return text_of(list_box()); }
    // Types over all of its text.
    static void retype_list(const std::wstring& text)
    {
        SendMessageW(list_box(), EM_SETSEL, 0, -1);
        for (const wchar_t unit : text)
            if (unit != L'\n')
                SendMessageW(list_box(), WM_CHAR, unit, 1);
    }
    std::pair<DWORD, DWORD> selection_in(HWND box) const
    {
        DWORD start = 0;
        DWORD end = 0;
        SendMessageW(box, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        return { start, end };
    }
    std::pair<DWORD, DWORD> selection_of(int id) const { return selection_in(box(id)); }
    book::Book& open_book() { return const_cast<book::Book&>(book()); }
};

} // namespace gui
