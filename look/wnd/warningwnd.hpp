// The banner over the main window that reports a search without a result. It needs no answer and fades away.
#pragma once
#include "look/banner.hpp"
#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/passive_wnd.hpp"
#include "ovlib/handles.hpp"
#include "ovlib/timer.hpp"

namespace look {

class WarningWnd : public ovlib::PassiveWnd {
public:
    explicit WarningWnd(ovlib::Wnd* parent, int control_id = 0);

    bool on_message(ovlib::WndMessage& message) override;

    using PassiveWnd::show;
    // Fades in over the parent, stays and fades out. Line ends are removed from the text. An empty text hides
    // the banner at once.
    void show(const std::wstring& text);
    void show(const wchar_t* text) { show(std::wstring(text)); }

    const BannerFade& fade() const { return fade_; }
    const std::wstring& shown_text() const { return text_; }
    // Draws the whole client area.
    void draw(const ovlib::BackBuffer& buffer) const;

private:
    void make_font_and_icon();
    void on_timer();
    bool on_paint();
    void hide();
    int width_of(const std::wstring& line) const;
    void draw_panel(
        const ovlib::BackBuffer& buffer, const BannerLayout& layout, const BannerColors& colors) const;

    BannerFade fade_;
    std::wstring text_;
    ovlib::Timer timer_;
    ovlib::GDI::Font font_;
    ovlib::UniqueIcon icon_;
};

} // namespace look
