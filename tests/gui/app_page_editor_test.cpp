// The page editor: selecting, the range, the strip and tracing.
#include "tests/support/gui_page_editing.hpp"

namespace {

namespace command = core::command;
namespace place = book::page_editor_place;
using gui::PageEditing;

TEST_F(PageEditing, ShowsTheCurrentPageAndFollowsItsTurns)
{
    open_letters(L"あいう");
    EXPECT_EQ(editor().text(), L"ブックエディタ");
    EXPECT_EQ(label(command::select_page), L"1 を選択");
    EXPECT_EQ(range(), L"1");
    order(command::next_page);
    EXPECT_EQ(first_line(), L"い");
    EXPECT_EQ(label(command::select_page), L"2 を選択");
    order(command::last_page);
    EXPECT_EQ(range(), L"3");
    order(command::previous_page);
    EXPECT_EQ(range(), L"2");
    order(command::first_page);
    EXPECT_EQ(range(), L"1");
}

TEST_F(PageEditing, SelectsTheCurrentPageAndShowsTheNumberInItsTitle)
{
    open_letters(L"あいう");
    click_in(editor(), command::select_page);
    EXPECT_EQ(editor().text(), L"ブックエディタ  [ 1ページ選択中 ]");
    order(command::next_page);
    EXPECT_FALSE(check_in(editor(), command::select_page).is_checked());
    click_in(editor(), command::select_page);
    EXPECT_EQ(editor().text(), L"ブックエディタ  [ 2ページ選択中 ]");
    EXPECT_EQ(selection(), L"110");
    click_in(editor(), command::select_page);
    EXPECT_EQ(selection(), L"100");
    order(command::clear_selection);
    EXPECT_EQ(selection(), L"000");
    EXPECT_EQ(editor().text(), L"ブックエディタ");
}

TEST_F(PageEditing, TurningWithShiftExtendsTheRangeAndTurningAloneEndsIt)
{
    open_letters(L"あいうえお");
    command(command::next_page);
    turn_with_shift(command::next_page);
    turn_with_shift(command::next_page);
    EXPECT_EQ(range(), L"2-4");
    click_in(editor(), command::select_range);
    EXPECT_TRUE(check_in(editor(), command::select_range).is_checked());
    EXPECT_EQ(selection(), L"01110");
    EXPECT_EQ(range(), L"2-4") << "selecting keeps the range";
    turn_with_shift(command::previous_page);
    EXPECT_EQ(range(), L"2-3");
    command(command::next_page);
    EXPECT_EQ(range(), L"4");
    EXPECT_FALSE(check_in(editor(), command::select_range).is_checked());
    EXPECT_EQ(selection(), L"01110");
}

TEST_F(PageEditing, DeselectsTheRange)
{
    open_letters(L"あいう");
    turn_with_shift(command::last_page);
    click_in(editor(), command::select_range);
    ASSERT_EQ(selection(), L"111");
    click_in(editor(), command::select_range);
    EXPECT_EQ(selection(), L"000");
    EXPECT_EQ(range(), L"1-3");
}

TEST_F(PageEditing, ResetsTheRangeToTheCurrentPage)
{
    open_letters(L"あいう");
    turn_with_shift(command::last_page);
    ASSERT_EQ(range(), L"1-3");
    click_in(editor(), command::reset_range);
    EXPECT_EQ(range(), L"3");
}

TEST_F(PageEditing, JumpsToBothEndsOfTheRangeAndKeepsIt)
{
    open_letters(L"あいうえお");
    command(command::next_page);
    turn_with_shift(command::last_page);
    ASSERT_EQ(range(), L"2-5");
    click_in(editor(), command::go_to_range_start);
    EXPECT_EQ(book().header.position, 1u);
    EXPECT_EQ(range(), L"2-5");
    click_in(editor(), command::go_to_range_end);
    EXPECT_EQ(book().header.position, 4u);
    EXPECT_EQ(range(), L"2-5");
    EXPECT_EQ(first_line(), L"お");
}

TEST_F(PageEditing, TheFocusLeavesAnEndThatIsHidden)
{
    open_letters(L"あい");
    turn_with_shift(command::next_page);
    ASSERT_TRUE(gui::bring_to_front(editor()));
    SetFocus(item(editor(), command::go_to_range_end));
    command(command::previous_page);
    EXPECT_FALSE(is_shown(command::go_to_range_end));
    EXPECT_EQ(GetFocus(), item(editor(), command::go_to_range_start));
}

TEST_F(PageEditing, ADragOverTheStripTurnsPagesAndMakesARange)
{
    open_letters(L"あいうえお");
    strip(WM_LBUTTONDOWN, 100); // the second of five
    EXPECT_EQ(GetCapture(), editor().hwnd());
    EXPECT_EQ(book().header.position, 1u);
    strip(WM_MOUSEMOVE, 300);
    EXPECT_EQ(book().header.position, 4u);
    EXPECT_EQ(range(), L"1-5");
    strip(WM_MOUSEMOVE, 160);
    EXPECT_EQ(range(), L"1-3");
    strip(WM_MOUSEMOVE, -50);
    EXPECT_EQ(book().header.position, 0u);
    strip(WM_MOUSEMOVE, 900);
    EXPECT_EQ(book().header.position, 4u);
    strip(WM_LBUTTONUP, 900);
    EXPECT_EQ(GetCapture(), nullptr);
    strip(WM_MOUSEMOVE, 0);
    EXPECT_EQ(book().header.position, 4u) << "not dragged any more";
    EXPECT_EQ(range(), L"1-5");
}

TEST_F(PageEditing, ALostCaptureEndsTheDrag)
{
    open_letters(L"あいうえお");
    strip(WM_LBUTTONDOWN, 100);
    ReleaseCapture();
    strip(WM_MOUSEMOVE, 300);
    EXPECT_EQ(book().header.position, 1u);
}

TEST_F(PageEditing, AHiddenWindowReleasesTheMouse)
{
    open_letters(L"あいうえお");
    strip(WM_LBUTTONDOWN, 100);
    editor().send(WM_CLOSE, 0, 0);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(PageEditing, APressBesideTheStripDoesNothing)
{
    open_letters(L"あいうえお");
    editor().send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(place::strip.left + 200, place::strip.bottom + 1));
    EXPECT_EQ(book().header.position, 0u);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(PageEditing, PaintsTheSelectedPagesOnTheStrip)
{
    open_letters(L"あいうえお");
    select({ 2 });
    command(command::first_page);
    EXPECT_EQ(strip_pixel(180), look::palette().selected_bar.value);
    EXPECT_EQ(strip_pixel(260), look::palette().bar_back.value);
    order(command::clear_selection);
    EXPECT_EQ(strip_pixel(180), look::palette().bar_back.value);
}

TEST_F(PageEditing, PaintsTheStripInTheColoursOfANewTheme)
{
    open_letters(L"あいうえお");
    const auto& trace = check_in(editor(), command::trace_selection);
    for (int theme = look::theme_standard; theme < look::theme_blue_plain_links; ++theme) {
        command(theme);
        EXPECT_EQ(strip_pixel(260), look::palette().bar_back.value) << theme;
        EXPECT_EQ(window_pixel(200, 150), look::palette().panel_back.value) << theme;
        EXPECT_EQ(trace.colors().back, look::palette().check_back) << theme;
    }
    editor().send(WM_CLOSE, 0, 0);
    command(look::theme_dark);
    open_editor();
    EXPECT_EQ(strip_pixel(260), look::palette().bar_back.value) << "changed while it was closed";
    EXPECT_EQ(trace.colors().back, look::palette().check_back);
}

} // namespace
