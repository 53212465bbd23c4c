// A drawn check box. A click only notifies the parent; the owner decides whether the box is checked.
#pragma once
#include "controls/check_box_layout.hpp"
#include "ovlib/gui/button.hpp"

namespace ovlib {

// Has the system's colours at first.
class CustomCheckBox : public CustomButton {
public:
    CustomCheckBox(Wnd* parent, int control_id);

    void create_params(CREATESTRUCTW& params) override;
    void draw_background() override;
    void draw_focus() override;
    void draw_text() override;
    void draw_frame() override;

    virtual void draw_box();
    // Makes the control as wide as box and text need, and at least as high as the text.
    virtual void fit_to_text();
    // Repaints only if the value changes.
    virtual void set_checked(bool checked);
    virtual void toggle();
    virtual bool is_checked() const;

    const CheckBoxColors& colors() const { return colors_; }
    void set_colors(const CheckBoxColors& colors);

protected:
    CheckBoxColors colors_;

private:
    void draw_tick(const platform::Rect& box);
    // Measures the label on the item's device context.
    void place_text();
    CheckBoxColors shown_colors() const;

    std::uint8_t checked_ = 0;
    platform::Rect text_rect_;
};

} // namespace ovlib
