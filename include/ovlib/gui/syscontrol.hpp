// A control of the system. on_message gets its messages only while it is subclassed.
#pragma once
#include "ovlib/gui/childwnd.hpp"

namespace ovlib {

class SysControl : public ChildWnd {
public:
    void destroy() override;
    // With two non-zero numbers the control is subclassed as well, so that it gets the Tab key.
    void set_tab_order(std::uint16_t group, std::uint16_t index) override;
    std::int64_t default_proc(WndMessage& message) override;
    // Returns the name of the system's class; nothing is registered.
    std::wstring class_info(WNDCLASSEXW& info) override = 0;

    virtual void set_subclassed(bool subclassed);
    virtual bool is_subclassed() const;

protected:
    SysControl(Wnd* parent, int control_id);
    // Sends the control one of its own messages.
    LRESULT ask(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const;
    // For numbers that may be negative, such as index -1 for none.
    static WPARAM as_wparam(int number) { return static_cast<WPARAM>(static_cast<std::int64_t>(number)); }

private:
    friend struct WndProc;

    std::uint8_t subclassed_ = 0;
};

} // namespace ovlib
