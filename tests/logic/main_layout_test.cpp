// The main window's rectangles and the boundary between its boxes.
#include "app/main_layout.hpp"
#include <gtest/gtest.h>
#include <limits>

namespace platform {
void PrintTo(const Rect& r, std::ostream* out)
{
    *out << r.left << ", " << r.top << ", " << r.right << ", " << r.bottom;
}
} // namespace platform

namespace {

using app::BoxGap;
using app::Rect;

constexpr app::Size client{ 1374, 825 };
const app::MainLayout at = app::main_layout(client);

TEST(MainLayout, PutsTheTabsOnTop)
{
    EXPECT_EQ(at.tabs, (Rect{ 12, 2, 1362, 24 }));
}

TEST(MainLayout, PutsTheThreeBoxesOnTheLeft)
{
    EXPECT_EQ(at.boxes.first, (Rect{ 12, 32, 662, 112 }));
    EXPECT_EQ(at.boxes.second, (Rect{ 12, 116, 662, 144 }));
    EXPECT_EQ(at.boxes.third, (Rect{ 12, 148, 662, 708 }));
}

TEST(MainLayout, PutsTheFilePaneOnTheRight)
{
    EXPECT_EQ(at.file_pane, (Rect{ 712, 32, 1362, 708 }));
    EXPECT_EQ(at.first_file_button, (Rect{ 714, 714, 731, 736 }));
    EXPECT_EQ(at.file_combo, (Rect{ 733, 714, 1083, 734 }));
    EXPECT_EQ(at.last_file_button, (Rect{ 1085, 714, 1102, 736 }));
    EXPECT_EQ(at.file_counter, (Rect{ 1110, 718, 1374, 825 }));
}

TEST(MainLayout, PutsTheFileFactsBelowTheCounterAndFurtherLeft)
{
    const app::FileNote note = app::file_note(at);
    EXPECT_EQ(note.facts, (Rect{ 1062, 750, 1326, 766 }));
    EXPECT_EQ(note.size, (Rect{ 1062, 766, 1326, 782 }));
    EXPECT_EQ(note.picture, (app::Point{ 1332, 750 }));
    EXPECT_EQ(note.area, (Rect{ 1062, 750, 1364, 782 }));
}

TEST(MainLayout, PutsButtonsAndChecksBelowTheBoxes)
{
    EXPECT_EQ(at.book_button, (Rect{ 16, 716, 81, 762 }));
    EXPECT_EQ(at.save_button, (Rect{ 16, 765, 81, 785 }));
    EXPECT_EQ(at.mark_check, (Rect{ 107, 718, 157, 738 }));
    EXPECT_EQ(at.mark_tracking_check, (Rect{ 172, 718, 247, 738 }));
    EXPECT_EQ(at.tab_check, (Rect{ 107, 740, 157, 760 }));
    EXPECT_EQ(at.tab_tracking_check, (Rect{ 172, 740, 252, 760 }));
    EXPECT_EQ(at.sorted_check, (Rect{ 107, 762, 157, 782 }));
    EXPECT_EQ(at.random_check, (Rect{ 172, 762, 227, 782 }));
    EXPECT_EQ(at.reversed_check, (Rect{ 237, 762, 287, 782 }));
}

TEST(MainLayout, PutsThePageButtonsInsideTheSlidersEnds)
{
    EXPECT_EQ(at.slider, (Rect{ 306, 714, 661, 742 }));
    EXPECT_EQ(at.first_page_button, (Rect{ 307, 715, 325, 741 }));
    EXPECT_EQ(at.previous_page_button, (Rect{ 325, 715, 343, 741 }));
    EXPECT_EQ(at.next_page_button, (Rect{ 623, 715, 641, 741 }));
    EXPECT_EQ(at.last_page_button, (Rect{ 641, 715, 659, 741 }));
}

TEST(MainLayout, PutsTheSearchRowBelowTheSlider)
{
    EXPECT_EQ(at.search_button, (Rect{ 307, 746, 329, 768 }));
    EXPECT_EQ(at.folder_button, (Rect{ 623, 746, 659, 768 }));
    EXPECT_EQ(at.clear_search_button, (Rect{ 604, 746, 622, 768 }));
    EXPECT_EQ(at.search_box, (Rect{ 331, 746, 602, 768 }));
    EXPECT_EQ(at.all_terms_check, (Rect{ 307, 770, 372, 788 }));
    EXPECT_EQ(at.ignore_case_check, (Rect{ 382, 770, 532, 788 }));
    EXPECT_EQ(at.file_list_search_check, (Rect{ 542, 770, 642, 788 }));
}

TEST(Divider, MovesAllThreeBoxes)
{
    const auto moved = app::with_divider(at.boxes, 300);
    EXPECT_EQ(moved.first, (Rect{ 12, 32, 662, 300 }));
    EXPECT_EQ(moved.second, (Rect{ 12, 304, 662, 332 }));
    EXPECT_EQ(moved.third, (Rect{ 12, 336, 662, 708 }));
}

TEST(Divider, AboveTheFirstBoxComesBackAsItsTop)
{
    EXPECT_EQ(app::clamp_divider(at.boxes, 31), 32);
    EXPECT_EQ(app::clamp_divider(at.boxes, std::numeric_limits<int>::min()), 32);
    EXPECT_EQ(app::with_divider(at.boxes, -5).first.bottom, 32);
}

TEST(Divider, BeyondTheLimitLeavesTheThirdBoxNoHeight)
{
    EXPECT_EQ(app::clamp_divider(at.boxes, std::numeric_limits<int>::max()), 708 - 36);
    const auto moved = app::with_divider(at.boxes, 9999);
    EXPECT_EQ(moved.second, (Rect{ 12, 676, 662, 704 }));
    EXPECT_EQ(moved.third, (Rect{ 12, 708, 662, 708 }));
}

TEST(Divider, DoesNotDependOnItsLastPosition)
{
    const auto there = app::with_divider(app::with_divider(at.boxes, 700), 112);
    EXPECT_EQ(there, at.boxes);
    EXPECT_EQ(app::first_divider(at.boxes), 112);
}

TEST(BoxGap, IsFoundBetweenTheBoxesOnly)
{
    EXPECT_EQ(app::gap_at(at.boxes, { 12, 112 }), BoxGap::upper);
    EXPECT_EQ(app::gap_at(at.boxes, { 661, 115 }), BoxGap::upper);
    EXPECT_EQ(app::gap_at(at.boxes, { 300, 147 }), BoxGap::lower);
    for (const app::Point beside :
        { app::Point{ 11, 113 }, { 662, 113 }, { 300, 111 }, { 300, 116 }, { 300, 148 } })
        EXPECT_EQ(app::gap_at(at.boxes, beside), BoxGap::none) << beside.x << ", " << beside.y;
    EXPECT_EQ(app::gap_rect(at.boxes, BoxGap::none), Rect{});
}

TEST(BoxGap, DraggedPutsTheBoundaryUnderTheMouse)
{
    EXPECT_EQ(app::dragged_divider(BoxGap::upper, 200), 200);
    EXPECT_EQ(app::dragged_divider(BoxGap::lower, 200), 168);
}

} // namespace
