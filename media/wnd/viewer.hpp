// A window of its own that shows the pane's file larger: fitted into the window, or at a zoom with scroll
// bars and dragging. It shares the pane's loader. Of an animation it shows the frame that is current when it
// draws.
#pragma once
#include "book/book.hpp"
#include "controls/wheel_steps.hpp"
#include "controls/window_place.hpp"
#include "look/wnd/themed.hpp"
#include "media/pane_input.hpp"
#include "media/path_answers.hpp"
#include "media/viewer_model.hpp"
#include "media/wnd/image_canvas.hpp"
#include "media/wnd/viewer_bars.hpp"
#include "media/wnd/zoom_buttons.hpp"
#include "ovlib/gui/menu_pictures.hpp"
#include "ovlib/gui/subwnd.hpp"
#include <string>

namespace media {

// The mode and the rectangle are in the settings.
class Viewer : public ovlib::SubWnd, public look::Themed {
public:
    // All must outlive it. `parent` is the pane, whose parent is the main window. Null for `menu_pictures`
    // shows a menu without pictures.
    Viewer(ovlib::Wnd* parent, book::Book* book, ImageLoader& loader, PathAnswers& paths,
        const ovlib::MenuPictures* menu_pictures);

    bool on_message(ovlib::WndMessage& message) override;
    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;
    // The caller repaints.
    void apply_theme() override { is_stale_ = true; }

    // Shows the loaded file in front, on a visible screen.
    void open();
    // Opened and not closed since, even if the system hides it with its minimised owner.
    bool is_open() const { return state_.is_open(); }
    // To be called while it is open, after a load: shows the file from the start, at 100 %.
    void take_new_file();
    // Draws the same view again, with the current interpolation.
    void draw_anew();

    const ImageCanvas& canvas() const { return canvas_; }
    std::int32_t zoom() const { return zoom_; }

private:
    void on_create();
    void close();
    bool on_paint();
    bool on_size(std::uint64_t kind);
    bool on_draw_item(ovlib::WndMessage& message);
    void store_place() const;
    void place();

    bool on_command(int id, int code);
    void send_file_command(int id);
    bool on_key(std::uint64_t key);
    bool on_wheel(const ovlib::WndMessage& message);
    bool on_scroll(int bar, const ovlib::WndMessage& message);
    bool on_frame_message(ovlib::WndMessage& message);
    bool on_menu_key(const ovlib::WndMessage& message);
    void show_menu(platform::Point at);

    bool on_mouse(ovlib::WndMessage& message);
    bool on_mouse_move(platform::Point at, bool is_button_down);
    void on_double_click(platform::Point at);
    void begin_drag(platform::Point at);
    // A pressed button has the focus. It would take the keys with it when it is hidden or disabled.
    void take_focus_from_buttons();
    void end_drag();
    void show_buttons(platform::Point mouse);
    void track_leaving() const;

    ovlib::Wnd& main_window() const { return *parent()->parent(); }
    bool is_at_actual_size() const;
    bool is_picture_at(platform::Point screen) const;
    void zoom_by(ZoomStep step);
    void set_view(std::int32_t mode, std::int32_t zoom);
    // Lays the picture out, and shows the result at once.
    void refresh(KeepView keep);
    void lay_out(KeepView keep);
    // Has the picture drawn at the next paint.
    void invalidate();
    void show_title();

    book::Book* book_;
    ImageLoader& loader_;
    PathAnswers& paths_;
    const ovlib::MenuPictures* menu_pictures_;
    ImageCanvas canvas_;
    ZoomButtons buttons_;
    ViewerBars bars_;
    ovlib::WheelSteps zoom_wheel_;
    ovlib::OpenState state_;
    std::wstring name_; // of the loaded file; its path is queried only once per load
    platform::Point last_mouse_;
    DragArm press_; // where the picture was pressed
    std::int32_t zoom_ = actual_zoom;
    bool is_dragging_ = false;
    bool was_moved_ = false; // in the last drag
    bool is_ready_ = false; // something may be painted
    bool is_stale_ = true; // the canvas must be drawn before it is painted
    bool is_laying_out_ = false; // changes of the bars send WM_SIZE
    bool was_placed_ = false;
};

} // namespace media
