#include "app/main_layout.hpp"
#include <algorithm>

namespace app {

namespace {

constexpr int box_gap = 4;

constexpr Rect sized(int left, int top, int width, int height)
{
    return { left, top, left + width, top + height };
}

void place_checks(MainLayout& at)
{
    const int left = at.book_button.right + 26;
    const int second_column = left + 65;
    const int top = at.book_button.top + 2;
    at.mark_check = sized(left, top, 50, 20);
    at.mark_tracking_check = sized(second_column, top, 75, 20);
    const int second_row = at.mark_check.bottom + 2;
    at.tab_check = sized(left, second_row, 50, 20);
    at.tab_tracking_check = sized(second_column, second_row, 80, 20);
    const int third_row = at.tab_check.bottom + 2;
    at.sorted_check = sized(left, third_row, 50, 20);
    at.random_check = sized(second_column, third_row, 55, 20);
    at.reversed_check = sized(at.random_check.left + 65, third_row, 50, 20);
}

// The page buttons are inside the slider's rectangle and cover its ends.
void place_slider(MainLayout& at)
{
    at.slider = sized(at.book_button.right + 225, at.book_button.top - 2, 355, 28);
    const int top = at.slider.top + 1;
    const int height = at.slider.height() - 2;
    at.first_page_button = sized(at.slider.left + 1, top, 18, height);
    at.previous_page_button = sized(at.slider.left + 19, top, 18, height);
    at.next_page_button = sized(at.slider.right - 38, top, 18, height);
    at.last_page_button = sized(at.slider.right - 20, top, 18, height);
}

void place_search(MainLayout& at)
{
    const int top = at.slider.bottom + 4;
    at.search_button = sized(at.slider.left + 1, top, 22, 22);
    at.folder_button = sized(at.slider.right - 38, top, 36, 22);
    at.clear_search_button = sized(at.folder_button.left - 19, top, 18, 22);
    at.search_box = { at.search_button.right + 2, top, at.clear_search_button.left - 2, top + 22 };
    const int checks = at.search_button.bottom + 2;
    at.all_terms_check = sized(at.search_button.left, checks, 65, 18);
    at.ignore_case_check = sized(at.all_terms_check.right + 10, checks, 150, 18);
    at.file_list_search_check = sized(at.ignore_case_check.right + 10, checks, 100, 18);
}

void place_file_row(MainLayout& at, Size client)
{
    const int top = at.file_pane.bottom + 6;
    at.first_file_button = sized(at.file_pane.left + 2, top, 17, 22);
    at.file_combo = sized(at.first_file_button.right + 2, top, 350, 20);
    at.last_file_button = sized(at.file_combo.right + 2, top, 17, 22);
    at.file_counter = { at.last_file_button.right + 8, top + 4, client.width, client.height };
}

} // namespace

// The sizes and gaps are those of the fixed design, in pixels. Most controls are placed relative to another
// one, so a moved group keeps its shape.
MainLayout main_layout(Size client)
{
    MainLayout at;
    at.tabs = { 12, 2, client.width - 12, 24 };
    at.boxes.first = { 12, at.tabs.bottom + 8, 662, at.tabs.bottom + 8 + 80 };
    at.boxes.second = sized(at.boxes.first.left, at.boxes.first.bottom + box_gap, 650, 28);
    at.boxes.third = sized(at.boxes.second.left, at.boxes.second.bottom + box_gap, 650, 560);
    at.file_pane = sized(client.width - 662, at.boxes.first.top, 650, 676);
    const int buttons = at.boxes.third.bottom + 8;
    at.book_button = { 16, buttons, 81, buttons + 46 };
    at.save_button = { 16, at.book_button.bottom + 3, 81, at.book_button.bottom + 3 + 20 };
    place_checks(at);
    place_slider(at);
    place_search(at);
    place_file_row(at, client);
    return at;
}

Rect checks_frame(const MainLayout& layout)
{
    const Rect& first = layout.mark_check;
    const Rect& last = layout.reversed_check;
    return { first.left - 10, first.top - 4, last.right + 4, last.bottom + 4 };
}

FileNote file_note(const MainLayout& layout)
{
    constexpr int further_left = 48;
    constexpr int lower = 32;
    constexpr int line = 16;
    constexpr int picture_gap = 6;
    constexpr int picture_side = 32;
    const Rect& counter = layout.file_counter;
    const int left = counter.left - further_left;
    const int top = counter.top + lower;
    const int right = counter.right - further_left;
    FileNote note;
    note.facts = { left, top, right, top + line };
    note.size = { left, top + line, right, top + 2 * line };
    note.picture = { right + picture_gap, top };
    note.area = { left, top, note.picture.x + picture_side, top + picture_side };
    return note;
}

// Below the divider box 2 and both gaps need 36 pixels. Boxes 1 and 3 may shrink to no height.
int clamp_divider(const PageBoxes& boxes, int y)
{
    return std::clamp(y, boxes.first.top, std::max(boxes.first.top, boxes.third.bottom - 36));
}

PageBoxes with_divider(const PageBoxes& boxes, int y)
{
    PageBoxes moved = boxes;
    moved.first.bottom = clamp_divider(boxes, y);
    moved.second.top = moved.first.bottom + box_gap;
    moved.second.bottom = moved.second.top + boxes.second.height();
    moved.third.top = moved.second.bottom + box_gap;
    return moved;
}

int first_divider(const PageBoxes& boxes)
{
    return boxes.first.top + 80;
}

Rect gap_rect(const PageBoxes& boxes, BoxGap gap)
{
    switch (gap) {
    case BoxGap::upper:
        return { boxes.first.left, boxes.first.bottom, boxes.first.right, boxes.second.top };
    case BoxGap::lower:
        return { boxes.second.left, boxes.second.bottom, boxes.second.right, boxes.third.top };
    default:
        return {};
    }
}

BoxGap gap_at(const PageBoxes& boxes, Point point)
{
    for (const BoxGap gap : { BoxGap::upper, BoxGap::lower }) {
        if (gap_rect(boxes, gap).contains(point))
            return gap;
    }
    return BoxGap::none;
}

// The lower gap is the height of box 2 and the upper gap below the divider.
int dragged_divider(BoxGap gap, int mouse_y)
{
    constexpr int lower_offset = 32;
    return gap == BoxGap::lower ? mouse_y - lower_offset : mouse_y;
}

} // namespace app
