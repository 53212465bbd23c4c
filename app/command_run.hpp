// What commands may rely on, and how they nest: whatever an action sends or raises, the views are refreshed
// once, when the outermost ends.
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
// What holds just now, of all that a command may need.
core::Needs met_needs(const WindowState& windows, const book::Book& book);

namespace refresh = core::refresh;

// Runs actions on the user interface thread. Nothing that an action or the refresh raises leaves `run`.
class CommandRun {
public:
    struct Hooks {
        std::function<void(core::RefreshMask& pending)> refresh; // serves the mask, which is live
        std::function<void(const std::exception_ptr&)> report;
        std::function<bool()> is_gone; // the window ended meanwhile: nothing is left to refresh
        // After each action and refresh: brings up to date what follows the Book, and says which views must
        // be refreshed whatever the commands asked for.
        std::function<core::RefreshMask()> settle;
    };

    explicit CommandRun(Hooks hooks);

    void run(const std::function<void()>& action);
    // Asks for a refresh of these views when the outermost action ends. Bits that name no view are dropped:
    // nothing would ever serve them.
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
