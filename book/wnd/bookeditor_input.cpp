// Input to the page editor: commands, keys, the wheel and the strip.
#include "book/wnd/bookeditor.hpp"
#include "core/command_ids.hpp"
#include "core/refresh.hpp"
#include "ovlib/gui/system_geometry.hpp"

namespace book {

namespace command = core::command;
namespace place = page_editor_place;

namespace {

std::optional<PageKey> page_key(std::uint64_t key)
{
    switch (key) {
    case VK_LEFT:
        return PageKey::left;
    case VK_RIGHT:
        return PageKey::right;
    case VK_HOME:
        return PageKey::home;
    case VK_END:
        return PageKey::end;
    case VK_SPACE:
        return PageKey::space;
    case VK_DELETE:
        return PageKey::del;
    case 'C':
        return PageKey::c;
    case 'V':
        return PageKey::v;
    case 'X':
        return PageKey::x;
    default:
        return std::nullopt;
    }
}

} // namespace

bool BookEditor::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_PAINT:
        return on_paint();
    case WM_MEASUREITEM:
        return menu_pictures_.on_message(message);
    case WM_DRAWITEM:
        return on_draw_item(message);
    case WM_MOUSEWHEEL:
        return on_wheel(message);
    case WM_LBUTTONDOWN:
        return on_press(message);
    case WM_MOUSEMOVE:
        return on_mouse_move(message);
    case WM_LBUTTONUP:
        return on_release();
    case WM_CAPTURECHANGED:
        editor_.end_drag();
        return true;
    case WM_SHOWWINDOW:
        on_release(); // a closed window gets no release
        return EditingWindow::on_message(message);
    default:
        return EditingWindow::on_message(message);
    }
}

bool BookEditor::on_command(int id, int code)
{
    return code == 0 && run_command(id);
}

bool BookEditor::run_command(int id)
{
    switch (id) {
    case command::next_page:
    case command::previous_page:
    case command::first_page:
    case command::last_page:
        parent()->send_command(id, 0, 0);
        return true;
    case command::select_page:
        editor_.select_current_page(!page_check_.is_checked());
        selection_changed();
        return true;
    case command::select_range:
        editor_.select_range(!range_check_.is_checked());
        selection_changed();
        return true;
    case command::reset_range:
        editor_.reset_range();
        show_state();
        return true;
    case command::trace_selection:
        toggle_tracing();
        return true;
    case command::go_to_range_start:
        jump(RangeSide::first);
        return true;
    case command::go_to_range_end:
        jump(RangeSide::last);
        return true;
    default:
        return run_menu_command(id);
    }
}

bool BookEditor::run_menu_command(int id)
{
    switch (id) {
    case command::copy_pages:
        editor_.copy();
        return true;
    case command::cut_pages:
        editor_.cut();
        return true;
    case command::paste_pages_at_end:
        paste(PastePlace::at_end);
        return true;
    case command::paste_pages:
        paste(PastePlace::here);
        return true;
    case command::delete_pages:
        delete_selected();
        return true;
    case command::clear_selection:
        editor_.clear_selection();
        selection_changed();
        return true;
    default:
        return false;
    }
}

void BookEditor::selection_changed()
{
    drawn_revision_.reset();
    update(KeepRange::yes);
}

// The search now matches other pages, so the hits are renewed. The mask leaves this window out.
void BookEditor::toggle_tracing()
{
    trace_.toggle();
    parent()->send_command(command::request_refresh, 0, static_cast<std::int64_t>(core::View::page));
}

void BookEditor::jump(RangeSide side)
{
    host().show_position(editor_.jump(side));
}

void BookEditor::paste(PastePlace place)
{
    const std::optional<PasteRequest> request = editor_.paste_request(place);
    if (request && ask(paste_question(*request)) && is_still_open())
        finish(run_in_host([&](EditHost& session) { return session.paste_pages(editor_, *request); }));
}

void BookEditor::delete_selected()
{
    const std::optional<DeleteRequest> request = editor_.delete_request();
    if (request && ask(delete_question(*request)) && is_still_open())
        finish(run_in_host([&](EditHost& session) { return session.delete_pages(editor_, *request); }));
}

void BookEditor::finish(EditResult result)
{
    if (result == EditResult::failed && is_still_open())
        show_message(page_edit_failure, MB_OK | MB_ICONWARNING);
}

// A focused check box keeps the space bar, because no other key works on it. All other keys work wherever the
// focus is.
bool BookEditor::keeps_space() const
{
    HWND const focused = GetFocus();
    return focused == range_check_.hwnd() || focused == trace_.hwnd();
}

// A held key turns pages but does nothing else.
bool BookEditor::on_shortcut(std::uint64_t key, bool is_repeated)
{
    const std::optional<PageKey> known = page_key(key);
    if (!known || (known == PageKey::space && keeps_space()))
        return false;
    const int id = page_key_command(*known, GetKeyState(VK_CONTROL) < 0);
    if (id == 0)
        return false;
    const bool turns = id == command::next_page || id == command::previous_page;
    if (accepts_input() && (turns || !is_repeated) && may_run_page_command(id, page_menu_state(editor_)))
        run_command(id);
    return true;
}

bool BookEditor::on_wheel(const ovlib::WndMessage& message)
{
    const int step = ovlib::wheel_step(wheel_, message);
    if (step != 0 && accepts_input())
        parent()->send_command(step < 0 ? command::next_page : command::previous_page, 0, 0);
    return true;
}

bool BookEditor::on_press(const ovlib::WndMessage& message)
{
    const platform::Point at = ovlib::mouse_point(message);
    if (!place::strip.contains(at) || !accepts_input())
        return false;
    SetCapture(hwnd());
    host().show_position(editor_.begin_drag(at.x - place::strip.left, place::strip.width()));
    return true;
}

bool BookEditor::on_mouse_move(const ovlib::WndMessage& message)
{
    const platform::Point at = ovlib::mouse_point(message);
    host().show_position(editor_.drag_to(at.x - place::strip.left, place::strip.width()));
    return true;
}

// The drag ends before the capture is released, because that sends WM_CAPTURECHANGED at once.
bool BookEditor::on_release()
{
    if (!editor_.is_dragging())
        return false;
    editor_.end_drag();
    ReleaseCapture();
    return true;
}

} // namespace book
