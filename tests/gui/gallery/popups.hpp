// What stands over the gallery's window: a banner, a tip and a menu.
#pragma once
#include "gallery_wnd.hpp"
#include "look/wnd/warningwnd.hpp"
#include "ovlib/gui/menu.hpp"
#include "ovlib/gui/tipwnd.hpp"

namespace gallery {

class Popups {
public:
    explicit Popups(GalleryWnd& wnd);

    // Banner, tip and the lists of combo boxes. The banner fades in.
    void show();
    // Serves messages meanwhile, those that end the program not.
    void wait_for_banner() const;
    void hide();
    // Until an item is chosen or the menu is left.
    void open_menu();
    // Opens the menu with its submenu, has `look` called and closes it again.
    void with_menu_open(const std::function<void()>& look);

private:
    GalleryWnd& wnd_;
    look::WarningWnd banner_;
    ovlib::TipWnd tip_;
    ovlib::Menu menu_;
};

} // namespace gallery
