// The viewer's commands, its menu, the keys and the mouse.
#include "core/command_ids.hpp"
#include "core/data_root.hpp"
#include "core/settings.hpp"
#include "media/wnd/viewer.hpp"
#include "ovlib/gui/menu.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include <utility>

namespace media {

namespace command = core::command;
using platform::Point;

namespace {

ViewerMenuState menu_state(const book::Book& book, PathAnswers& paths)
{
    ViewerMenuState state;
    state.view_mode = core::settings().view_mode;
    const book::Page* page = book.current_page();
    if (!page)
        return state;
    state.entry_count = page->files.size();
    state.selected = page->current_file;
    if (const std::wstring* entry = book::selected_entry(*page)) {
        core::set_current_directory(L"");
        state.is_entry_file = paths.kind_of(*entry) == platform::PathKind::regular_file;
    }
    return state;
}

} // namespace

bool Viewer::on_command(int id, int code)
{
    switch (id) {
    case command::duplicate_file:
    case command::first_file:
    case command::last_file:
        send_file_command(id);
        return true;
    case viewer_command::close_viewer:
        send(WM_CLOSE, 0, 0);
        return true;
    case mode_actual_size:
        if (!is_at_actual_size())
            set_view(mode_actual_size, actual_zoom);
        return true;
    case mode_fit:
        if (core::settings().view_mode != mode_fit)
            set_view(mode_fit, zoom_);
        return true;
    default:
        break;
    }
    const auto step = zoom_step_of(id);
    if (!step || code != BN_CLICKED || !is_at_actual_size())
        return false;
    zoom_by(*step);
    return true;
}

// The dialog of the command belongs to the main window, which has the focus after it.
void Viewer::send_file_command(int id)
{
    const ovlib::WndWatch alive{ this };
    const bool was_active = GetActiveWindow() == hwnd();
    main_window().send_command(id, 0, reinterpret_cast<std::intptr_t>(hwnd()));
    if (alive && was_active && is_open() && main_window().is_enabled() && GetActiveWindow() != hwnd())
        SetForegroundWindow(hwnd());
}

void Viewer::take_focus_from_buttons()
{
    if (IsChild(hwnd(), GetFocus()))
        set_focus();
}

bool Viewer::on_key(std::uint64_t key)
{
    switch (viewer_key(key)) {
    case ViewerKey::close:
        send(WM_CLOSE, 0, 0);
        return true;
    case ViewerKey::zoom_in:
        zoom_by(ZoomStep::in);
        return true;
    case ViewerKey::zoom_out:
        zoom_by(ZoomStep::out);
        return true;
    case ViewerKey::zoom_to_actual:
        zoom_by(ZoomStep::actual);
        return true;
    case ViewerKey::previous_file:
        main_window().send_command(command::previous_file, 0, 0);
        return true;
    case ViewerKey::next_file:
        main_window().send_command(command::next_file, 0, 0);
        return true;
    case ViewerKey::left:
        send(WM_HSCROLL, SB_LINELEFT, 0);
        return true;
    case ViewerKey::right:
        send(WM_HSCROLL, SB_LINERIGHT, 0);
        return true;
    case ViewerKey::up:
        send(WM_VSCROLL, SB_LINEUP, 0);
        return true;
    case ViewerKey::down:
        send(WM_VSCROLL, SB_LINEDOWN, 0);
        return true;
    default:
        return false;
    }
}

// The pane changes the file. With Ctrl it would move the entry in its list, but here that zooms.
bool Viewer::on_wheel(const ovlib::WndMessage& message)
{
    if ((GET_KEYSTATE_WPARAM(message.wparam) & MK_CONTROL) == 0 && GetAsyncKeyState(VK_CONTROL) >= 0) {
        parent()->send(message);
        return true;
    }
    if (const int step = ovlib::wheel_step(zoom_wheel_, message); step != 0)
        zoom_by(step > 0 ? ZoomStep::in : ZoomStep::out);
    return true;
}

bool Viewer::on_scroll(int bar, const ovlib::WndMessage& message)
{
    if (is_at_actual_size() && bars_.scroll(bar, LOWORD(message.wparam), HIWORD(message.wparam)))
        invalidate();
    return true;
}

bool Viewer::is_picture_at(Point screen) const
{
    POINT at{ screen.x, screen.y };
    ScreenToClient(hwnd(), &at);
    const RECT client = client_rect();
    return PtInRect(&client, at) != FALSE;
}

// In fit mode the picture is a part of the caption, except for its menu. The default processing of the press
// would wait for the release in a loop of its own and consume it.
bool Viewer::on_frame_message(ovlib::WndMessage& message)
{
    if (is_at_actual_size())
        return false;
    const auto is_on_picture = [&] {
        return message.wparam == HTCAPTION && is_picture_at(ovlib::mouse_point(message));
    };
    switch (message.message) {
    case WM_NCHITTEST:
        message.result =
            viewer_hit(default_proc(message), core::settings().view_mode, !is_maximized() && !is_minimized());
        return true;
    case WM_NCRBUTTONDOWN:
        return is_on_picture();
    case WM_NCRBUTTONUP:
        if (!is_on_picture())
            return false;
        send(WM_RBUTTONUP, 0, 0);
        return true;
    default:
        return false;
    }
}

// From the keyboard the menu opens at the corner of the picture. The mouse has its own message.
bool Viewer::on_menu_key(const ovlib::WndMessage& message)
{
    if (ovlib::mouse_point(message) != Point{ -1, -1 })
        return false;
    POINT corner{};
    ClientToScreen(hwnd(), &corner);
    show_menu(ovlib::to_point(corner));
    return true;
}

void Viewer::show_menu(Point at)
{
    end_drag();
    ovlib::Menu menu;
    menu.add_rows(viewer_menu(menu_state(*book_, paths_)), menu_pictures_);
    menu.show_at(*this, 0, { at.x, at.y });
}

bool Viewer::on_mouse(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_MOUSEWHEEL:
        return on_wheel(message);
    case WM_RBUTTONUP:
        show_menu(ovlib::to_point(ovlib::mouse_on_screen()));
        return true;
    case WM_MOUSEMOVE:
        return on_mouse_move(ovlib::mouse_point(message), (message.wparam & MK_LBUTTON) != 0);
    case WM_MOUSELEAVE:
        show_buttons(ovlib::to_point(cursor_pos()));
        return true;
    case WM_LBUTTONDOWN:
        begin_drag(ovlib::mouse_point(message));
        return true;
    case WM_LBUTTONDBLCLK:
        on_double_click(ovlib::mouse_point(message));
        return true;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
    case WM_KILLFOCUS:
        end_drag();
        return true;
    default:
        return false;
    }
}

