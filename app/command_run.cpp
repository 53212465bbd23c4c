#include "app/command_run.hpp"
#include <utility>

namespace app {

core::Needs met_needs(const WindowState& windows, const book::Book& book)
{
    using enum core::Needs;
    core::Needs met = nothing;
    const auto add = [&met](bool holds, core::Needs need) { met = holds ? met | need : met; };
    add(windows.accepts_input, input);
    add(!windows.is_busy, free_book);
    add(!book.pages.empty(), pages);
    const book::Page* current = book.current_page();
    if (!current)
        return met;
    const std::wstring* selected = book::selected_entry(*current);
    add(true, page);
    add(selected && !selected->empty(), entry);
    add(!current->reference_folder.empty(), folder);
    return met;
}

CommandRun::CommandRun(Hooks hooks)
    : hooks_(std::move(hooks))
{
}

void CommandRun::run(const std::function<void()>& action)
{
    ++depth_;
    guarded(action);
    if (depth_ == 1) {
        guarded([this] { merge(hooks_.settle()); });
        if (pending_ != 0)
            refresh_views();
    }
    --depth_;
}

// The depth is still 1 here, so a command that a view sends during its own refresh joins this refresh.
// Filling a box, for example, sends some.
//
// A view may request views that come earlier in the order of service; they get another round. A chain of such
// requests is longest if each view requests only the one before it, so the number of views limits the rounds.
// Views that are still pending after that would never come to rest and are dropped.
void CommandRun::refresh_views()
{
    constexpr std::size_t round_limit = core::service_order.size();
    // serve_refresh does not clear this bit, so it is cleared here after the round that served it.
    constexpr auto standing = static_cast<core::RefreshMask>(core::View::history_enabled);
    for (std::size_t round = 0; pending_ != 0 && round < round_limit; ++round) {
        const core::RefreshMask served = pending_ & standing;
        if (hooks_.is_gone() || !guarded([this] { hooks_.refresh(pending_); }))
            break;
        pending_ &= ~served;
    }
    pending_ = 0;
    // A view may have changed the page again. Overdue views then wait for the next command.
    guarded([this] { hooks_.settle(); });
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
