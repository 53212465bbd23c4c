// A window of another process.
#pragma once
#include <windows.h>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace e2e {

// A window handle and its queries. A message that is not answered in time throws DriverError, so a hanging
// program fails the test instead of hanging it.
class Window {
public:
    Window() = default;
    explicit Window(HWND handle)
        : handle_(handle)
    {
    }

    HWND handle() const { return handle_; }
    bool exists() const { return handle_ && IsWindow(handle_); }
    bool is_visible() const { return IsWindowVisible(handle_) != FALSE; }
    bool is_enabled() const { return IsWindowEnabled(handle_) != FALSE; }
    std::wstring class_name() const;
    LONG style() const { return GetWindowLongW(handle_, GWL_STYLE); }
    RECT rect() const; // screen coordinates
    POINT center() const;

    std::wstring text() const;
    void set_text(const std::wstring& text) const;

    // The child with this control identifier, at any depth. Throws if there is none.
    Window child(int id) const;

    LRESULT send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const;
    void post(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const;
    // Returns when the command is done, so it must not open a dialog.
    void send_command(int id, LPARAM lparam = 0) const;
    void post_command(int id, LPARAM lparam = 0) const;

    // For an edit control.
    bool is_modified() const { return send(EM_GETMODIFY) != 0; }
    bool is_read_only() const { return (style() & ES_READONLY) != 0; }
    std::pair<DWORD, DWORD> selection() const;
    void select(std::size_t start, std::size_t end) const;
    std::size_t first_visible_line() const { return static_cast<std::size_t>(send(EM_GETFIRSTVISIBLELINE)); }

    friend bool operator==(const Window&, const Window&) = default;

private:
    HWND handle_ = nullptr;
};

// The visible top-level windows of a process, topmost first.
std::vector<Window> top_windows(DWORD process_id);

} // namespace e2e
