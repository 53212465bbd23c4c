#include "ovlib/gui/color_dialog.hpp"
#include "ovlib/gui/wnd.hpp"

namespace ovlib {

ColorDialog::ColorDialog(const Wnd* owner)
    : owner_(owner)
{
    record_.lStructSize = sizeof record_;
    record_.Flags = CC_RGBINIT | CC_FULLOPEN;
    record_.lpCustColors = custom_colors_.data();
}

// The high byte of a COLORREF would select a palette entry instead of a colour.
void ColorDialog::set_color(Color color)
{
    record_.rgbResult = color.value & 0xFFFFFF;
}

bool ColorDialog::show()
{
    CHOOSECOLORW asked = record_;
    asked.hwndOwner = owner_ != nullptr ? owner_->hwnd() : nullptr;
    if (!ChooseColorW(&asked))
        return false;
    record_.rgbResult = asked.rgbResult;
    return true;
}

} // namespace ovlib
