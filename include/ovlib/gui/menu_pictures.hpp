// Pictures beside menu items.
//
// The system's own drawing of item bitmaps knows no alpha on every version, so the owner of a menu draws:
// it passes WM_MEASUREITEM and WM_DRAWITEM here.
#pragma once
#include <functional>
#include <windows.h>

#include "ovlib/gui/wnd_message.hpp"

namespace ovlib {

class MenuPictures {
public:
    // The picture of an id, null for none: 32 bits with premultiplied alpha, drawn at 16 x 16. It stays its
    // giver's.
    using Find = std::function<HBITMAP(int id)>;

    explicit MenuPictures(Find find);

    bool has(int id) const;
    // False, with nothing done, for a message that asks for something else than a menu item's picture.
    bool on_message(WndMessage& message) const;

private:
    bool on_measure(MEASUREITEMSTRUCT& item) const;
    bool on_draw(const DRAWITEMSTRUCT& item) const;

    Find find_;
};

} // namespace ovlib
