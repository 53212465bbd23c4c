// The slider that moves through the pages of a Book.
#pragma once
#include "look/page_slider.hpp"
#include "look/wnd/themed.hpp"
#include "ovlib/gui/slider.hpp"

namespace look {

// The owner sets its font, calls apply_theme once for the current theme, and calls show_page whenever the
// pages or the position changed. For WM_HSCROLL from this slider the owner calls page_move with `value`, and
// refuse_move if it does not turn the page.
class MySlider : public ovlib::HorzSlider, public Themed {
public:
    MySlider(ovlib::Wnd* parent, int control_id);

    // Leaves the thumb where the wider track of the base class put it, until the next update_thumb.
    void layout() override;
    void draw_label() override;

    // Takes the palette's colours and redraws.
    void apply_theme() override;
    void show_page(std::size_t page_count, std::uint64_t position);
};

} // namespace look
