#include "driver_window.hpp"
#include "driver_wait.hpp"
#include <array>
#include <sstream>

namespace e2e {

std::wstring Window::class_name() const
{
    std::array<wchar_t, 256> name{};
    const int length = GetClassNameW(handle_, name.data(), static_cast<int>(name.size()));
    return std::wstring(name.data(), static_cast<std::size_t>(length));
}

RECT Window::rect() const
{
    RECT rect{};
    GetWindowRect(handle_, &rect);
    return rect;
}

POINT Window::center() const
{
    const RECT box = rect();
    return { (box.left + box.right) / 2, (box.top + box.bottom) / 2 };
}

// Uses WM_GETTEXT, because GetWindowTextW returns nothing for a control of another process.
std::wstring Window::text() const
{
    const auto length = static_cast<std::size_t>(send(WM_GETTEXTLENGTH));
    std::wstring text(length + 1, L'\0');
    const auto copied =
        send(WM_GETTEXT, static_cast<WPARAM>(text.size()), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

void Window::set_text(const std::wstring& text) const
{
    send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

Window Window::child(int id) const
{
    struct Search {
        int id;
        HWND found;
    } search{ id, nullptr };
    EnumChildWindows(
        handle_,
        [](HWND window, LPARAM argument) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(argument);
            if (GetDlgCtrlID(window) != wanted.id)
                return TRUE;
            wanted.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    if (!search.found)
        throw DriverError("no control " + std::to_string(id));
    return Window(search.found);
}

LRESULT Window::send(UINT message, WPARAM wparam, LPARAM lparam) const
{
    DWORD_PTR result = 0;
    if (SendMessageTimeoutW(
            handle_, message, wparam, lparam, SMTO_NORMAL, static_cast<UINT>(patience.count()), &result)
        == 0) {
        std::ostringstream what;
        what << "message " << message << " (wparam " << wparam << ") was not answered";
        throw DriverError(what.str());
    }
    return static_cast<LRESULT>(result);
}

void Window::post(UINT message, WPARAM wparam, LPARAM lparam) const
{
    if (!PostMessageW(handle_, message, wparam, lparam))
        throw DriverError("message " + std::to_string(message) + " could not be posted");
}

void Window::send_command(int id, LPARAM lparam) const
{
    send(WM_COMMAND, MAKEWPARAM(id, 0), lparam);
}

void Window::post_command(int id, LPARAM lparam) const
{
    post(WM_COMMAND, MAKEWPARAM(id, 0), lparam);
}

std::pair<DWORD, DWORD> Window::selection() const
{
    DWORD start = 0;
    DWORD end = 0;
    send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return { start, end };
}

void Window::select(std::size_t start, std::size_t end) const
{
    send(EM_SETSEL, start, static_cast<LPARAM>(end));
}

std::vector<Window> top_windows(DWORD process_id)
{
    struct Search {
        DWORD process_id;
        std::vector<Window> found;
    } search{ process_id, {} };
    EnumWindows(
        [](HWND window, LPARAM argument) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(argument);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (owner == wanted.process_id && IsWindowVisible(window))
                wanted.found.emplace_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

} // namespace e2e
