// How the windows of the program follow a change of the palette.
#pragma once
#include <windows.h>

namespace ovlib {
class ListView;
}

namespace look {

// For a window class that keeps something made from the palette: colours, a brush, a picture of itself. It
// joins by deriving from this beside its base; nothing is registered. Windows that read the palette whenever
// they paint need not.
class Themed {
public:
    // Takes the palette's colours and draws anew what is kept. Called while the window lives; whoever calls
    // it for all windows repaints them too.
    virtual void apply_theme() = 0;

protected:
    ~Themed() = default;
};

// For a top-level window: its title bar in the theme's colour, where the system can.
void color_caption(HWND hwnd);
// For a list view of any class: its three colours.
void color_list_view(ovlib::ListView& list);

// To be called when the palette has changed, without the drawing lock. Every window of the program takes its
// colours; then all are repainted, with the controls inside them.
void apply_theme_to_windows();

} // namespace look
