// A window beside the main one with every kind of control that handles keys itself.
#pragma once
#include "core/command_ids.hpp"
#include "look/theme.hpp"
#include "look/wnd/image_button.hpp"
#include "look/wnd/input_form.hpp"
#include "look/wnd/my_list_view.hpp"
#include "look/wnd/themed.hpp"
#include "look/wnd/tool_window.hpp"
#include "ovlib/gui/combobox.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_driver.hpp"
#include "tests/support/gui_look.hpp"
#include "tests/support/gui_typing.hpp"
#include "tests/support/gui_window.hpp"
#include <array>
#include <dwmapi.h>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <set>

namespace gui {

namespace command = core::command;
using look::ToolWindow;

constexpr platform::Size client{ 320, 240 };
constexpr int button_id = 31;
constexpr int row_count = 1'000;

// A window with every kind of control that handles keys itself.
class Desk : public ToolWindow {
public:
    explicit Desk(ovlib::Wnd* parent, const look::ToolFrame& frame = { client })
        : ToolWindow(parent, 30, frame)
    {
    }

    bool on_message(ovlib::WndMessage& message) override
    {
        if (message.message == WM_CLOSE && refuses_close)
            return true;
        if (message.message == WM_COMMAND)
            commands.push_back(LOWORD(message.wparam));
        return ToolWindow::on_message(message);
    }
    std::wstring class_info(WNDCLASSEXW& info) override
    {
        ToolWindow::class_info(info);
        return ovlib::window_class_name(L"tests/desk", 1);
    }
    using ToolWindow::place_at_cursor;
    using ToolWindow::show_message;

    gui::Edit line{ this, 10 };
    gui::Edit lines{ this, 11 };
    look::InputForm form{ this, 12 };
    ovlib::ComboBox combo{ this, 13, CBS_DROPDOWNLIST };
    look::ImageButton button{ this, button_id };
    gui::PlainChild plain{ this, 14 };
    look::MyVirtualList list{ this, 15 };

    std::vector<int> commands;
    std::vector<platform::Size> layouts;
    std::function<void()> opening = [] {};
    std::optional<bool> enter; // the result of the default action
    int entered = 0;
    bool refuses_close = false;
    bool has_controls = true;

protected:
    bool make_controls() override
    {
        if (!has_controls)
            return true;
        lines.extra_style = ES_MULTILINE | ES_WANTRETURN;
        const bool are_made = add_controls({
            { &line, L"一行", { 10, 10, 200, 30 } },
            { &lines, L"", { 10, 40, 200, 90 } },
            { &form, L"", { 10, 100, 200, 120 } },
            { &combo, L"", { 10, 130, 200, 230 } },
            { &button, L"押す", { 210, 10, 310, 34 } },
            { &plain, L"", { 210, 40, 310, 60 } },
            { &list, L"", { 210, 70, 310, 230 } },
        });
        if (!are_made)
            return false;
        combo.add(L"甲");
        combo.add(L"乙");
        list.add_column(L"行", 80);
        list.set_source({ .text = [](int row, int) { return std::to_wstring(row); } });
        list.set_count(row_count);
        return true;
    }
    void lay_out(platform::Size size) override { layouts.push_back(size); }
    void on_opening() override { opening(); }
    bool on_enter() override
    {
        ++entered;
        return enter.value_or(false);
    }
};

class ToolWindows : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top.create(L"main"));
        top.answer = [this](ovlib::WndMessage& message) {
            if (message.message == WM_COMMAND)
                held.push_back({ LOWORD(message.wparam), message.lparam });
            return false;
        };
        top.show(true);
        ASSERT_TRUE(gui::point_at({ 900, 700 }));
        ASSERT_TRUE(gui::bring_to_front(top));
    }
    void TearDown() override { top.destroy(); }

    void open()
    {
        desk->show(true);
        ASSERT_TRUE(gui::pump_until([&] { return GetActiveWindow() == desk->hwnd(); }));
    }
    void focus(ovlib::Wnd& control)
    {
        control.set_focus();
        ASSERT_EQ(GetFocus(), control.hwnd());
    }
    // Sends the key as the message loop does.
    static void press(WORD key)
    {
        gui::press_key(key);
        gui::pump_until([&] { return GetAsyncKeyState(key) >= 0; });
        gui::pump();
    }
    static POINT corner_of(const ovlib::Wnd& wnd)
    {
        RECT rect{};
        GetWindowRect(wnd.hwnd(), &rect);
        return { rect.left, rect.top };
    }

    struct Held {
        int id;
        std::int64_t lparam;
        friend bool operator==(const Held&, const Held&) = default;
    };

    const gui::Look look_;
    gui::TopWnd top;
    std::unique_ptr<Desk> desk = std::make_unique<Desk>(&top);
    std::vector<Held> held;
};

} // namespace gui
