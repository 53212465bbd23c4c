// When a text box opens the input method.
#pragma once

namespace look {

// The input method of one control, as a system offers it.
class InputMethod {
public:
    virtual ~InputMethod() = default;
    // False when the control has none; then nothing else may be called.
    virtual bool acquire() = 0;
    virtual bool is_open() = 0;
    virtual void open() = 0;
    virtual void release() = 0;
};

// For a control that got the focus. Opens what is closed when the settings want it, and never closes.
void open_on_focus(InputMethod& method, bool is_wanted);

} // namespace look
