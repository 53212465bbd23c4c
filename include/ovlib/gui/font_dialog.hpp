// The system's dialog for a font.
#pragma once
#include <windows.h>

#include <commdlg.h>

namespace ovlib {

class Wnd;

class FontDialog {
public:
    explicit FontDialog(const Wnd* owner);
    FontDialog(const FontDialog&) = delete;
    FontDialog& operator=(const FontDialog&) = delete;
    virtual ~FontDialog() = default;

    // False when no font was chosen; font() is then what it was.
    bool show();

    // Where the dialog starts, and what was chosen.
    const LOGFONTW& font() const { return font_; }
    void set_font(const LOGFONTW& font);
    // CF_ flags; at first CF_SCREENFONTS, CF_INITTOLOGFONTSTRUCT and CF_EFFECTS.
    DWORD options() const { return record_.Flags; }
    void set_options(DWORD flags) { record_.Flags = flags; }

private:
    const Wnd* owner_;
    CHOOSEFONTW record_{};
    LOGFONTW font_{};
};

} // namespace ovlib
