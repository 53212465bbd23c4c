// A small window with a text that follows the mouse and never takes the focus.
#pragma once
#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/passive_wnd.hpp"

namespace ovlib {

struct TipColors {
    Color text;
    Color back;
    Color frame;

    friend bool operator==(const TipColors&, const TipColors&) = default;
};

class TipWnd : public PassiveWnd {
public:
    explicit TipWnd(Wnd* parent, int control_id = 0);

    bool on_message(WndMessage& message) override;

    using PassiveWnd::show;
    // Shows `text`, which may have several lines, with the upper left corner at `position` on the screen. An
    // empty text hides the tip. The font is set by set_font and borrowed.
    void show(const std::wstring& text, POINT position);

    // Used by the next show.
    void set_colors(const TipColors& colors) { colors_ = colors; }
    // A tip with a fixed place may extend beyond the right edge of its parent's window.
    void set_fixed_place(bool fixed) { fixed_place_ = fixed; }

    // The text on the screen; empty while the tip is hidden.
    const std::wstring& shown_text() const { return text_; }
    const BackBuffer& buffer() const { return buffer_; }

private:
    void hide();
    void draw();
    bool on_paint();
    SIZE measure() const;

    std::wstring text_;
    GDI::Font font_;
    TipColors colors_{ rgb(0, 0, 0), rgb(255, 255, 255), rgb(0, 0, 0) };
    BackBuffer buffer_;
    bool fixed_place_ = false;
};

} // namespace ovlib
