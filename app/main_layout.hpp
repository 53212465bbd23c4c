// Where everything is placed in the main window's client area. Only arithmetic: painting, hit testing and the
// placing of controls call the same functions.
#pragma once
#include "platform/geometry.hpp"

namespace app {

using platform::Point;
using platform::Rect;
using platform::Size;

inline constexpr Size main_window_size{ 1380, 854 };

struct PageBoxes {
    Rect first;
    Rect second;
    Rect third;

    friend bool operator==(const PageBoxes&, const PageBoxes&) = default;
};

struct MainLayout {
    Rect tabs;
    PageBoxes boxes;
    Rect file_pane;
    Rect book_button, save_button;
    Rect mark_check, mark_tracking_check;
    Rect tab_check, tab_tracking_check;
    Rect sorted_check, random_check, reversed_check;
    Rect slider;
    Rect first_page_button, previous_page_button, next_page_button, last_page_button;
    Rect search_button, search_box, clear_search_button, folder_button;
    Rect all_terms_check, ignore_case_check, file_list_search_check;
    Rect first_file_button, file_combo, last_file_button;
    Rect file_counter;
};

MainLayout main_layout(Size client);

// The frame around the checks for the page and the order.
Rect checks_frame(const MainLayout& layout);
// The facts about the displayed file: a line of facts, its size and its small picture. They are below the
// counter and start further left.
struct FileNote {
    Rect facts;
    Rect size;
    Point picture;
    Rect area; // the bounding rectangle of all of it

    friend bool operator==(const FileNote&, const FileNote&) = default;
};
FileNote file_note(const MainLayout& layout);

// Clamps `y` to the range of the divider below box 1.
int clamp_divider(const PageBoxes& boxes, int y);
// The boxes with the divider at `y`, which is clamped.
PageBoxes with_divider(const PageBoxes& boxes, int y);

// The divider of a Book that has none yet.
int first_divider(const PageBoxes& boxes);

enum class BoxGap { none = 0, upper = 1, lower = 2 };

// The gap between two boxes that contains this point.
BoxGap gap_at(const PageBoxes& boxes, Point point);
Rect gap_rect(const PageBoxes& boxes, BoxGap gap);
// The divider that puts the dragged gap under a mouse at height `mouse_y`.
int dragged_divider(BoxGap gap, int mouse_y);

} // namespace app
