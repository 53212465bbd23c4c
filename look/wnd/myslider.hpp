// The slider that moves through the pages of a Book.
#pragma once
#include "look/page_slider.hpp"
#include "look/wnd/themed.hpp"
#include "ovlib/gui/slider.hpp"

namespace look {

// The owner gives it its font, calls apply_theme once, for the theme that holds already, and show_page
// whenever pages or position changed. It answers WM_HSCROLL from this slider's handle by page_move with
// `value`, and a turn that it refuses by refuse_move.
class MySlider : public ovlib::HorzSlider, public Themed {
public:
    MySlider(ovlib::Wnd* parent, int control_id);

    // Leaves the thumb on the wider track of the base until the next update_thumb.
    void layout() override;
    void draw_label() override;

    // Takes the palette's colours and draws anew.
    void apply_theme() override;
    void show_page(std::size_t page_count, std::uint64_t position);
};

} // namespace look
