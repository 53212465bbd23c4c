// Access to the main window's controls.
#pragma once
#include "look/wnd/image_button.hpp"
#include "look/wnd/my_check_box.hpp"
#include "look/wnd/myslider.hpp"
#include "look/wnd/mystatusbar.hpp"
#include "look/wnd/tabwnd.hpp"
#include "ovlib/gui/combobox.hpp"
#include "platform/geometry.hpp"
#include "tests/support/gui_app.hpp"
#include <commctrl.h>

namespace gui {

class AppControls : public AppWindow {
protected:
    // The only control of this class in the main window.
    template <class Control> Control& the() const
    {
        for (ovlib::Wnd* wnd = ovlib::Wnd::first(); wnd; wnd = wnd->next()) {
            auto* const found = dynamic_cast<Control*>(wnd);
            if (found && found->hwnd())
                return *found;
        }
        throw std::runtime_error("no such control");
    }
    template <class Control> Control& control(int id) const
    {
        return dynamic_cast<Control&>(*ovlib::Wnd::from_handle(box(id)));
    }
    look::MyCheckBox& check(int id) const { return control<look::MyCheckBox>(id); }
    look::ImageButton& button(int id) const { return control<look::ImageButton>(id); }

    // Clicks the button by message.
    void click(int id) { SendMessageW(box(id), BM_CLICK, 0, 0); }

    platform::Rect place_of(HWND hwnd)
    {
        RECT rect{};
        GetWindowRect(hwnd, &rect);
        MapWindowPoints(nullptr, window().hwnd(), reinterpret_cast<POINT*>(&rect), 2);
        return { rect.left, rect.top, rect.right, rect.bottom };
    }
    static int text_width(HWND hwnd)
    {
        const ovlib::UniqueLentDC lent{ { hwnd, GetDC(hwnd) } };
        const ovlib::DC dc{ lent.get().hdc };
        const ovlib::ObjectSelection selected{ dc,
            reinterpret_cast<HFONT>(SendMessageW(hwnd, WM_GETFONT, 0, 0)) };
        const std::wstring text = text_of(hwnd);
        SIZE size{};
        GetTextExtentPoint32W(dc.handle(), text.c_str(), static_cast<int>(text.size()), &size);
        return size.cx;
    }

    // Sends what the slider sends when the user drags it to a value or presses its track there.
    void slide(int code, std::int32_t value)
    {
        look::MySlider& slider = the<look::MySlider>();
        slider.value = value;
        slider.update_thumb();
        slider.notify(code, value);
    }
    void write_search(const std::wstring& text)
    {
        SetWindowTextW(box(core::command::search_box), text.c_str());
    }

    static book::Page page_with_files(std::initializer_list<const wchar_t*> files, std::uint64_t current = 0)
    {
        book::Page made = page(L"a\r\n");
        made.files.assign(files.begin(), files.end());
        made.current_file = current;
        return made;
    }
};

} // namespace gui
