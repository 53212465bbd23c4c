#include "ovlib/gui/font_dialog.hpp"
#include "ovlib/gui/wnd.hpp"

namespace ovlib {

FontDialog::FontDialog(const Wnd* owner)
    : owner_(owner)
{
    record_.lStructSize = sizeof record_;
    record_.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_EFFECTS;
    record_.nFontType = SCREEN_FONTTYPE;
}

// A font from a file may have a name without a terminator.
void FontDialog::set_font(const LOGFONTW& font)
{
    font_ = font;
    font_.lfFaceName[LF_FACESIZE - 1] = L'\0';
}

bool FontDialog::show()
{
    // A cancelled dialog may have changed its record, so it gets a copy.
    LOGFONTW chosen = font_;
    CHOOSEFONTW asked = record_;
    asked.hwndOwner = owner_ != nullptr ? owner_->hwnd() : nullptr;
    asked.lpLogFont = &chosen;
    if (!ChooseFontW(&asked))
        return false;
    font_ = chosen;
    return true;
}

} // namespace ovlib
