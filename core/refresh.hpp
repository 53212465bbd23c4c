// The views that a command invalidated, and the order in which they are refreshed.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>

namespace core {

using RefreshMask = std::uint32_t;

// Bits of the mask, listed in service order.
enum class View : RefreshMask {
    page = 0x1, // the three boxes; also refreshes the file pane, the file combo and the list editor
    file_pane = 0x2,
    file_combo = 0x4,
    file_list_editor = 0x8,
    tabs = 0x10,
    book_editor = 0x20,
    history_enabled = 0x40,
    box_state = 0x1000, // read-only and wrapping
    page_buttons = 0x400,
    folder_button = 0x2000,
    slider = 0x4000,
    status_bar = 0x8000,
};

inline constexpr std::array service_order{ View::page, View::file_pane, View::file_combo,
    View::file_list_editor, View::tabs, View::book_editor, View::history_enabled, View::box_state,
    View::page_buttons, View::folder_button, View::slider, View::status_bar };

namespace refresh {

inline constexpr RefreshMask full = 0xF47F; // all views, after a change of page or Book
inline constexpr RefreshMask full_but_page = 0xF47E; // after a save: the boxes already show the page
inline constexpr RefreshMask controls = 0xF400; // a button's state changed, but not the page
inline constexpr RefreshMask controls_and_enable = 0xF440; // an editing window was opened
inline constexpr RefreshMask tabs = 0x8410; // a tab was added or removed
inline constexpr RefreshMask file_list = 0xE;
inline constexpr RefreshMask file_choice = 0xA;
inline constexpr RefreshMask applied_file_list = 0x8006; // the list's editor keeps its text
inline constexpr RefreshMask file_choice_from_results = 0x6;
inline constexpr RefreshMask folder_button = 0x2000;

} // namespace refresh

// The views to refresh if the boxes show the page with the stored index `shown` but `current` is the current
// one. Left as they are, the next edit of the boxes would be saved into the wrong page.
constexpr RefreshMask overdue_views(std::size_t shown, std::size_t current)
{
    return shown == current ? 0 : refresh::full;
}

constexpr bool has_view(RefreshMask mask, View view)
{
    return (mask & static_cast<RefreshMask>(view)) != 0;
}

// Calls `serve(view)` for the views in `pending`, in service order. A view may add bits for views that come
// later. Each bit is cleared just before its view is served, except history_enabled, which is kept.
template <class Serve> void serve_refresh(RefreshMask& pending, Serve&& serve)
{
    constexpr RefreshMask file_views = 0xE;
    for (const View view : service_order) {
        if (!has_view(pending, view))
            continue;
        if (view == View::page)
            pending &= ~(static_cast<RefreshMask>(View::page) | file_views);
        else if (view != View::history_enabled)
            pending &= ~static_cast<RefreshMask>(view);
        serve(view);
        if (view == View::page)
            pending |= file_views;
    }
}

} // namespace core
