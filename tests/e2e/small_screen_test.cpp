// The main window on a screen that is too small for it.
#include "driver_main_window.hpp"
#include "driver_small_screen.hpp"

using namespace e2e;

namespace {

namespace command = core::command;

class OnASmallScreen : public MainWindowTest, public testing::WithParamInterface<SIZE> {
protected:
    static RECT work_area()
    {
        RECT area{};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
        return area;
    }
    // Drags the window by its background until its lower right corner is visible.
    void drag_into_view()
    {
        const RECT window = main_window().rect();
        const RECT area = work_area();
        const POINT from = background();
        const POINT to{ from.x + std::min(area.right - window.right, 0L),
            from.y + std::min(area.bottom - window.bottom, 0L) };
        drag(from, to);
        expect_soon(
            std::pair{ std::min(area.right, window.right), std::min(area.bottom, window.bottom) }, [&] {
                const RECT now = main_window().rect();
                return std::pair{ now.right, now.bottom };
            });
    }

private:
    SmallScreen screen_{ GetParam() };
};

} // namespace

TEST_P(OnASmallScreen, TheWindowKeepsItsSizeAndItsCaptionCanBeReached)
{
    open_numbered(2);
    const RECT window = main_window().rect();
    EXPECT_EQ(window.right - window.left, app::main_window_size.width);
    EXPECT_EQ(window.bottom - window.top, app::main_window_size.height);
    const RECT area = work_area();
    EXPECT_GE(window.left, area.left);
    EXPECT_GE(window.top, area.top);
    EXPECT_LT(window.left, area.left + GetParam().cx / 2);
    const app::MainLayout at = layout();
    EXPECT_LT(at.boxes.third.right, at.file_pane.left) << "box 3 lies beside the pane";
}

TEST_P(OnASmallScreen, TheHiddenPartIsDraggedIntoViewByTheBackground)
{
    open_numbered(3);
    drag_into_view();
    click_control(command::next_page);
    expect_page(L"二");
    retype(command::search_box, L"三");
    press(VK_RETURN);
    expect_page(L"三");
    retype(command::box_3, L"本文");
    chord({ VK_CONTROL, 'S' });
    expect_soon(false, [&] { return box(command::box_3).is_modified(); });
}

TEST_P(OnASmallScreen, AMessageBoxAndTheHistoryOpenInView)
{
    open_numbered(2);
    drag_into_view();
    main_window().post_command(command::about);
    const MessageDialog box = program().wait_for_box();
    const RECT area = work_area();
    const auto is_in_view = [&](Window window) {
        const RECT at = window.rect();
        return at.left >= area.left && at.top >= area.top && at.right <= area.right
            && at.bottom <= area.bottom;
    };
    EXPECT_TRUE(is_in_view(box.window()));
    box.answer(IDOK);
    constexpr int margin = 20;
    for (const POINT corner : { POINT{ area.left + margin, area.top + margin },
             POINT{ area.right - margin, area.bottom - margin } }) {
        move_mouse(corner);
        main_window().send_command(command::show_history);
        require("the history shows", [this] { return history_window().exists(); });
        EXPECT_TRUE(is_in_view(history_window())) << corner.x << ", " << corner.y;
        history_window().send(WM_CLOSE);
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, OnASmallScreen, testing::Values(SIZE{ 1280, 720 }, SIZE{ 1366, 768 }),
    [](const auto& of) { return "Of" + std::to_string(of.param.cx) + "By" + std::to_string(of.param.cy); });
