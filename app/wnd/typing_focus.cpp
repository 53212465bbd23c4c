#include "app/wnd/typing_focus.hpp"
#include <algorithm>
#include <optional>

namespace app {

TypingFocus::TypingFocus(const Fields& fields)
    : fields_(fields)
{
}

void TypingFocus::order_fields()
{
    constexpr std::uint16_t group = 1;
    std::uint16_t index = 0;
    for (ovlib::Wnd* field : fields_)
        field->set_tab_order(group, ++index);
}

void TypingFocus::note_focus(int control_id)
{
    const auto found = std::ranges::find(typing_fields, control_id);
    if (found != typing_fields.end())
        last_ = static_cast<std::size_t>(found - typing_fields.begin());
}

// The system gives the focus to the frame when the window becomes active: at the start, after one of its own
// boxes and after another program. The focus is passed on to a text field, so that typed text goes there.
bool TypingFocus::give()
{
    std::array<bool, typing_fields.size()> can_take{};
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const auto style = static_cast<DWORD>(GetWindowLongW(fields_[i]->hwnd(), GWL_STYLE));
        can_take[i] = (style & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE;
    }
    const std::optional<std::size_t> place = field_for_keyboard(last_, can_take);
    if (place)
        fields_[*place]->set_focus();
    return place.has_value();
}

} // namespace app
