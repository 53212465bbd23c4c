#include "look/wnd/themed.hpp"
#include "look/theme.hpp"
#include "ovlib/gui/listview.hpp"
#include <dwmapi.h>
#include <vector>

namespace look {

namespace {

// Collects handles instead of objects, because painting may destroy a window.
std::vector<HWND> living_windows()
{
    std::vector<HWND> windows;
    for (const ovlib::Wnd* wnd = ovlib::Wnd::first(); wnd; wnd = wnd->next()) {
        if (IsWindow(wnd->hwnd()))
            windows.push_back(wnd->hwnd());
    }
    return windows;
}

bool is_top_level(HWND hwnd)
{
    return (GetWindowLongW(hwnd, GWL_STYLE) & WS_CHILD) == 0;
}

void take_colors(HWND hwnd)
{
    if (is_top_level(hwnd))
        color_caption(hwnd);
    ovlib::Wnd* const wnd = ovlib::Wnd::from_handle(hwnd);
    if (auto* themed = dynamic_cast<Themed*>(wnd))
        themed->apply_theme();
    else if (auto* list = dynamic_cast<ovlib::ListView*>(wnd))
        color_list_view(*list);
}

void repaint_with_controls(HWND hwnd)
{
    RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

} // namespace

void color_caption(HWND hwnd)
{
    color_frame(palette().caption, [hwnd](std::uint32_t attribute, std::uint32_t value) {
        return SUCCEEDED(DwmSetWindowAttribute(hwnd, attribute, &value, sizeof value));
    });
}

void color_list_view(ovlib::ListView& list)
{
    list.set_colors(palette().box_back, palette().list_text);
}

// All windows take their colours before the first repaint, so that no paint mixes old and new ones.
// Repainting the top-level windows includes their children.
void apply_theme_to_windows()
{
    const std::vector<HWND> windows = living_windows();
    for (HWND const hwnd : windows)
        take_colors(hwnd);
    for (HWND const hwnd : windows) {
        if (IsWindow(hwnd) && is_top_level(hwnd))
            repaint_with_controls(hwnd);
    }
}

} // namespace look
