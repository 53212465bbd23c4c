// A window with a window class and procedure of the library. Without changes it is an application's main
// window.
#pragma once
#include "ovlib/gui/wnd.hpp"

namespace ovlib {

// "ovlib_", the path, and the line in square brackets. Unique if each class passes its own place in the
// source.
std::wstring window_class_name(const std::wstring& path, int line);

class BaseWnd : public Wnd {
public:
    explicit BaseWnd(Wnd* parent = nullptr);

    bool create(const std::wstring& title) override;
    void destroy() override;
    // Ends the message loop with the message's result. A window whose creation failed does not end it.
    void on_destroyed(WndMessage& message) override;
    std::int64_t default_proc(WndMessage& message) override;

    virtual void on_created();
    // Fills the class and returns its name. Without a window procedure nothing is registered. A subclass
    // calls its base first and then replaces the name.
    virtual std::wstring class_info(WNDCLASSEXW& info);
    virtual void create_params(CREATESTRUCTW& params);
    virtual HWND create_window(const std::wstring& title, CREATESTRUCTW& params);

private:
    // Gives the window the requested size and moves it into view. WM_GETMINMAXINFO arrives before the object
    // has its handle, so the system limits the size at creation.
    void take_first_place(const CREATESTRUCTW& params);

    bool created_ = false;
};

} // namespace ovlib
