#include "app/command_run.hpp"
#include <utility>

namespace app {

CommandRun::CommandRun(Hooks hooks)
    : hooks_(std::move(hooks))
{
}

void CommandRun::run(const std::function<void()>& action)
{
    ++depth_;
    guarded(action);
    if (depth_ == 1 && pending_ != 0)
        refresh_views();
    --depth_;
}

// At depth 1, so that a command which a view sends while it is refreshed joins this refresh: filling a box
// sends some. What it adds behind the order's back gets a further round; views that never settle are left
// alone.
void CommandRun::refresh_views()
{
    constexpr int round_limit = 4;
    for (int round = 0; pending_ != 0 && round < round_limit; ++round) {
        if (hooks_.is_gone() || !guarded([this] { hooks_.refresh(pending_); }))
            break;
        pending_ &= ~static_cast<RefreshMask>(View::history_enabled);
    }
    pending_ = 0;
}

bool CommandRun::guarded(const std::function<void()>& action)
{
    try {
        action();
        return true;
    } catch (...) {
        hooks_.report(std::current_exception());
        return false;
    }
}

} // namespace app
