// How commands nest: whatever an action sends or raises, the views are refreshed once, when the outermost
// ends.
#pragma once
#include "app/refresh.hpp"
#include <exception>
#include <functional>

namespace app {

// Runs actions on the user interface thread. Nothing that an action or the refresh raises leaves `run`.
class CommandRun {
public:
    struct Hooks {
        std::function<void(RefreshMask& pending)> refresh; // serves the mask, which is live
        std::function<void(const std::exception_ptr&)> report;
        std::function<bool()> is_gone; // the window ended meanwhile: nothing is left to refresh
        std::function<RefreshMask()> overdue; // what must be refreshed, whatever the commands asked for
    };

    explicit CommandRun(Hooks hooks);

    void run(const std::function<void()>& action);
    // Asks for a refresh of these views when the outermost action ends. Bits that name no view are dropped:
    // nothing would ever serve them.
    void merge(RefreshMask mask) { pending_ |= mask & refresh::full; }

    int depth() const { return depth_; }
    RefreshMask pending() const { return pending_; }

private:
    bool guarded(const std::function<void()>& action);
    void refresh_views();

    Hooks hooks_;
    int depth_ = 0;
    RefreshMask pending_ = 0;
};

} // namespace app
