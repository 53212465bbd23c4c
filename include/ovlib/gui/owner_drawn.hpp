// Controls that paint when their parent gets WM_DRAWITEM.
#pragma once
#include "ovlib/gui/wnd_message.hpp"
#include <windows.h>

namespace ovlib {

// A base of such controls beside their window class; route_draw_item finds them by it.
class OwnerDrawn {
public:
    virtual ~OwnerDrawn() = default;
    // False if nothing could be drawn.
    virtual bool draw_item(const DRAWITEMSTRUCT& item) = 0;
};

// For the WM_DRAWITEM handler of a parent: lets the control draw itself and ignores the result. False if the
// item does not belong to an existing OwnerDrawn object, as with menus. The control type in the message is
// ignored, because some controls do not set it.
bool route_draw_item(WndMessage& message);

} // namespace ovlib
