// A custom-drawn slider, and the horizontal one.
#pragma once
#include "controls/slider_model.hpp"
#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/childwnd.hpp"

namespace ovlib {

// Set colours, range, value and border as fields, then call update_thumb, redraw and repaint to show them.
// The parent gets every move as WM_HSCROLL with the slider's handle in lparam, and should read `value`: the
// position in wparam is complete only for a parent that reads more than 16 bits of it.
class Slider : public ChildWnd, public SliderModel {
public:
    void create_params(CREATESTRUCTW& params) override;
    bool on_message(WndMessage& message) override;
    // The control stores the font itself and borrows it.
    void set_font(HFONT font) override;
    HFONT font() const override;

    // Computes the rectangles of track and thumb.
    virtual void layout() = 0;
    virtual void update_thumb() = 0;
    virtual int value_to_x() const = 0;
    virtual int x_to_value(POINT point) const = 0;
    virtual void draw_border();
    virtual void draw_track_frame();
    virtual void draw_track() = 0;
    virtual void draw_thumb() = 0;
    virtual void draw_label();
    // Draws everything into the buffer.
    virtual void redraw();
    // `code` is one of the system's scroll codes.
    virtual void notify(int code, int pos);

    // Copies the buffer to the screen at once.
    void repaint();
    // For a parent that refuses a move in its notification: restores the value and ends a drag.
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
