// The message loops of a window. The modal loop is in subwnd.cpp.
#include "ovlib/gui/wnd.hpp"
#include <optional>

namespace ovlib {

namespace {

// All kinds of input, including touch and pointer.
constexpr DWORD wake_for_any_input = 0x1CFF;

// A WM_QUIT that arrives while waiting belongs to the outer loop, so it is posted again after the wait.
class QuitKeeper {
public:
    QuitKeeper() = default;
    QuitKeeper(const QuitKeeper&) = delete;
    QuitKeeper& operator=(const QuitKeeper&) = delete;
    ~QuitKeeper()
    {
        if (exit_code_)
            PostQuitMessage(*exit_code_);
    }
    void keep(WPARAM exit_code) { exit_code_ = static_cast<int>(exit_code); }

private:
    std::optional<int> exit_code_;
};

bool quit_is_waiting()
{
    MSG message{};
    return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) && message.message == WM_QUIT;
}

} // namespace

void Wnd::dispatch(MSG& message)
{
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

int Wnd::message_loop()
{
    const bool had_window = is_window();
    MSG message{};
    for (;;) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == -1)
            return -1;
        if (got == 0)
            return static_cast<int>(message.wParam);
        dispatch(message);
        // A nested loop, such as the system's loop for moving a window, may have dispatched the close and
        // consumed the quit.
        if (had_window && !is_window() && !quit_is_waiting())
            PostQuitMessage(0);
    }
}

bool Wnd::wait(HANDLE handle)
{
    if (handle == nullptr)
        return false;
    QuitKeeper quit;
    for (;;) {
        const DWORD woken = MsgWaitForMultipleObjects(1, &handle, FALSE, INFINITE, wake_for_any_input);
        if (woken == WAIT_OBJECT_0) {
            on_wait_signalled(handle);
            return true;
        }
        if (woken != WAIT_OBJECT_0 + 1) {
            on_wait_failed(handle, woken);
            return false;
        }
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT)
                quit.keep(message.wParam);
            else
                dispatch(message);
        }
    }
}

void Wnd::on_wait_signalled(HANDLE) { }

void Wnd::on_wait_failed(HANDLE, std::uint32_t) { }

} // namespace ovlib
