// How the program's windows follow a change of the palette.
#pragma once
#include <windows.h>

namespace ovlib {
class ListView;
}

namespace look {

// Base of window classes that keep something made from the palette: colours, a brush, a picture of their
// content. Deriving is enough; nothing is registered. Windows that read the palette each time they paint do
// not need it.
class Themed {
public:
    // Takes the palette's colours and redraws the stored pictures. Called while the window exists. It need
    // not repaint the window: the caller for all windows does that.
    virtual void apply_theme() = 0;

protected:
    ~Themed() = default;
};

// Gives a top-level window a title bar in the theme's colour, if the system supports that.
void color_caption(HWND hwnd);
// Sets the three colours of a list view.
void color_list_view(ovlib::ListView& list);

// To be called after the palette changed, without the drawing lock. Applies the colours to every window of
// the program, then repaints all top-level windows with their controls.
void apply_theme_to_windows();

} // namespace look
