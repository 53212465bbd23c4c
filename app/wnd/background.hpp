// The background of the main window. Its gaps between the boxes move the divider; everywhere else it acts as
// the window's caption.
#pragma once
#include "app/wnd/page_desk.hpp"
#include "ovlib/gui/basewnd.hpp"
#include <functional>
#include <optional>

namespace app {

class Background {
public:
    // Both must outlive the background. `divider_moved` gets each new position of the divider.
    Background(ovlib::BaseWnd& window, BoxDesk& desk, std::function<void(int)> divider_moved);

    bool on_hit_test(ovlib::WndMessage& message);
    bool on_set_cursor(ovlib::WndMessage& message);
    bool on_caption_press(const ovlib::WndMessage& message);
    bool on_press(Point point);
    bool on_mouse_move(Point point);
    bool on_release(Point point);
    // Ends a drag where the mouse was last.
    bool on_drag_end();

private:
    void drag_to(Point point);
    void show_cursor(Point point) const;
    BoxGap gap_under(Point point) const { return gap_at(desk_.layout(), point); }

    ovlib::BaseWnd& window_;
    BoxDesk& desk_;
    std::function<void(int)> divider_moved_;
    BoxGap dragged_gap_ = BoxGap::none;
    // While the window is dragged by its background: the offset of the mouse from the window's corner.
    std::optional<Point> grip_;
};

} // namespace app
