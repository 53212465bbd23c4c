// The window as a whole: moved by whatever of it is no control.
#include "driver_main_window.hpp"
#include "driver_outer_mouse.hpp"
#include "driver_screen.hpp"

using namespace e2e;

namespace {

namespace command = app::command;

class Frame : public MainWindowTest {
protected:
    POINT corner() const
    {
        const RECT rect = main_window().rect();
        return { rect.left, rect.top };
    }
    static POINT moved(POINT from, POINT by) { return { from.x + by.x, from.y + by.y }; }
    void expect_corner(POINT expected, const Where& where = Where::current()) const
    {
        const auto pair = [](POINT point) { return std::pair{ point.x, point.y }; };
        expect_soon(
            pair(expected), [&] { return pair(corner()); }, where);
    }
    // The window manager takes the press up late: until it has, moves lead nowhere. It tells the window of
    // its place at the end only, so what is seen at the left edge tells that the window follows.
    void carry(POINT from, POINT by)
    {
        const POINT edge = moved(corner(), { 6, 500 });
        const COLORREF before = color_on_screen(edge);
        outer_mouse::move(from);
        outer_mouse::press(from);
        const auto has_moved = [&] { return color_on_screen(edge) != before; };
        int aside = 0;
        require("the window follows the mouse", [&] {
            outer_mouse::move(moved(from, { ++aside % 40, 0 }));
            return wait_until(has_moved, milliseconds{ 100 });
        });
        outer_mouse::move(moved(from, by));
    }
};

} // namespace

TEST_F(Frame, IsMovedByItsBackgroundWithAllThatStandsInIt)
{
    open_numbered(2);
    const POINT start = corner();
    const POINT grip = background();
    const RECT box_before = box(command::box_1).rect();
    constexpr POINT by{ 60, 40 };
    carry(grip, by);
    outer_mouse::release(moved(grip, by));
    expect_corner(moved(start, by));
    outer_mouse::move(moved(grip, { 0, 0 }));
    expect_corner(moved(start, by));
    EXPECT_EQ(box(command::box_1).rect().left, box_before.left + by.x);
    EXPECT_EQ(box(command::box_1).rect().top, box_before.top + by.y);
    click_control(command::next_page);
    expect_page(L"二");
    write_first(L"い");
}

TEST_F(Frame, StaysWhereItIsWhenAControlIsDragged)
{
    open_numbered(2);
    const POINT start = corner();
    const POINT grip = box(command::box_3).center();
    outer_mouse::move(grip);
    outer_mouse::press(grip);
    outer_mouse::move(moved(grip, { 60, 40 }));
    outer_mouse::release(moved(grip, { 60, 40 }));
    click_control(command::next_page);
    expect_page(L"二");
    expect_corner(start);
}
