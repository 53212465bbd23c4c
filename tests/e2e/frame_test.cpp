// The window as a whole: it is moved by dragging any part without a control.
#include "driver_main_window.hpp"

using namespace e2e;

namespace {

namespace command = core::command;

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
};

} // namespace

TEST_F(Frame, IsMovedByItsBackgroundWithAllItsContents)
{
    open_numbered(2);
    const POINT start = corner();
    const POINT grip = background();
    const RECT box_before = box(command::box_1).rect();
    constexpr POINT by{ 60, 40 };
    drag(grip, moved(grip, by));
    expect_corner(moved(start, by));
    move_mouse(grip);
    click_control(command::next_page);
    expect_page(L"二");
    write_first(L"い");
    expect_corner(moved(start, by));
    EXPECT_EQ(box(command::box_1).rect().left, box_before.left + by.x);
    EXPECT_EQ(box(command::box_1).rect().top, box_before.top + by.y);
}

// On a screen that is too low, this is how to reach the controls at the bottom.
TEST_F(Frame, IsDraggedByItsBackgroundBeyondTheTopOfTheScreenAndBack)
{
    open_numbered(2);
    const POINT start = corner();
    const POINT grip = background();
    const POINT up{ -30, -start.y - 100 };
    drag(grip, moved(grip, up));
    expect_corner({ start.x - 30, -100 });
    click_control(command::next_page);
    expect_page(L"二");
    expect_corner({ start.x - 30, -100 });
    drag(moved(grip, up), grip);
    expect_corner(start);
}

TEST_F(Frame, StaysWhereItIsWhenAControlIsDragged)
{
    open_numbered(2);
    const POINT start = corner();
    const POINT grip = box(command::box_3).center();
    drag(grip, moved(grip, { 60, 40 }));
    click_control(command::next_page);
    expect_page(L"二");
    expect_corner(start);
}
