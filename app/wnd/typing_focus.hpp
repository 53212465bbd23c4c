// Which field of the main window has the keyboard when the window itself is given it.
#pragma once
#include "app/control_rows.hpp"
#include "ovlib/gui/wnd.hpp"
#include <array>
#include <cstddef>

namespace app {

class TypingFocus {
public:
    using Fields = std::array<ovlib::Wnd*, typing_fields.size()>;

    // The fields in the order of Tab.
    explicit TypingFocus(const Fields& fields);

    void order_fields();
    // A control was given the keyboard.
    void note_focus(int control_id);
    // Gives the keyboard to the field that had it last, or to the next that can take it. False when none can.
    bool give();

private:
    Fields fields_;
    std::size_t last_ = 0;
};

} // namespace app
