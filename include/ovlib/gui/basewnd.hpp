// A window with a class and a procedure of the library's own; as it stands, an application's main window.
#pragma once
#include "ovlib/gui/wnd.hpp"

namespace ovlib {

// "ovlib_", the path, and the line in square brackets: unique for each class that names its own place.
std::wstring window_class_name(const std::wstring& path, int line);

class BaseWnd : public Wnd {
public:
    explicit BaseWnd(Wnd* parent = nullptr);

    bool create(const std::wstring& title) override;
    void destroy() override;
    // Ends the message loop with the message's result. A window whose creation failed ends nothing.
    void on_destroyed(WndMessage& message) override;
    std::int64_t default_proc(WndMessage& message) override;

    virtual void on_created();
    // Fills the class and returns its name; without a window procedure nothing is registered. A class of its
    // own calls its base first and then replaces the name.
    virtual std::wstring class_info(WNDCLASSEXW& info);
    virtual void create_params(CREATESTRUCTW& params);
    virtual HWND create_window(const std::wstring& title, CREATESTRUCTW& params);

private:
    // In view, and of the size asked for: the object learns too late of the size that the system allows.
    void take_first_place(const CREATESTRUCTW& params);

    bool created_ = false;
};

} // namespace ovlib