bool Viewer::on_mouse_move(Point at, bool is_button_down)
{
    if (!is_at_actual_size())
        return false;
    if (!is_button_down) {
        end_drag();
        take_focus_from_buttons();
    }
    if (!is_dragging_) {
        track_leaving(); // first: the mouse may leave while the buttons are drawn
        show_buttons(at);
        return true;
    }
    was_moved_ =
        was_moved_ || press_.is_due(at, { GetSystemMetrics(SM_CXDRAG), GetSystemMetrics(SM_CYDRAG) });
    if (bars_.drag(std::exchange(last_mouse_, at), at))
        invalidate();
    return true;
}

// The press after a short drag counts as a double click too, if it is at the same place.
void Viewer::on_double_click(Point at)
{
    if (was_moved_)
        begin_drag(at);
    else if (is_at_actual_size())
        set_view(mode_fit, zoom_);
}

// The mouse also leaves the window when it reaches one of the buttons.
void Viewer::show_buttons(Point mouse)
{
    buttons_.show(is_at_actual_size() && shows_zoom_buttons(mouse, ovlib::to_size(client_size())));
}

// Over another window the system would report the leaving at once.
void Viewer::track_leaving() const
{
    if (WindowFromPoint(ovlib::mouse_on_screen()) != hwnd())
        return;
    TRACKMOUSEEVENT track{ sizeof track, TME_LEAVE, hwnd(), 0 };
    TrackMouseEvent(&track);
}

// While the mouse is captured the system asks for no cursor.
void Viewer::begin_drag(Point at)
{
    if (!is_at_actual_size())
        return;
    take_focus_from_buttons();
    SetCapture(hwnd());
    is_dragging_ = true;
    was_moved_ = false;
    press_.disarm();
    press_.press(at);
    last_mouse_ = at;
    SetCursor(LoadCursorW(nullptr, IDC_HAND));
}

// Releasing the capture sends WM_CAPTURECHANGED, which calls this again.
void Viewer::end_drag()
{
    if (!std::exchange(is_dragging_, false))
        return;
    last_mouse_ = {};
    if (GetCapture() == hwnd())
        ReleaseCapture();
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
}

} // namespace media
