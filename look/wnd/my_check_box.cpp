#include "look/wnd/my_check_box.hpp"
#include "look/button_look.hpp"

namespace look {

// The colour is set first, so that one repaint shows both changes.
void MyCheckBox::set_checked(bool checked)
{
    colors_.text = check_text_color(palette(), checked);
    CustomCheckBox::set_checked(checked);
}

void MyCheckBox::apply_theme()
{
    colors_ = check_box_colors(palette(), is_checked());
    if (hwnd())
        InvalidateRect(hwnd(), nullptr, FALSE);
}

} // namespace look
