// The window class, the message table, creation and closing.
#include "app/wnd/appwnd.hpp"
#include "app/wnd/settings_file.hpp"
#include "core/data_root.hpp"
#include "core/folders.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "look/wnd/themed.hpp"
#include "ovlib/gui/dc.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/win_app.hpp"
#include "platform/clock.hpp"
#include "platform/file.hpp"
#include <span>

namespace app {

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
    : parts_(*this)
    , typing_focus_({ parts_.desk.boxes()[0], parts_.desk.boxes()[1], parts_.desk.boxes()[2],
          &parts_.controls.search_box() })
    , accelerators_(LoadAcceleratorsW(ovlib::WinApp::instance, MAKEINTRESOURCEW(accelerator_resource)))
{
}

AppWnd::~AppWnd() = default;

bool AppWnd::on_message(ovlib::WndMessage& message)
{
    Background& background = parts_.background;
    switch (message.message) {
    case WM_CREATE:
        return on_create(message);
    case WM_CLOSE:
        return on_close();
    case WM_DESTROY:
        parts_.drops.stop();
        return false;
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
        return background.on_hit_test(message);
    case WM_SETCURSOR:
        return background.on_set_cursor(message);
    case WM_NCLBUTTONDOWN:
        return background.on_caption_press(message);
    // The default processing of the press would wait for the release in a loop of its own and consume it.
    case WM_NCRBUTTONDOWN:
        return message.wparam == HTCAPTION;
    case WM_NCRBUTTONUP:
        return on_caption_release(message);
    case WM_SETFOCUS:
        return on_focus();
    case WM_LBUTTONDOWN:
        return background.on_press(ovlib::mouse_point(message));
    case WM_MOUSEMOVE:
        return background.on_mouse_move(ovlib::mouse_point(message));
    case WM_LBUTTONUP:
        return background.on_release(ovlib::mouse_point(message));
    case WM_KILLFOCUS:
    case WM_CAPTURECHANGED:
        return background.on_drag_end();
    case drop_notification:
        message.result = parts_.drops.on_notification(HIWORD(message.wparam), message.lparam);
        return true;
    case WM_TIMER:
        if (message.wparam != question_timer)
            return false;
        [[fallthrough]];
    case drop_question:
        parts_.drops.ask_about_files();
        return true;
    default:
        return false;
    }
}

void AppWnd::dispatch(MSG& message)
{
    // The message goes to its own window, not to this one: the accelerator belongs to the focused control.
    if (TranslateAcceleratorW(message.hwnd, accelerators_, &message) || on_page_key(message))
        return;
    constexpr unsigned first_control = 1000;
    constexpr unsigned control_count = 64000;
    // A quick second click on a control counts as another press. Windows with identifiers outside this range
    // still get double clicks.
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

// An exception must not leave the window procedure. The result -1 makes the system destroy the window again,
// and CreateWindowExW fails.
bool AppWnd::on_create(ovlib::WndMessage& message)
{
    try {
        if (create_view())
            parts_.session.open_last_book();
        else
            message.result = -1;
    } catch (...) {
        const FailureNotice notice = failure_notice(std::current_exception(), FailedAt::creation);
        show_message(notice.text, notice.style);
        message.result = -1;
    }
    // A window whose creation fails may get no WM_DESTROY.
    if (message.result != 0)
        parts_.drops.stop();
    return true;
}

bool AppWnd::create_view()
{
    core::set_current_directory(L"");
    load_settings();
    parts_.session.history().load();
    {
        const ovlib::ClientDC dc{ *this };
        look::make_shared_fonts(dc.handle());
    }
    resize(main_window_size.width, main_window_size.height, false);
    center(nullptr, false);
    if (!parts_.create())
        return false;
    parts_.drops.start();
    typing_focus_.order_fields();
    if (!parts_.talk.create())
        return false;
    parts_.lay_out();
    look::load_theme(look::theme_standard);
    look::apply_theme_to_windows();
    return true;
}

// A fatal failure inside a command and the command that closes the program send this message too. Boxes that
// are shown during closing dispatch further ones. Only the first message closes the window. The save reads
// the boxes, so the child windows are destroyed after it.
bool AppWnd::on_close()
{
    if (is_busy() || is_closing_)
        return true;
    show(false);
    is_closing_ = true;
    parts_.drops.stop();
    parts_.links.close();
    parts_.background.on_drag_end();
    end_background_work();
    parts_.session.save_at_close();
    store_settings();
    parts_.palette.store_custom_colors();
    destroy_children();
    look::free_shared_fonts();
    return false;
}

// Neither the Book nor the settings nor the history are written: edits since the last save are lost when the
// session ends.
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

bool AppWnd::on_focus()
{
    return !is_closing_ && typing_focus_.give();
}

} // namespace app
