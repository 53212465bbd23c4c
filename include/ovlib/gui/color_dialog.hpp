// The system's colour dialog.
#pragma once
#include "platform/color.hpp"
#include <windows.h>
#include <array>
#include <commdlg.h>

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

    // False if no colour was chosen; color() keeps its value then. The user's own colours may have changed in
    // any case.
    bool show();

    // The initial colour, and the chosen one.
    Color color() const { return Color{ record_.rgbResult }; }
    void set_color(Color color);
    CustomColors& custom_colors() { return custom_colors_; }
    // CC_ flags; initially CC_RGBINIT and CC_FULLOPEN.
    DWORD options() const { return record_.Flags; }
    void set_options(DWORD flags) { record_.Flags = flags; }

private:
    const Wnd* owner_;
    CHOOSECOLORW record_{};
    CustomColors custom_colors_{};
};

} // namespace ovlib
