// A slider drawn by hand, and the horizontal one.
#pragma once
#include "controls/slider_model.hpp"
#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/childwnd.hpp"

namespace ovlib {

// Set colours, range, value and border as fields; update_thumb, redraw and repaint show them. The parent is
// told of every move by WM_HSCROLL with the slider's handle in lparam, and reads `value`: the position in
// wparam has room for all of it only where the parent looks beyond 16 bits.
class Slider : public ChildWnd, public SliderModel {
public:
    void create_params(CREATESTRUCTW& params) override;
    bool on_message(WndMessage& message) override;
    // The control's own, borrowed; the system is not asked.
    void set_font(HFONT font) override;
    HFONT font() const override;

    // Places the track, then the thumb.
    virtual void layout() = 0;
    virtual void update_thumb() = 0;
    virtual int value_to_x() const = 0;
    virtual int x_to_value(POINT point) const = 0;
    virtual void draw_border();
    virtual void draw_track_frame();
    virtual void draw_track() = 0;
    virtual void draw_thumb() = 0;
    virtual void draw_label();
    // All of it into the buffer.
    virtual void redraw();
    // `code` is one of the system's scroll codes.
    virtual void notify(int code, int pos);

    // The buffer to the screen, now.
    void repaint();
    // For a parent that refuses a move while it is told of it: the value goes back, and no drag goes on.
    void refuse_move(std::int32_t old_value);

    BackBuffer buffer;

protected:
    Slider(Wnd* parent, int control_id);

private:
    void on_size();
    void on_destroy();
    void on_paint();
    void on_press(POINT point);
    void on_drag(POINT point);
    void on_release();
    void let_mouse_go();
    void show_value();
    void tell(const SliderNotice& notice);

    GDI::Font font_;
};

class HorzSlider : public Slider {
public:
    HorzSlider(Wnd* parent, int control_id);

    void layout() override;
    void update_thumb() override;
    int value_to_x() const override;
    int x_to_value(POINT point) const override;
    void draw_track() override;
    void draw_thumb() override;
};

} // namespace ovlib
