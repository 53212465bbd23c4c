// The background of the main window: its gaps between the boxes move their boundary, and everywhere else it
// is the window's caption.
#pragma once
#include "app/wnd/page_desk.hpp"
#include "ovlib/gui/basewnd.hpp"
#include <functional>
#include <optional>

namespace app {

class Background {
public:
    // Both outlive the background. `divider_moved` gets each new place of the boundary.
    Background(ovlib::BaseWnd& window, BoxDesk& desk, std::function<void(int)> divider_moved);

    bool on_hit_test(ovlib::WndMessage& message);
    bool on_set_cursor(ovlib::WndMessage& message);
    bool on_caption_press(const ovlib::WndMessage& message);
    bool on_press(Point point);
    bool on_mouse_move(Point point);
    bool on_release();

private:
    void show_cursor(Point point) const;
    BoxGap gap_under(Point point) const { return gap_at(desk_.layout(), point); }

    ovlib::BaseWnd& window_;
    BoxDesk& desk_;
    std::function<void(int)> divider_moved_;
    BoxGap dragged_gap_ = BoxGap::none;
    // Where the mouse holds the window by its background, from the window's corner.
    std::optional<Point> grip_;
};

} // namespace app
