// When a text box opens the input method.
#pragma once

namespace look {

// The input method (IME) of one control.
class InputMethod {
public:
    virtual ~InputMethod() = default;
    // False if the control has none; then no other function may be called.
    virtual bool acquire() = 0;
    virtual bool is_open() = 0;
    virtual void open() = 0;
    virtual void release() = 0;
};

// Call when a control gets the focus. Opens a closed input method if the settings want that; never closes
// one.
void open_on_focus(InputMethod& method, bool is_wanted);

} // namespace look
