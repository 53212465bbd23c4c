// The base of every window of a program: one object has one window and one entry in the global list.
//
// All of it belongs to the user interface thread. An object is constructed (in the list, without handle),
// created (with handle) and destroyed (without handle again, still in the list). Handlers return true if they
// handled the message. A handler may delete its own object.
#pragma once
#include "ovlib/gui/wnd_message.hpp"
#include <windows.h>
#include <concepts>
#include <cstdint>
#include <string>

namespace ovlib {

class Wnd {
public:
    Wnd(const Wnd&) = delete;
    Wnd& operator=(const Wnd&) = delete;

    // The order of the virtual functions is fixed; a class adds its own after those of its base.
    virtual ~Wnd();
    // False if the object has a window already, and on any failure.
    virtual bool create(const std::wstring& title) = 0;
    virtual void destroy() = 0;
    // Both numbers count from 1; a 0 in either removes the window from Tab movement.
    virtual void set_tab_order(std::uint16_t group, std::uint16_t index);
    // Gives the focus to the next sibling of the group, wrapping at the end. False if this window is in no
    // group.
    virtual bool focus_next();
    virtual int destroy_children();
    virtual int count_children() const;
    virtual void on_destroyed(WndMessage& message);
    virtual bool on_message(WndMessage& message);
    virtual std::int64_t default_proc(WndMessage& message);
    virtual void set_parent(Wnd* wnd);
    virtual Wnd* parent() const;
    virtual bool is_sibling(const Wnd* wnd) const;
    virtual int control_id() const;
    virtual HICON class_icon() const;
    virtual HICON class_small_icon() const;
    virtual HBRUSH class_background() const;
    virtual void set_text(const std::wstring& text);
    virtual std::wstring text() const;
    virtual int text_length() const;
    virtual bool is_enabled() const;
    virtual void enable(bool enabled);
    virtual void set_topmost(bool topmost);
    // Centres the window over the window rectangle of `over`, or on the primary screen if null. A top-level
    // window is then moved into view.
    virtual void center(const Wnd* over, bool repaint);
    virtual void move(POINT point, bool repaint);
    virtual void move(int x, int y, bool repaint);
    virtual POINT position() const;
    virtual void resize(SIZE size, bool repaint);
    virtual void resize(int width, int height, bool repaint);
    virtual SIZE size() const;
    virtual void set_rect(const RECT& rect, bool repaint);
    virtual RECT rect() const;
    virtual RECT client_rect() const;
    virtual SIZE client_size() const;
    virtual POINT cursor_pos() const;
    virtual void show(bool visible);
    virtual void show_cmd(int command);
    virtual bool is_visible() const;
    virtual void set_alpha(std::uint8_t alpha);
    virtual void set_font(HFONT font);
    virtual HFONT font() const;
    virtual void set_redraw(bool redraw);
    virtual void set_focus();
    virtual HWND focus() const;
    virtual bool post(const WndMessage& message);
    virtual bool post(std::uint32_t message, std::uint64_t wparam, std::int64_t lparam);
    virtual std::int64_t send(const WndMessage& message);
    virtual std::int64_t send(std::uint32_t message, std::uint64_t wparam, std::int64_t lparam);
    // Sends WM_COMMAND; `id` and `code` have 16 bits each.
    virtual std::int64_t send_command(int id, int code, std::int64_t lparam);
    virtual void minimize();
    virtual void maximize();
    virtual void restore();
    virtual bool is_minimized() const;
    virtual bool is_maximized() const;
    virtual bool reserved();
    virtual int message_box(const std::wstring& text, const std::wstring& caption, std::uint32_t flags);
    virtual int message_box(const std::string& text, const std::string& caption, std::uint32_t flags);
    // The system's message for an error code, with an error icon.
    virtual int error_box(std::uint32_t code, const std::wstring& caption);
    virtual int error_box(std::uint32_t code, const std::string& caption);
    virtual void dispatch(MSG& message);
    // Runs until WM_QUIT and returns its exit code; -1 on failure.
    virtual int message_loop();
    // Dispatches messages until `handle` is signalled.
    virtual bool wait(HANDLE handle);
    virtual void on_wait_signalled(HANDLE handle);
    virtual void on_wait_failed(HANDLE handle, std::uint32_t code);

    // Prevents the implicit conversion of numbers and literals to bool. A class that adds a show for texts
    // must also accept `const wchar_t*`, because a pointer converts to bool before std::wstring.
    template <class T>
    requires(!std::same_as<T, bool>) void show(T) = delete;

    HWND hwnd() const { return hwnd_; }
    // Created and not destroyed yet.
    bool is_window() const { return hwnd_ != nullptr && IsWindow(hwnd_) != FALSE; }
    // Group in the high 16 bits, index in the low ones; 0 for none.
    std::uint32_t tab_order() const { return tab_order_; }

    // The first object, in order of construction, with this handle; null if there is none or the handle is
    // null.
    static Wnd* from_handle(HWND hwnd);
    // The first object with an existing window and this control id; null if there is none.
    static Wnd* from_control_id(int id);
    // The global list in order of construction.
    static Wnd* first() { return head_; }
    Wnd* next() const { return next_; }

protected:
    explicit Wnd(Wnd* parent);

    // Moves a top-level window into the work area of its screen. A larger window keeps its size and is placed
    // at the upper left corner, so that its caption can be reached.
    void bring_into_view(bool repaint);
    bool is_top_level() const;
    // Controls of the system are destroyed with their parent without a message to the library.
    void forget_dead_children();

    Wnd* parent_ = nullptr;
    HWND hwnd_ = nullptr;
    std::uint32_t tab_order_ = 0;

private:
    friend class WndWatch;
    friend struct WndProc;

    Wnd* prev_ = nullptr;
    Wnd* next_ = nullptr;
    static Wnd* head_;
    static Wnd* tail_;
};

// Shows whether an object still exists after a call that may have deleted it. Lives on the stack.
class WndWatch {
public:
    explicit WndWatch(Wnd* wnd);
    ~WndWatch();
    WndWatch(const WndWatch&) = delete;
    WndWatch& operator=(const WndWatch&) = delete;

    Wnd* get() const { return wnd_; }
    explicit operator bool() const { return wnd_ != nullptr; }

private:
    friend class Wnd;
    Wnd* wnd_;
    WndWatch* outer_;
    static WndWatch* innermost_;
};

} // namespace ovlib
