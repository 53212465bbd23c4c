// The commands that the mouse sends from the file pane.
#pragma once
#include "media/image_load.hpp"
#include "platform/geometry.hpp"
#include <optional>
#include <string>

namespace media {

// The command for a step of the wheel, which is positive upwards; nullopt for 0. With Ctrl the current entry
// moves in the list, otherwise another entry is selected.
std::optional<int> wheel_command(int step, bool with_ctrl);

enum class DoubleClick { nothing, press, open, search };
// The action of a double click. For an animation it is a second press, which undoes the first one's.
DoubleClick double_click(const LoadedEntry& loaded);

// From a press of the button to the drag that it may begin. The button itself is not checked: after a release
// outside the pane this stays armed, and the next move past the distance begins a drag, which the system ends
// at once.
class DragArm {
public:
    // Keeps the position of the first press.
    void press(platform::Point at);
    // Whether the pointer has moved at least `distance` in either direction.
    bool is_due(platform::Point at, platform::Size distance) const;
    void disarm() { *this = {}; }

    bool is_armed() const { return is_armed_; }
    platform::Point start() const { return start_; }

private:
    bool is_armed_ = false;
    platform::Point start_;
};

} // namespace media
