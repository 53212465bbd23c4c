// The settings window, which is modal.
#pragma once
#include "look/settings_view.hpp"
#include "look/wnd/image_button.hpp"
#include "look/wnd/my_check_box.hpp"
#include "look/wnd/tool_window.hpp"
#include "ovlib/gui/combobox.hpp"
#include <array>
#include <optional>
#include <string>
#include <utility>

namespace look {

// Changes nothing itself. A click on the mail address sends write_mail to the parent, with the address as a
// core::PassedObject.
class SettingWnd : public ToolWindow {
public:
    explicit SettingWnd(ovlib::Wnd* parent);

    // Shows the window with these values until the user closes it, with the parent disabled. The result is
    // empty unless OK was pressed. Without an address there is no link. Must not be called while the window
    // is open.
    std::optional<SettingsChoice> ask(const SettingsChoice& shown, const std::wstring& mail_address);

    bool on_message(ovlib::WndMessage& message) override;
    std::wstring class_info(WNDCLASSEXW& info) override;

protected:
    bool make_controls() override;
    void on_opening() override;
    bool on_enter() override;

private:
    // A check box and the value that it shows.
    using CheckRow = std::pair<MyCheckBox*, bool SettingsChoice::*>;
    std::array<CheckRow, 6> checks();

    bool on_command(int id, int code);
    bool on_paint();
    bool on_set_cursor(ovlib::WndMessage& message) const;
    bool on_press(platform::Point point);
    void draw(const ovlib::DC& dc) const;
    void fill();
    void place_link();
    SettingsChoice choice();

    MyCheckBox gif_check_;
    MyCheckBox search_check_;
    MyCheckBox wrap_check_;
    MyCheckBox ime_check_;
    MyCheckBox backup_check_;
    MyCheckBox cache_check_;
    ovlib::ComboBox sort_combo_;
    ovlib::ComboBox tab_combo_;
    ImageButton ok_button_;
    SettingsChoice shown_;
    std::wstring link_text_; // empty without a link
    platform::Rect link_; // in client coordinates
    std::optional<SettingsChoice> result_;
    std::optional<POINT> corner_; // where the user left the window
};

} // namespace look
