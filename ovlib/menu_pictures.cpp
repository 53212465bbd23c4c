#include "ovlib/gui/menu_pictures.hpp"
#include "controls/menu_rows.hpp"
#include "ovlib/gui/dc.hpp"
#include "ovlib/win_app.hpp"
#include <utility>

namespace ovlib {

namespace {

constexpr WORD bits_with_alpha = 32;

bool is_as_the_system_draws(HBITMAP picture)
{
    BITMAP facts{};
    return GetObjectW(picture, sizeof facts, &facts) != 0 && facts.bmBitsPixel == bits_with_alpha
        && facts.bmWidth == menu_picture_size.width && facts.bmHeight == menu_picture_size.height;
}

void blend(HDC target, const platform::Rect& place, HBITMAP picture, std::uint8_t opacity)
{
    BITMAP facts{};
    if (GetObjectW(picture, sizeof facts, &facts) == 0)
        return;
    const BYTE format = facts.bmBitsPixel == bits_with_alpha ? AC_SRC_ALPHA : 0;
    const MemDC source(target);
    const ObjectSelection selection(source, picture);
    AlphaBlend(target, place.left, place.top, place.width(), place.height(), source.handle(), 0, 0,
        facts.bmWidth, facts.bmHeight, BLENDFUNCTION{ AC_SRC_OVER, 0, opacity, format });
}

} // namespace

MenuPainter menu_painter()
{
    return WinApp::is_wine() ? MenuPainter::owner : MenuPainter::system;
}

MenuPictures::MenuPictures(Find find, MenuPainter painter)
    : find_(std::move(find))
    , painter_(painter)
{
}

HBITMAP MenuPictures::item_bitmap(int id) const
{
    HBITMAP const picture = find_ ? find_(id) : nullptr;
    if (picture == nullptr)
        return nullptr;
    return painter_ == MenuPainter::system && is_as_the_system_draws(picture) ? picture : HBMMENU_CALLBACK;
}

// The sender is 0 for a menu, and the control id for a control.
bool MenuPictures::on_message(WndMessage& message) const
{
    bool handled = false;
    if (message.message == WM_MEASUREITEM && message.wparam == 0)
        handled = on_measure(*reinterpret_cast<MEASUREITEMSTRUCT*>(message.lparam));
    else if (message.message == WM_DRAWITEM && message.wparam == 0)
        handled = on_draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(message.lparam));
    if (handled)
        message.result = TRUE;
    return handled;
}

bool MenuPictures::on_measure(MEASUREITEMSTRUCT& item) const
{
    if (item.CtlType != ODT_MENU)
        return false;
    item.itemWidth = menu_picture_size.width;
    item.itemHeight = menu_picture_size.height;
    return true;
}

bool MenuPictures::on_draw(const DRAWITEMSTRUCT& item) const
{
    if (item.CtlType != ODT_MENU)
        return false;
    HBITMAP const picture = find_ ? find_(static_cast<int>(item.itemID)) : nullptr;
    if (picture == nullptr)
        return true;
    const RECT& room = item.rcItem;
    const bool is_greyed = (item.itemState & (ODS_GRAYED | ODS_DISABLED)) != 0;
    blend(item.hDC, menu_picture_rect({ room.left, room.top, room.right, room.bottom }), picture,
        menu_picture_opacity(is_greyed));
    return true;
}

} // namespace ovlib
