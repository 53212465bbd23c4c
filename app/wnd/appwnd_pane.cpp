// The file pane and the place below it in which its file is told of.
#include "app/wnd/appwnd.hpp"
#include "app/wnd/file_pane.hpp"
#include "core/settings.hpp"
#include "ovlib/gui/system_geometry.hpp"

namespace app {

// What still runs in the pane ends with it, also where the window was never created whole.
AppWnd::~AppWnd() = default;

// The pane, then the counter of its files and what is told of the one in view: the shell is asked here and
// not in the paint.
void AppWnd::refresh_file_pane()
{
    if (!file_pane_->show_selected_file() || is_gone())
        return;
    for (const Rect& place : { layout_.file_counter, file_note(layout_).area }) {
        const RECT rect = ovlib::to_rect(place);
        InvalidateRect(hwnd(), &rect, FALSE);
    }
    UpdateWindow(hwnd());
}

core::Outcome AppWnd::on_interpolation(const CommandInput& input)
{
    core::settings().interpolation_command = input.id;
    file_pane_->scale_anew();
    return core::Outcome::done;
}

} // namespace app
