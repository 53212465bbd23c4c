#include "ovlib/gui/owner_drawn.hpp"
#include "ovlib/gui/wnd.hpp"

namespace ovlib {

bool route_draw_item(WndMessage& message)
{
    const auto* const item = reinterpret_cast<const DRAWITEMSTRUCT*>(message.lparam);
    if (message.message != WM_DRAWITEM || item == nullptr)
        return false;
    auto* const control = dynamic_cast<OwnerDrawn*>(Wnd::from_handle(item->hwndItem));
    if (control == nullptr)
        return false;
    control->draw_item(*item);
    message.result = TRUE;
    return true;
}

} // namespace ovlib
