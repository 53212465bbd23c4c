// How the main window comes up and goes down.
#include "app/wnd/appwnd.hpp"
#include "app/wnd/file_pane.hpp"
#include "app/wnd/settings_file.hpp"
#include "core/data_root.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "ovlib/gui/dc.hpp"
#include <algorithm>

namespace app {

bool AppWnd::on_create(ovlib::WndMessage& message)
{
    try {
        if (create_view())
            open_last_book();
        else
            message.result = -1;
    } catch (...) {
        const FailureNotice notice = failure_notice(std::current_exception(), FailedAt::creation);
        show_message(notice.text, notice.style);
        message.result = -1;
    }
    return true;
}

bool AppWnd::create_view()
{
    core::set_current_directory(L"");
    load_settings();
    history_.load();
    {
        const ovlib::ClientDC dc{ *this };
        look::make_shared_fonts(dc.handle());
    }
    resize(main_window_size.width, main_window_size.height, false);
    center(nullptr, false);
    if (!create_boxes() || !controls_.create() || !file_pane_->create())
        return false;
    order_fields();
    if (!history_window_.create(L""))
        return false;
    banner_.create(L""); // without it a search that fails is silent
    lay_out();
    apply_theme(look::theme_standard);
    return true;
}

bool AppWnd::create_boxes()
{
    return std::ranges::all_of(boxes(), [](look::MyBox* box) { return box->create(L""); });
}

// A fatal failure inside a command and the command that closes the program send this message too, and boxes
// shown on the way out let further ones through: the first one counts.
bool AppWnd::on_close()
{
    if (is_busy() || is_closing_)
        return true;
    show(false);
    is_closing_ = true;
    on_release();
    end_background_work();
    save_at_close();
    store_settings();
    destroy_children();
    look::free_shared_fonts();
    return false;
}

bool AppWnd::end_background_work()
{
    constexpr std::uint32_t longest_wait = 10'000; // milliseconds
    const std::uint32_t limit = has_given_up_ ? 0 : longest_wait;
    has_given_up_ = !shortcut_thread_.stop_breaking_off_within(limit);
    return !has_given_up_;
}

void AppWnd::save_at_close()
{
    // The order of pages is rebuilt before a save and may fail; it is not tried twice, so the second round
    // writes.
    for (int round = 0; round < 2; ++round) {
        try {
            save_book(SaveCode::always);
            return;
        } catch (...) {
            const FailureNotice notice = failure_notice(std::current_exception(), FailedAt::command);
            show_message(notice.text, notice.style);
        }
    }
}

} // namespace app
