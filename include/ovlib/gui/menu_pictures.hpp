// Pictures beside menu items.
//
// Windows draws a bitmap with alpha itself, and a menu keeps the system's look only while its owner draws no
// part of it. Wine draws such a bitmap on black: there the owner draws, and passes WM_MEASUREITEM and
// WM_DRAWITEM here.
#pragma once
#include <cstdint>
#include <functional>
#include <windows.h>

#include "ovlib/gui/wnd_message.hpp"

namespace ovlib {

enum class MenuPainter : std::uint8_t { system, owner };

// The one that this system needs.
MenuPainter menu_painter();

class MenuPictures {
public:
    // The picture of an id, null for none: 32 bits with premultiplied alpha, drawn at 16 x 16. It stays its
    // giver's and must outlive the menus that show it.
    using Find = std::function<HBITMAP(int id)>;

    explicit MenuPictures(Find find, MenuPainter painter = menu_painter());

    // What an item holds as its bitmap (MENUITEMINFO::hbmpItem): the picture itself where the system draws
    // it, HBMMENU_CALLBACK where the owner does, null without a picture. A picture of another form than told
    // above is always left to the owner, who fits it into its place.
    HBITMAP item_bitmap(int id) const;
    // False, with nothing done, for a message that asks for something else than a menu item's picture.
    bool on_message(WndMessage& message) const;

private:
    bool on_measure(MEASUREITEMSTRUCT& item) const;
    bool on_draw(const DRAWITEMSTRUCT& item) const;

    Find find_;
    MenuPainter painter_;
};

} // namespace ovlib
