// The check box of the program: in the theme's colours, its text in another one while it is on.
#pragma once
#include "look/wnd/themed.hpp"
#include "ovlib/gui/check_box.hpp"

namespace look {

// Shows the system's colours until the first apply_theme.
class MyCheckBox : public ovlib::CustomCheckBox, public Themed {
public:
    using CustomCheckBox::CustomCheckBox;

    void set_checked(bool checked) override;

    void apply_theme() override;
};

} // namespace look
