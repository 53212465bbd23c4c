// The main window: its frame, the messages of its children, painting, creation and closing.
//
// Every action enters as a number through WM_COMMAND and passes on_message, on_command, the rule of the
// command and its handler (main_commands.cpp). A handler calls an operation of the session or of a window.
// The rule names the views to refresh; they are refreshed once, when the outermost command ends. Boxes of
// this window dispatch messages, so the page must be looked up again after each of them.
#pragma once
#include "app/wnd/main_parts.hpp"
#include "app/wnd/typing_focus.hpp"
#include "controls/wheel_steps.hpp"
#include "ovlib/gui/basewnd.hpp"
#include "ovlib/gui/gdi_object.hpp"
#include <string>

namespace app {

class AppWnd : public ovlib::BaseWnd {
public:
    AppWnd();
    // Stops what still runs in the file pane, even if the window was never created completely.
    ~AppWnd() override;

    bool on_message(ovlib::WndMessage& message) override;
    void dispatch(MSG& message) override;
    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;

    // Returns the number of the chosen button.
    int show_message(const std::wstring& text, BoxStyle style)
    {
        return parts_.talk.show_message(text, style);
    }
    bool is_busy() const { return parts_.talk.is_busy(); }
    bool is_accepting_input() const { return parts_.talk.is_accepting_input(); }
    const book::Book& book() const { return parts_.session.book(); }
    // See LinkMaker.
    bool end_background_work() { return parts_.links.end_background_work(); }
    // `busy` must live as long as this window.
    void add_busy_window(BusyWindow& busy) { parts_.talk.add_busy_window(busy); }

private:
    // Creation, closing and the frame.
    bool on_create(ovlib::WndMessage& message);
    bool create_view();
    bool on_close();
    bool on_end_session(const ovlib::WndMessage& message);
    bool on_focus();

    // Commands and notifications of the controls.
    bool on_page_key(const MSG& message);
    bool on_command(const ovlib::WndMessage& message);
    void run_command(int id, int code, std::int64_t lparam);
    bool is_focused_button(std::int64_t handle) const;
    bool on_wheel(const ovlib::WndMessage& message);
    bool on_slider(const ovlib::WndMessage& message);
    bool on_caption_release(const ovlib::WndMessage& message);

    // Painting.
    bool on_erase_background(ovlib::WndMessage& message);
    bool on_edit_color(ovlib::WndMessage& message);
    bool on_static_color(ovlib::WndMessage& message);
    bool on_list_color(ovlib::WndMessage& message);
    bool on_paint();
    // Draws what is between the controls, in client coordinates.
    void draw(const ovlib::DC& dc) const;
    bool on_draw_item(ovlib::WndMessage& message);

    MainParts parts_;
    TypingFocus typing_focus_;
    ovlib::WheelSteps wheel_;
    ovlib::GDI::Brush edit_brush_; // for the search box and the drop-down list of the file combo
    HACCEL accelerators_ = nullptr;
    bool is_closing_ = false;
};

} // namespace app
