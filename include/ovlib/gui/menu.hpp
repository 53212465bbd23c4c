// Popup menus, built item by item or from rows.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <windows.h>

#include "controls/menu_rows.hpp"
#include "ovlib/handles.hpp"

namespace ovlib {

class MenuPictures;
class Wnd;

// A menu handle, destroyed with the object unless it belongs to somebody else.
class BaseMenu {
public:
    BaseMenu(const BaseMenu&) = delete;
    BaseMenu& operator=(const BaseMenu&) = delete;
    virtual ~BaseMenu();

    // All of these append. An ampersand in a text underlines what follows it.
    bool add_item(const std::wstring& text, int id);
    bool add_separator();
    // From here on `menu` belongs to this one; its object may go. Refused for a menu that already belongs
    // somewhere.
    bool add_submenu(const std::wstring& text, BaseMenu& menu, int id = 0);
    // Rows whose id has a picture in `pictures` show it while the menu's owner draws for them. The pictures
    // may be null.
    bool add_rows(std::span<const MenuRow> rows, const MenuPictures* pictures = nullptr);
    void clear();

    // By id, submenus included.
    void enable(int id, bool enabled);
    void set_item_text(int id, const std::wstring& text);
    // Takes the mark from all ids from `first` to `last` and gives it to `id`.
    void check_radio(int first, int last, int id);
    void check(int id, bool checked);
    // At most one item of a menu is its default, which is shown in bold.
    void set_default(int id);
    // In place of the system's marks; null for one leaves that mark out. The bitmaps stay their giver's.
    void set_check_bitmaps(int id, HBITMAP unchecked, HBITMAP checked);
    int count() const;

    // Shows the menu, at the cursor or at a point of the screen, until an item is chosen or the menu is left.
    // The command comes to `owner` as WM_COMMAND afterwards. `flags` are those of TrackPopupMenu, whose
    // result it is; 0 for a menu that is showing already.
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
    UniqueMenu owned_; // the same, until it belongs to another menu
    std::uint8_t showing_ = 0;
    bool* gone_ = nullptr; // set while showing: messages served meanwhile may delete this object
};

class Menu : public BaseMenu {
public:
    Menu();
};

} // namespace ovlib
