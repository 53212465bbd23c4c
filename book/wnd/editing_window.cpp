#include "book/wnd/editing_window.hpp"
#include "book/replace_view.hpp"
#include "core/command_ids.hpp"
#include "core/refresh.hpp"

namespace book {

namespace {

look::ToolFrame frame_of(platform::Size client)
{
    return { client, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN, 0 };
}

} // namespace

EditingWindow::EditingWindow(ovlib::Wnd* parent, int control_id, platform::Size client, EditHost& host)
    : ToolWindow(parent, control_id, frame_of(client))
    , host_(host)
{
}

bool EditingWindow::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_CLOSE:
        return on_close();
    case WM_COMMAND:
        return !accepts_input() || on_any_command(LOWORD(message.wparam), HIWORD(message.wparam));
    case WM_CONTEXTMENU:
        return on_context_menu(message);
    default:
        return ToolWindow::on_message(message);
    }
}

bool EditingWindow::on_any_command(int id, int code)
{
    if (code != 0 || (id != core::command::restore_book && id != core::command::close_window))
        return on_command(id, code);
    if (id == core::command::restore_book)
        ask_to_restore();
    else
        send(WM_CLOSE, 0, 0);
    return true;
}

bool EditingWindow::on_context_menu(const ovlib::WndMessage& message)
{
    const std::optional<POINT> at = menu_point(message);
    if (at && accepts_input())
        show_menu(*at);
    return at.has_value();
}

void EditingWindow::on_opening()
{
    if (!was_placed_)
        center(parent(), false);
    was_placed_ = true;
}

bool EditingWindow::ask(const std::wstring& question)
{
    return show_message(question, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

void EditingWindow::ask_to_restore()
{
    if (ask(restore_question) && is_still_open())
        load_again();
}

bool EditingWindow::on_close()
{
    if (!is_open() || !accepts_input())
        return true;
    if (!has_changed()) {
        close(EditEnd::unchanged);
        return true;
    }
    const int answer = show_message(close_question(), MB_YESNOCANCEL | MB_ICONQUESTION);
    if (!is_still_open() || (answer != IDYES && answer != IDNO))
        return true;
    close(answer == IDYES ? EditEnd::save : EditEnd::restore);
    return true;
}

// The window is closed first, because the session writes nothing while it is open. If the changes could not
// be discarded, they are still in memory and someone has to decide about them, so the window opens again.
void EditingWindow::close(EditEnd end)
{
    show(false);
    if (host_.end_editing(end)) {
        clear_changed();
        return;
    }
    if (!is_window())
        return;
    show(true);
    parent()->send_command(core::command::request_refresh, 0, core::refresh::controls_and_enable);
}

} // namespace book
