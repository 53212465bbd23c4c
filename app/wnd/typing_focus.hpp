// Which field of the main window gets the focus when the window itself receives it.
#pragma once
#include "app/control_rows.hpp"
#include "ovlib/gui/wnd.hpp"
#include <array>
#include <cstddef>

namespace app {

class TypingFocus {
public:
    using Fields = std::array<ovlib::Wnd*, typing_fields.size()>;

    // The fields in Tab order.
    explicit TypingFocus(const Fields& fields);

    void order_fields();
    // To be called when a control got the focus.
    void note_focus(int control_id);
    // Gives the focus to the field that had it last, or to the next one that can take it. False if none can.
    bool give();

private:
    Fields fields_;
    std::size_t last_ = 0;
};

} // namespace app
