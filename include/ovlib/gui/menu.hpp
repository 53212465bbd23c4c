// Popup menus, built item by item or from rows.
#pragma once
#include "controls/menu_rows.hpp"
#include "ovlib/handles.hpp"
#include <windows.h>
#include <cstdint>
#include <span>
#include <string>

namespace ovlib {

class MenuPictures;
class Wnd;

// A menu handle, destroyed with the object unless another menu owns it.
class BaseMenu {
public:
    BaseMenu(const BaseMenu&) = delete;
    BaseMenu& operator=(const BaseMenu&) = delete;
    virtual ~BaseMenu();

    // All of these append. An ampersand in a text underlines the character after it.
    bool add_item(const std::wstring& text, int id);
    bool add_separator();
    // This menu owns `menu` from here on; the object `menu` may be destroyed. False if another menu owns it
    // already.
    bool add_submenu(const std::wstring& text, BaseMenu& menu, int id = 0);
    // A row whose id has a picture in `pictures` shows it. The owner of the menu must route its messages to
    // `pictures`, which may be null.
    bool add_rows(std::span<const MenuRow> rows, const MenuPictures* pictures = nullptr);
    void clear();

    // By id, including submenus.
    void enable(int id, bool enabled);
    void set_item_text(int id, const std::wstring& text);
    // Unmarks all ids from `first` to `last` and marks `id`.
    void check_radio(int first, int last, int id);
    void check(int id, bool checked);
    // At most one item of a menu is the default item, which is bold.
    void set_default(int id);
    // Replaces the system's marks; null for one of them shows no mark. The caller keeps ownership of the
    // bitmaps.
    void set_check_bitmaps(int id, HBITMAP unchecked, HBITMAP checked);
    int count() const;

    // Shows the menu, at the cursor or at a point of the screen, until the user chooses an item or cancels.
    // `owner` then gets the command as WM_COMMAND. `flags` and the result are those of TrackPopupMenu; 0 if
    // the menu is shown already.
    int show(const Wnd& owner, std::uint32_t flags);
    int show_at(const Wnd& owner, std::uint32_t flags, POINT point);
    bool is_showing() const { return showing_ != 0; }

    HMENU handle() const { return hmenu_; }
    bool is_owned_elsewhere() const { return hmenu_ != owned_.get(); }

protected:
    explicit BaseMenu(HMENU owned);

private:
    bool append(const MENUITEMINFOW& item);
    bool add_row(const MenuRow& row, const MenuPictures* pictures);

    HMENU hmenu_;
    UniqueMenu owned_; // equal to hmenu_ until another menu owns it
    std::uint8_t showing_ = 0;
    bool* gone_ = nullptr; // set while the menu is shown, because a message may delete this object meanwhile
};

class Menu : public BaseMenu {
public:
    Menu();
};

} // namespace ovlib
