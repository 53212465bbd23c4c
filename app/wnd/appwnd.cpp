// The window class, the table of messages and the frame's own messages.
#include "app/wnd/appwnd.hpp"
#include "app/page_actions.hpp"
#include "app/wnd/app_bitmaps.hpp"
#include "app/wnd/file_pane.hpp"
#include "core/command_ids.hpp"
#include "core/data_root.hpp"
#include "core/folders.hpp"
#include "core/titles.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/win_app.hpp"
#include "platform/clock.hpp"
#include "platform/file.hpp"
#include <algorithm>
#include <span>

namespace app {

namespace command = core::command;

namespace {

constexpr WORD icon_resource = 1000;
constexpr WORD accelerator_resource = 1001;

HICON load_icon(int width_metric, int height_metric)
{
    return static_cast<HICON>(LoadImageW(ovlib::WinApp::instance, MAKEINTRESOURCEW(icon_resource), IMAGE_ICON,
        GetSystemMetrics(width_metric), GetSystemMetrics(height_metric), LR_DEFAULTCOLOR));
}

} // namespace

AppWnd::AppWnd()
    : history_(core::history_file(core::folders()))
    , commands_({ [this](core::RefreshMask& pending) { refresh_views(pending); },
          [this](const std::exception_ptr& failure) { report_failure(failure); },
          [this] { return is_gone(); },
          [this] { return core::overdue_views(shown_index_, current_index(book_)); } })
    , q_box_(this, command::box_1)
    , a_box_(this, command::box_2)
    , d_box_(this, command::box_3)
    , file_pane_(std::make_unique<FilePane>(this, &book_, path_answers_))
    , menu_pictures_(app_bitmap)
    , accelerators_(LoadAcceleratorsW(ovlib::WinApp::instance, MAKEINTRESOURCEW(accelerator_resource)))
    , shortcut_thread_(core::full_path(core::folders().shortcut) + L"\\")
{
    book_.clear();
    make_book_dialogs();
}

bool AppWnd::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_CREATE:
        return on_create(message);
    case WM_CLOSE:
        return on_close();
    case WM_ENDSESSION:
        return on_end_session(message);
    case WM_COMMAND:
        return on_command(message);
    case WM_MOUSEWHEEL:
        return on_wheel(message);
    case WM_ERASEBKGND:
        return on_erase_background(message);
    case WM_CTLCOLOREDIT:
        return on_edit_color(message);
    case WM_CTLCOLORSTATIC:
        return on_static_color(message);
    case WM_CTLCOLORLISTBOX:
        return on_list_color(message);
    case WM_PAINT:
        return on_paint();
    case WM_MEASUREITEM:
    case WM_DRAWITEM:
        return on_draw_item(message);
    case WM_HSCROLL:
        return on_slider(message);
    case WM_NCHITTEST:
        return on_hit_test(message);
    case WM_SETCURSOR:
        return on_set_cursor(message);
    case WM_NCRBUTTONDOWN:
        return on_background_press(message);
    case WM_NCRBUTTONUP:
        return on_background_release(message);
    case WM_NCLBUTTONDOWN:
        return on_background_grip(message);
    case WM_SETFOCUS:
        return on_focus();
    case WM_LBUTTONDOWN:
        return on_press(ovlib::mouse_point(message));
    case WM_MOUSEMOVE:
        return on_mouse_move(ovlib::mouse_point(message));
    case WM_LBUTTONUP:
    case WM_KILLFOCUS:
    case WM_CAPTURECHANGED:
        return on_release();
    default:
        return false;
    }
}

void AppWnd::dispatch(MSG& message)
{
    // To the message's own window: the accelerator belongs to the focused control.
    if (TranslateAcceleratorW(message.hwnd, accelerators_, &message))
        return;
    constexpr unsigned first_control = 1000;
    constexpr unsigned control_count = 64000;
    if (message.message == WM_LBUTTONDBLCLK
        && static_cast<unsigned>(GetDlgCtrlID(message.hwnd)) - first_control < control_count)
        message.message = WM_LBUTTONDOWN;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

std::wstring AppWnd::class_info(WNDCLASSEXW& info)
{
    BaseWnd::class_info(info);
    if (HICON const icon = load_icon(SM_CXICON, SM_CYICON))
        info.hIcon = icon;
    if (HICON const icon = load_icon(SM_CXSMICON, SM_CYSMICON))
        info.hIconSm = icon;
    return ovlib::window_class_name(L"appwnd", 310);
}

void AppWnd::create_params(CREATESTRUCTW& params)
{
    BaseWnd::create_params(params);
    params.style &= ~static_cast<LONG>(WS_THICKFRAME | WS_MAXIMIZEBOX);
    params.style |= WS_CLIPCHILDREN;
}

int AppWnd::show_message(const std::wstring& text, BoxStyle style)
{
    if (is_gone())
        return 0;
    const InputGate::Hold hold{ input_ };
    return message_box(text, core::message_caption(book_.path), static_cast<std::uint32_t>(style));
}

bool AppWnd::is_busy() const
{
    const auto is_open = [](const ovlib::Wnd* window) { return window->is_visible(); };
    return std::ranges::any_of(editing_windows_, is_open);
}

// Neither the Book nor settings nor history are written: edits since the last save end with the logon.
bool AppWnd::on_end_session(const ovlib::WndMessage& message)
{
    if (message.wparam == 0)
        return false;
    auto file = platform::File::create(core::end_of_logon_file(core::folders()));
    const std::wstring text = end_of_logon_text(platform::local_time());
    if (file.is_open())
        file.write(std::as_bytes(std::span{ text }));
    return true;
}

} // namespace app
