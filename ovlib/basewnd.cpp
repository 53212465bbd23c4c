#include "ovlib/gui/basewnd.hpp"
#include "ovlib/win_app.hpp"
#include "wnd_proc.hpp"
#include <algorithm>

namespace ovlib {

namespace {

// By default the system limits a window with a frame to the size of the screen. Controls on the right and at
// the bottom of a larger layout could never be reached then. Beyond the edge of the screen, the user can move
// them into view.
void allow_any_size(MINMAXINFO& limits)
{
    constexpr LONG any_size = 0x7FFF;
    limits.ptMaxTrackSize = { std::max(limits.ptMaxTrackSize.x, any_size),
        std::max(limits.ptMaxTrackSize.y, any_size) };
}

} // namespace

std::wstring window_class_name(const std::wstring& path, int line)
{
    return L"ovlib_" + path + L"[" + std::to_wstring(line) + L"]";
}

BaseWnd::BaseWnd(Wnd* parent)
    : Wnd(parent)
{
}

bool BaseWnd::create(const std::wstring& title)
{
    if (hwnd_ != nullptr)
        return false;
    WNDCLASSEXW info{};
    const std::wstring name = class_info(info);
    if (name.empty())
        return false;
    if (info.lpfnWndProc != nullptr) {
        info.cbSize = sizeof info;
        info.hInstance = WinApp::instance;
        info.lpszClassName = name.c_str();
        RegisterClassExW(&info); // fails harmlessly for the second window of a class
    }
    CREATESTRUCTW params{};
    create_params(params);
    params.lpszClass = name.c_str();
    params.hInstance = WinApp::instance;
    created_ = false;
    WndWatch alive(this);
    HWND const hwnd = create_window(title, params);
    if (!alive)
        return false;
    hwnd_ = hwnd;
    if (hwnd == nullptr)
        return false;
    created_ = true;
    take_first_place(params);
    on_created();
    return true;
}

void BaseWnd::destroy()
{
    WndWatch alive(this);
    DestroyWindow(hwnd_);
    if (!alive)
        return;
    forget_dead_children();
    hwnd_ = nullptr;
}

void BaseWnd::on_destroyed(WndMessage& message)
{
    // If the creation failed, a quit would close the message box that reports the failure.
    if (created_)
        PostQuitMessage(static_cast<int>(message.result));
}

std::int64_t BaseWnd::default_proc(WndMessage& message)
{
    if (message.message == WM_CHAR && message.wparam == VK_TAB && focus_next())
        return 0;
    const LRESULT result = DefWindowProcW(message.hwnd, message.message, message.wparam, message.lparam);
    if (message.message == WM_GETMINMAXINFO)
        allow_any_size(*reinterpret_cast<MINMAXINFO*>(message.lparam));
    return result;
}

// A window without a caption is placed by its owner.
void BaseWnd::take_first_place(const CREATESTRUCTW& params)
{
    const LONG style = GetWindowLongW(hwnd_, GWL_STYLE);
    if (!is_top_level() || (style & WS_CAPTION) != WS_CAPTION)
        return;
    const SIZE own = size();
    const bool is_cut = params.cx != CW_USEDEFAULT && (own.cx < params.cx || own.cy < params.cy);
    if (is_cut)
        resize(params.cx, params.cy, false);
    bring_into_view(false);
}

void BaseWnd::on_created()
{
    ShowWindow(hwnd_, WinApp::show_command);
    UpdateWindow(hwnd_);
}

std::wstring BaseWnd::class_info(WNDCLASSEXW& info)
{
    info.style = CS_HREDRAW | CS_VREDRAW;
    info.lpfnWndProc = &WndProc::window;
    info.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    info.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    info.hIconSm = LoadIconW(nullptr, IDI_APPLICATION);
    info.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    return window_class_name(L"ovlib/gui/basewnd", 129);
}

void BaseWnd::create_params(CREATESTRUCTW& params)
{
    params.lpCreateParams = static_cast<Wnd*>(this);
    params.hwndParent = parent_ != nullptr ? parent_->hwnd() : nullptr;
    params.hMenu = nullptr;
    params.style = WS_OVERLAPPEDWINDOW;
    params.dwExStyle = 0;
    params.x = CW_USEDEFAULT;
    params.y = CW_USEDEFAULT;
    params.cx = CW_USEDEFAULT;
    params.cy = CW_USEDEFAULT;
}

HWND BaseWnd::create_window(const std::wstring& title, CREATESTRUCTW& params)
{
    return CreateWindowExW(params.dwExStyle, params.lpszClass, title.c_str(),
        static_cast<DWORD>(params.style), params.x, params.y, params.cx, params.cy, params.hwndParent,
        params.hMenu, params.hInstance, params.lpCreateParams);
}

} // namespace ovlib
