// Controls that are painted when their parent is told to.
#pragma once
#include <windows.h>

#include "ovlib/gui/wnd_message.hpp"

namespace ovlib {

// What a control derives from, beside its window class, to be found by route_draw_item.
class OwnerDrawn {
public:
    virtual ~OwnerDrawn() = default;
    // False when nothing could be drawn.
    virtual bool draw_item(const DRAWITEMSTRUCT& item) = 0;
};

// For the WM_DRAWITEM handler of a parent: has the control draw itself, whatever comes of it. False when the
// item is none of a live OwnerDrawn object, as with menus. The kind of control that the message names is not
// looked at: for some controls it is left unset.
bool route_draw_item(WndMessage& message);

} // namespace ovlib
