#include "ovlib/gui/menu.hpp"
#include "ovlib/gui/menu_pictures.hpp"
#include "ovlib/gui/wnd.hpp"

namespace ovlib {

namespace {

MENUITEMINFOW item_info(UINT mask)
{
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = mask;
    return info;
}

MENUITEMINFOW text_info(UINT mask, const std::wstring& text)
{
    MENUITEMINFOW info = item_info(mask | MIIM_STRING);
    info.dwTypeData = const_cast<wchar_t*>(text.c_str()); // only read
    return info;
}

MENUITEMINFOW row_info(const MenuRow& row, HBITMAP picture)
{
    MENUITEMINFOW info = text_info(MIIM_ID | MIIM_FTYPE | MIIM_STATE, row.text);
    info.wID = static_cast<UINT>(row.id);
    info.fState = row.enabled ? MFS_ENABLED : MFS_GRAYED;
    info.fType = row.mark == MenuMark::radio ? MFT_RADIOCHECK : MFT_STRING;
    if (row.mark != MenuMark::none)
        info.fState |= MFS_CHECKED;
    if (row.is_default)
        info.fState |= MFS_DEFAULT;
    if (picture != nullptr) {
        info.fMask |= MIIM_BITMAP;
        info.hbmpItem = picture;
    }
    return info;
}

} // namespace

BaseMenu::BaseMenu(HMENU owned)
    : hmenu_(owned)
    , owned_(owned)
{
}

BaseMenu::~BaseMenu()
{
    if (gone_ != nullptr)
        *gone_ = true;
}

bool BaseMenu::append(const MENUITEMINFOW& item)
{
    return InsertMenuItemW(hmenu_, static_cast<UINT>(count()), TRUE, &item) != FALSE;
}

bool BaseMenu::add_item(const std::wstring& text, int id)
{
    MENUITEMINFOW info = text_info(MIIM_ID, text);
    info.wID = static_cast<UINT>(id);
    return append(info);
}

bool BaseMenu::add_separator()
{
    MENUITEMINFOW info = item_info(MIIM_FTYPE);
    info.fType = MFT_SEPARATOR;
    return append(info);
}

bool BaseMenu::add_submenu(const std::wstring& text, BaseMenu& menu, int id)
{
    if (!menu.owned_)
        return false;
    MENUITEMINFOW info = text_info(MIIM_ID | MIIM_SUBMENU, text);
    info.wID = static_cast<UINT>(id);
    info.hSubMenu = menu.hmenu_;
    if (!append(info))
        return false;
    menu.owned_.release();
    return true;
}

bool BaseMenu::add_rows(std::span<const MenuRow> rows, const MenuPictures* pictures)
{
    bool added = true;
    for (const MenuRow& row : rows)
        added = add_row(row, pictures) && added;
    return added;
}

bool BaseMenu::add_row(const MenuRow& row, const MenuPictures* pictures)
{
    if (row.kind == MenuKind::separator)
        return add_separator();
    const bool may_have_one = row.picture == MenuPicture::by_id && pictures != nullptr;
    MENUITEMINFOW info = row_info(row, may_have_one ? pictures->item_bitmap(row.id) : nullptr);
    if (row.kind == MenuKind::item)
        return append(info);
    Menu inner;
    const bool filled = inner.add_rows(row.rows, pictures);
    info.fMask |= MIIM_SUBMENU;
    info.hSubMenu = inner.hmenu_;
    if (!inner.owned_ || !append(info))
        return false;
    inner.owned_.release();
    return filled;
}

void BaseMenu::clear()
{
    while (count() > 0 && DeleteMenu(hmenu_, 0, MF_BYPOSITION)) { }
}

void BaseMenu::enable(int id, bool enabled)
{
    EnableMenuItem(hmenu_, static_cast<UINT>(id), MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
}

void BaseMenu::set_item_text(int id, const std::wstring& text)
{
    const MENUITEMINFOW info = text_info(0, text);
    SetMenuItemInfoW(hmenu_, static_cast<UINT>(id), FALSE, &info);
}

void BaseMenu::check_radio(int first, int last, int id)
{
    CheckMenuRadioItem(
        hmenu_, static_cast<UINT>(first), static_cast<UINT>(last), static_cast<UINT>(id), MF_BYCOMMAND);
}

void BaseMenu::check(int id, bool checked)
{
    CheckMenuItem(hmenu_, static_cast<UINT>(id), MF_BYCOMMAND | (checked ? MF_CHECKED : MF_UNCHECKED));
}

void BaseMenu::set_default(int id)
{
    SetMenuDefaultItem(hmenu_, static_cast<UINT>(id), FALSE);
}

void BaseMenu::set_check_bitmaps(int id, HBITMAP unchecked, HBITMAP checked)
{
    SetMenuItemBitmaps(hmenu_, static_cast<UINT>(id), MF_BYCOMMAND, unchecked, checked);
}

int BaseMenu::count() const
{
    return GetMenuItemCount(hmenu_);
}

int BaseMenu::show(const Wnd& owner, std::uint32_t flags)
{
    POINT point{};
    GetCursorPos(&point);
    return show_at(owner, flags, point);
}

int BaseMenu::show_at(const Wnd& owner, std::uint32_t flags, POINT point)
{
    // A message that is dispatched while the menu is shown may call this again. The system would refuse that
    // too.
    if (showing_ != 0)
        return 0;
    bool gone = false;
    gone_ = &gone;
    showing_ = 1;
    const int result = TrackPopupMenu(hmenu_, flags, point.x, point.y, 0, owner.hwnd(), nullptr);
    if (!gone) {
        showing_ = 0;
        gone_ = nullptr;
    }
    return result;
}

Menu::Menu()
    : BaseMenu(CreatePopupMenu())
{
    // Marks and pictures share one column. With two columns the pictures touch the texts.
    MENUINFO info{};
    info.cbSize = sizeof info;
    info.fMask = MIM_STYLE;
    info.dwStyle = MNS_CHECKORBMP;
    SetMenuInfo(handle(), &info);
}

} // namespace ovlib
