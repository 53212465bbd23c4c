// What the mouse asks of the main window when it is over the file pane.
#pragma once
#include "media/image_load.hpp"
#include "platform/geometry.hpp"
#include <optional>
#include <string>

namespace media {

// The command of a step of the wheel, above 0 for one up; none for 0. With Ctrl the entry moves in its list,
// without it another one is chosen.
std::optional<int> wheel_command(int step, bool with_ctrl);

enum class DoubleClick { nothing, press, open, search };
// An animation takes it as one more press, which undoes the first one's.
DoubleClick double_click(const LoadedEntry& loaded);

// From a press to the drag that it may begin. Nothing here asks for the button: a press that was let go stays
// armed, and the next move beyond the distance begins a drag that ends at once.
class DragArm {
public:
    // Keeps the place of the first press.
    void press(platform::Point at);
    // Whether a move has gone far enough in either direction.
    bool is_due(platform::Point at, platform::Size distance) const;
    void disarm() { *this = {}; }

    bool is_armed() const { return is_armed_; }
    platform::Point start() const { return start_; }

private:
    bool is_armed_ = false;
    platform::Point start_;
};

} // namespace media
