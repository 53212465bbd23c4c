// The status bar of the main window.
#pragma once
#include "look/status_parts.hpp"
#include "ovlib/gui/owner_drawn.hpp"
#include "ovlib/gui/statusbar.hpp"
#include <array>

namespace look {

// The owner sends WM_SIZE when its own size changes, routes every WM_DRAWITEM here, and calls show_changes
// whenever the numbers may have changed.
class MyStatusBar : public ovlib::StatusBar, public ovlib::OwnerDrawn {
public:
    // The Book must outlive the bar.
    MyStatusBar(ovlib::Wnd* parent, int control_id, const book::Book* book);

    bool create(const std::wstring& title) override;
    void create_params(CREATESTRUCTW& params) override;
    // A part without known content gets its background only.
    void draw_part(int index, HDC dc, const RECT& rect) override;

    // Repaints all parts.
    void rewrite_parts();
    // Repaints the changed parts in one paint. Rewriting the texts would repaint the bar once for each part.
    void show_changes();
    // False for an item of another control.
    bool draw_item(const DRAWITEMSTRUCT& item) override;

private:
    StatusPart part_of_book(int index) const;
    bool take_change(int index);
    void invalidate_part(int index) const;

    const book::Book* book_;
    std::array<StatusPart, status_part_count> shown_;
};

} // namespace look
