// A control of the system. Its messages reach on_message only while it is subclassed.
#pragma once
#include "ovlib/gui/childwnd.hpp"

namespace ovlib {

class SysControl : public ChildWnd {
public:
    void destroy() override;
    // With both numbers non-zero the control is subclassed too, so that it sees the Tab key.
    void set_tab_order(std::uint16_t group, std::uint16_t index) override;
    std::int64_t default_proc(WndMessage& message) override;
    // The name of the system's class alone: nothing is registered.
    std::wstring class_info(WNDCLASSEXW& info) override = 0;

    virtual void set_subclassed(bool subclassed);
    virtual bool is_subclassed() const;

protected:
    SysControl(Wnd* parent, int control_id);
    // Sends the control one of its own messages.
    LRESULT ask(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const;
    // A number that may be negative, such as an index of -1 for none.
    static WPARAM as_wparam(int number) { return static_cast<WPARAM>(static_cast<std::int64_t>(number)); }

private:
    friend struct WndProc;

    std::uint8_t subclassed_ = 0;
};

} // namespace ovlib
