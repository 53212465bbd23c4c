// The program's check box: it has the theme's colours, and its text has another colour while it is checked.
#pragma once
#include "look/wnd/themed.hpp"
#include "ovlib/gui/check_box.hpp"

namespace look {

// Has the system's colours until the first apply_theme.
class MyCheckBox : public ovlib::CustomCheckBox, public Themed {
public:
    using CustomCheckBox::CustomCheckBox;

    void set_checked(bool checked) override;

    void apply_theme() override;
};

} // namespace look
