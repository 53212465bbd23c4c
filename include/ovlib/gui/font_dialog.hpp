// The system's font dialog.
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

    // False if no font was chosen; font() keeps its value then.
    bool show();

    // The initial font, and the chosen one.
    const LOGFONTW& font() const { return font_; }
    void set_font(const LOGFONTW& font);
    // CF_ flags; initially CF_SCREENFONTS, CF_INITTOLOGFONTSTRUCT and CF_EFFECTS.
    DWORD options() const { return record_.Flags; }
    void set_options(DWORD flags) { record_.Flags = flags; }

private:
    const Wnd* owner_;
    CHOOSEFONTW record_{};
    LOGFONTW font_{};
};

} // namespace ovlib
