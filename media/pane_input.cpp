#include "media/pane_input.hpp"
#include "core/command_ids.hpp"
#include <cstdlib>

namespace media {

namespace command = core::command;

std::optional<int> wheel_command(int step, bool with_ctrl)
{
    if (step == 0)
        return std::nullopt;
    if (with_ctrl)
        return step > 0 ? core::command::move_file_up : core::command::move_file_down;
    return step > 0 ? core::command::previous_file : core::command::next_file;
}

DoubleClick double_click(const LoadedEntry& loaded)
{
    switch (loaded.state) {
    case LoaderState::animation:
        return DoubleClick::press;
    case LoaderState::picture:
    case LoaderState::thumbnail:
        return DoubleClick::open;
    default:
        return loaded.path.empty() ? DoubleClick::nothing : DoubleClick::search;
    }
}

void DragArm::press(platform::Point at)
{
    if (is_armed_)
        return;
    is_armed_ = true;
    start_ = at;
}

bool DragArm::is_due(platform::Point at, platform::Size distance) const
{
    return is_armed_
        && (std::abs(at.x - start_.x) >= distance.width || std::abs(at.y - start_.y) >= distance.height);
}

} // namespace media
