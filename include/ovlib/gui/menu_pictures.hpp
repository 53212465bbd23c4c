// Pictures beside menu items.
//
// Windows draws a bitmap with alpha itself, and a menu has the system's look only while its owner draws no
// part of it. Wine draws such a bitmap on black. There the owner draws, and passes WM_MEASUREITEM and
// WM_DRAWITEM here.
#pragma once
#include "ovlib/gui/wnd_message.hpp"
#include <windows.h>
#include <cstdint>
#include <functional>

namespace ovlib {

enum class MenuPainter : std::uint8_t { system, owner };

// The kind that this system needs.
MenuPainter menu_painter();

class MenuPictures {
public:
    // Returns the picture of an id, or null: 32 bits with premultiplied alpha, drawn at 16 x 16. The caller
    // keeps ownership, and the picture must outlive the menus that show it.
    using Find = std::function<HBITMAP(int id)>;

    explicit MenuPictures(Find find, MenuPainter painter = menu_painter());

    // The value of MENUITEMINFO::hbmpItem for an item: the picture itself if the system draws it,
    // HBMMENU_CALLBACK if the owner draws it, null without a picture. A picture of any other format is always
    // drawn by the owner, which scales it.
    HBITMAP item_bitmap(int id) const;
    // False, without effect, for a message that does not concern a menu item's picture.
    bool on_message(WndMessage& message) const;

private:
    bool on_measure(MEASUREITEMSTRUCT& item) const;
    bool on_draw(const DRAWITEMSTRUCT& item) const;

    Find find_;
    MenuPainter painter_;
};

} // namespace ovlib
