#include "driver_menu.hpp"
#include "driver_input.hpp"
#include "driver_screen.hpp"
#include <algorithm>

namespace e2e {

namespace {

constexpr auto menu_class = L"#32768";

Window find_menu(DWORD process_id)
{
    const std::vector<Window> windows = top_windows(process_id);
    const auto found = std::ranges::find(windows, menu_class, &Window::class_name);
    return found == windows.end() ? Window{} : *found;
}

bool is_separator(const ovlib::MenuRow& row)
{
    return row.kind == ovlib::MenuKind::separator;
}

} // namespace

PopupMenu::PopupMenu(const Program& program, ovlib::MenuRows rows, std::function<void()> open)
    : program_(program)
    , rows_(std::move(rows))
    , open_(std::move(open))
{
    this->open();
}

// A second attempt while the first is still being served would close the menu that the first opens.
void PopupMenu::open()
{
    constexpr milliseconds retry{ 5000 };
    require("a menu opens", [&] {
        program_.await_input();
        open_();
        return wait_until(
            [&] {
                window_ = find_menu(program_.process_id());
                return window_.exists() && program_.is_in_menu();
            },
            retry);
    });
}

bool PopupMenu::is_open() const
{
    return window_.exists() && window_.is_visible();
}

void PopupMenu::choose(int id, Hand hand)
{
    confirm(id, hand);
    wait_until_gone();
}

void PopupMenu::choose_in_vain(int id, Hand hand)
{
    confirm(id, hand);
    leave();
}

void PopupMenu::choose_by_steps(int count)
{
    std::size_t row = 0;
    while (is_separator(rows_.at(row)) || --count > 0)
        ++row;
    step_to(row);
    press(VK_RETURN);
    wait_until_gone();
}

void PopupMenu::leave() const
{
    constexpr milliseconds retry{ 2000 };
    require("a menu is left", [&] {
        press(VK_ESCAPE);
        return wait_until([&] { return !is_open(); }, retry);
    });
}

std::size_t PopupMenu::row_of(int id) const
{
    const auto found = std::ranges::find_if(
        rows_, [id](const ovlib::MenuRow& row) { return !is_separator(row) && row.id == id; });
    if (found == rows_.end())
        throw DriverError("no menu row " + std::to_string(id));
    return static_cast<std::size_t>(found - rows_.begin());
}

POINT PopupMenu::middle_of(std::size_t row) const
{
    constexpr int border = 3;
    const int separator = GetSystemMetrics(SM_CYMENUSIZE) / 2;
    const RECT place = window_.rect();
    const auto separators = static_cast<int>(std::ranges::count_if(rows_, is_separator));
    const int items = static_cast<int>(rows_.size()) - separators;
    const int height = (place.bottom - place.top - 2 * border - separators * separator) / items;
    int y = place.top + border + height / 2;
    for (std::size_t i = 0; i < row; ++i)
        y += is_separator(rows_[i]) ? separator : height;
    return { (place.left + place.right) / 2, y };
}

LONG PopupMenu::highlight() const
{
    constexpr int inset = 5; // inside the border, right of pictures and texts
    const RECT place = window_.rect();
    const std::vector<COLORREF> column =
        column_on_screen({ place.right - inset, place.top }, place.bottom - place.top);
    const auto is_lit = [](COLORREF color) {
        return color == GetSysColor(COLOR_HIGHLIGHT) || color == GetSysColor(COLOR_MENUHILIGHT);
    };
    const auto first = std::ranges::find_if(column, is_lit);
    const auto last = std::find_if_not(first, column.end(), is_lit);
    if (first == column.end())
        return 0;
    return place.top + static_cast<LONG>((first - column.begin() + last - column.begin()) / 2);
}

bool PopupMenu::is_highlighted(std::size_t row) const
{
    constexpr LONG tolerance = 6;
    return std::abs(highlight() - middle_of(row).y) < tolerance;
}

// Moves the pointer back and forth until the menu follows: a menu that is just opening ignores the first
// moves.
void PopupMenu::point_at(std::size_t row)
{
    constexpr milliseconds retry{ 100 };
    int aside = 0;
    require("the pointer highlights a row", [&] {
        if (!is_open())
            open();
        aside = 1 - aside;
        const POINT middle = middle_of(row);
        move_mouse({ middle.x + aside, middle.y });
        return wait_until([&] { return is_highlighted(row); }, retry);
    });
}

// A menu that opens under the pointer may be notified of it late, which moves the highlight away from the row
// that the keys have reached. So the pointer rests on the wanted row, and the keys go once around to it.
void PopupMenu::step_to(std::size_t row)
{
    const auto leave_row = [&] {
        point_at(row);
        step_down();
    };
    leave_row();
    require("the arrow key highlights a row", [&] {
        if (!is_open())
            leave_row();
        return is_highlighted(row) || (step_down(), false);
    });
}

// Waits for the effect of each key: another key before that would move the highlight past the wanted row. The
// first key into a menu that is just opening may be lost.
void PopupMenu::step_down() const
{
    constexpr milliseconds retry{ 3000 };
    const LONG before = highlight();
    press(VK_DOWN);
    wait_until(
        [&] {
            const LONG now = highlight();
            return now != 0 && now != before;
        },
        retry);
}

void PopupMenu::confirm(int id, Hand hand)
{
    const std::size_t row = row_of(id);
    if (hand == Hand::mouse) {
        point_at(row);
        click(middle_of(row));
    } else {
        step_to(row);
        press(VK_RETURN);
    }
}

void PopupMenu::wait_until_gone() const
{
    require("a menu closes", [&] { return !is_open(); });
}

} // namespace e2e
