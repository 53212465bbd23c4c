// The conditions on which commands rely, and how commands nest: whatever an action sends or throws, the views
// are refreshed once, when the outermost action ends.
#pragma once
#include "book/book.hpp"
#include "core/command_rules.hpp"
#include "core/refresh.hpp"
#include <exception>
#include <functional>

namespace app {

struct WindowState {
    bool accepts_input = true;
    bool is_busy = false; // the page editor or the replace window is open
};
// All conditions of core::Needs that hold now.
core::Needs met_needs(const WindowState& windows, const book::Book& book);

namespace refresh = core::refresh;

// Runs actions on the user interface thread. No exception of an action or of the refresh leaves `run`.
class CommandRun {
public:
    struct Hooks {
        std::function<void(core::RefreshMask& pending)> refresh; // serves the mask and changes it
        std::function<void(const std::exception_ptr&)> report;
        std::function<bool()> is_gone; // the window was destroyed, so there is nothing to refresh
        // Called after each action and refresh. Updates what depends on the Book and returns the views that
        // must be refreshed even if no command requested them.
        std::function<core::RefreshMask()> settle;
    };

    explicit CommandRun(Hooks hooks);

    void run(const std::function<void()>& action);
    // Requests a refresh of these views when the outermost action ends. Bits that name no view are dropped,
    // because no view would ever clear them.
    void merge(core::RefreshMask mask) { pending_ |= mask & refresh::full; }

    int depth() const { return depth_; }
    core::RefreshMask pending() const { return pending_; }

private:
    bool guarded(const std::function<void()>& action);
    void refresh_views();

    Hooks hooks_;
    int depth_ = 0;
    core::RefreshMask pending_ = 0;
};

} // namespace app
