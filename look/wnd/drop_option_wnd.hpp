// The question about dropped files: into the current page, or one page for each.
#pragma once
#include "look/wnd/image_button.hpp"
#include "look/wnd/tool_window.hpp"

namespace look {

// Modal. The keys 1 and 2 press the buttons.
class DropOptionWnd : public ToolWindow {
public:
    explicit DropOptionWnd(ovlib::Wnd* parent);

    // Shows the window centred on a point of the screen until the user chooses or closes it. Returns the
    // command of the chosen button, or 0.
    int ask(platform::Point center);

    bool on_message(ovlib::WndMessage& message) override;
    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;

    int choice = 0; // the control that was pressed

protected:
    bool make_controls() override;
    void lay_out(platform::Size client) override;
    void on_opening() override;
    bool on_shortcut(std::uint64_t key, bool is_repeated) override;

private:
    void make_button(ImageButton& button, const wchar_t* picture);
    bool on_command(int id, int code);

    ImageButton files_button_;
    ImageButton pages_button_;
    platform::Point center_; // on the screen
};

} // namespace look
