// A parent that records its slider's notifications.
#pragma once
#include "ovlib/gui/slider.hpp"
#include "tests/support/gui_window.hpp"
#include <functional>
#include <utility>
#include <vector>

namespace gui {

class SliderHost : public TopWnd {
public:
    using Notices = std::vector<std::pair<int, int>>; // code and position

    bool on_message(ovlib::WndMessage& message) override
    {
        TopWnd::on_message(message);
        if (message.message != WM_HSCROLL)
            return false;
        notices.emplace_back(LOWORD(message.wparam), static_cast<int>(message.wparam >> 16));
        sender = reinterpret_cast<HWND>(message.lparam);
        if (on_notice)
            on_notice();
        return true;
    }

    Notices notices;
    HWND sender = nullptr;
    std::function<void()> on_notice;
};

} // namespace gui
