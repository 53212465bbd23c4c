// The windows over the gallery's window: a banner, a tip and a menu.
#pragma once
#include "gallery_wnd.hpp"
#include "look/wnd/warningwnd.hpp"
#include "ovlib/gui/menu.hpp"
#include "ovlib/gui/tipwnd.hpp"

namespace gallery {

class Popups {
public:
    explicit Popups(GalleryWnd& wnd);

    // Shows the banner, the tip and the lists of combo boxes. The banner fades in.
    void show();
    // Dispatches messages meanwhile, except those that end the program.
    void wait_for_banner() const;
    void hide();
    // Shows the menu until the user chooses an item or cancels.
    void open_menu();
    // Opens the menu with its submenu, calls `look` and closes the menu.
    void with_menu_open(const std::function<void()>& look);

private:
    GalleryWnd& wnd_;
    look::WarningWnd banner_;
    ovlib::TipWnd tip_;
    ovlib::Menu menu_;
};

} // namespace gallery
