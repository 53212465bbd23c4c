// The system's buttons, and buttons drawn by their own class.
#pragma once
#include "controls/button_layout.hpp"
#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/owner_drawn.hpp"
#include "ovlib/gui/syscontrol.hpp"

namespace ovlib {

class Button : public SysControl {
public:
    std::wstring class_info(WNDCLASSEXW& info) override;

protected:
    Button(Wnd* parent, int control_id);
};

// Paints from its back buffer when the parent routes WM_DRAWITEM to it. Background, frame and focus reach the
// screen in one copy, and the text is drawn over them. It is subclassed when created, so that the system
// paints no background of its own before.
class CustomButton : public Button, public OwnerDrawn {
public:
    void on_created() override;
    void create_params(CREATESTRUCTW& params) override;
    bool on_message(WndMessage& message) override;

    virtual void set_bitmap(HBITMAP bitmap);
    // The item's rectangle must start at the origin. False if there is no memory for the back buffer.
    bool draw_item(const DRAWITEMSTRUCT& item) override;
    // These draw into the back buffer.
    virtual void draw_background() = 0;
    virtual void draw_focus() = 0;
    // These draw on the item's device context, which is clipped to the item and restored afterwards.
    virtual void draw_text() = 0;
    virtual void draw_frame() = 0;

    const BackBuffer& buffer() const { return buffer_; }

protected:
    CustomButton(Wnd* parent, int control_id);

    // The item that is being drawn; for the four drawing operations.
    const DRAWITEMSTRUCT& item() const { return *item_; }
    ButtonState state() const;
    platform::Rect area() const;
    // The control's text, queried once per paint.
    const std::wstring& label() const { return label_; }
    // The control's font, or the font of the device context if the control has none.
    HFONT label_font(const DC& dc) const;
    BackBuffer& canvas() { return buffer_; }

    // Repaints the control at once, if it exists.
    void repaint();

private:
    void paint();

    const DRAWITEMSTRUCT* item_ = nullptr;
    BackBuffer buffer_;
    std::wstring label_;
    HFONT font_ = nullptr;
};

// In the system's colours.
class CustomPushButton : public CustomButton {
public:
    CustomPushButton(Wnd* parent, int control_id);

    void draw_background() override;
    void draw_focus() override;
    void draw_text() override;
    void draw_frame() override;

protected:
    // Draws the label centred, as the state demands. An empty label draws nothing.
    void draw_label(Color color, Color shadow);
};

} // namespace ovlib
