// The system's dialog for a colour.
#pragma once
#include <array>
#include <windows.h>

#include <commdlg.h>

#include "platform/color.hpp"

namespace ovlib {

class Wnd;

class ColorDialog {
public:
    // The user's own colours, as COLORREF, in the order of the dialog's boxes.
    using CustomColors = std::array<COLORREF, 16>;

    explicit ColorDialog(const Wnd* owner);
    ColorDialog(const ColorDialog&) = delete;
    ColorDialog& operator=(const ColorDialog&) = delete;
    virtual ~ColorDialog() = default;

    // False when no colour was chosen; color() is then what it was. The user's own colours may have changed
    // all the same.
    bool show();

    // Where the dialog starts, and what was chosen.
    Color color() const { return Color{ record_.rgbResult }; }
    void set_color(Color color);
    CustomColors& custom_colors() { return custom_colors_; }
    // CC_ flags; at first CC_RGBINIT and CC_FULLOPEN.
    DWORD options() const { return record_.Flags; }
    void set_options(DWORD flags) { record_.Flags = flags; }

private:
    const Wnd* owner_;
    CHOOSECOLORW record_{};
    CustomColors custom_colors_{};
};

} // namespace ovlib
