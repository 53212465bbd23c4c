// What the viewer decides: zoom steps, modes, titles, its menu and keys, and where it opens.
#include "core/command_ids.hpp"
#include "core/settings.hpp"
#include "media/viewer_model.hpp"
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

namespace command = core::command;
using media::mode_actual_size;
using media::mode_fit;
using media::next_zoom;
using media::ViewerKey;
using media::ZoomChoices;
using media::ZoomStep;
using platform::Rect;

TEST(ZoomSteps, InwardDependOnTheZoom)
{
    constexpr std::pair<int, int> rows[] = { { 9, 24 }, { 10, 25 }, { 24, 39 }, { 25, 50 }, { 26, 51 },
        { 249, 274 }, { 250, 300 }, { 251, 301 }, { 499, 549 }, { 500, 600 }, { 501, 601 }, { 1900, 2000 },
        { 1999, 2000 }, { 2000, 2000 } };
    for (const auto& [zoom, wanted] : rows)
        EXPECT_EQ(next_zoom(zoom, ZoomStep::in), wanted) << zoom;
}

TEST(ZoomSteps, OutwardDependOnTheZoomWithOtherLimits)
{
    constexpr std::pair<int, int> rows[] = { { 9, 10 }, { 10, 10 }, { 24, 10 }, { 25, 10 }, { 26, 10 },
        { 50, 25 }, { 249, 224 }, { 250, 225 }, { 251, 201 }, { 499, 449 }, { 500, 450 }, { 501, 401 },
        { 1999, 1899 }, { 2000, 1900 } };
    for (const auto& [zoom, wanted] : rows)
        EXPECT_EQ(next_zoom(zoom, ZoomStep::out), wanted) << zoom;
}

TEST(ZoomSteps, FromActualSizeReachBothEnds)
{
    std::vector<int> up;
    for (int zoom = 100; zoom != 2000;)
        up.push_back(zoom = next_zoom(zoom, ZoomStep::in));
    EXPECT_EQ(up,
        (std::vector<int>{ 125, 150, 175, 200, 225, 250, 300, 350, 400, 450, 500, 600, 700, 800, 900, 1000,
            1100, 1200, 1300, 1400, 1500, 1600, 1700, 1800, 1900, 2000 }));
    std::vector<int> down;
    for (int zoom = 100; zoom != 10;)
        down.push_back(zoom = next_zoom(zoom, ZoomStep::out));
    EXPECT_EQ(down, (std::vector<int>{ 75, 50, 25, 10 }));
    EXPECT_EQ(next_zoom(1700, ZoomStep::actual), 100);
}

TEST(ZoomSteps, BelongToTheThreeButtons)
{
    EXPECT_EQ(media::zoom_step_of(1029), ZoomStep::in);
    EXPECT_EQ(media::zoom_step_of(1030), ZoomStep::out);
    EXPECT_EQ(media::zoom_step_of(1031), ZoomStep::actual);
    EXPECT_EQ(media::zoom_step_of(1028), std::nullopt);
    EXPECT_EQ(media::zoom_step_of(1032), std::nullopt);
}

TEST(ZoomChoices, LeaveOutWhatWouldChangeNothing)
{
    EXPECT_EQ(media::zoom_choices(10), (ZoomChoices{ true, false, true }));
    EXPECT_EQ(media::zoom_choices(11), (ZoomChoices{ true, true, true }));
    EXPECT_EQ(media::zoom_choices(100), (ZoomChoices{ true, true, false }));
    EXPECT_EQ(media::zoom_choices(1999), (ZoomChoices{ true, true, true }));
    EXPECT_EQ(media::zoom_choices(2000), (ZoomChoices{ false, true, true }));
}

TEST(ZoomOfAScale, IsRoundedAndLimited)
{
    EXPECT_EQ(media::zoom_of_scale(0.414), 41);
    EXPECT_EQ(media::zoom_of_scale(0.415), 42);
    EXPECT_EQ(media::zoom_of_scale(0.001), 10);
    EXPECT_EQ(media::zoom_of_scale(4000.0), 2000);
    EXPECT_EQ(media::zoom_of_scale(0), 100) << "no picture";
    EXPECT_EQ(media::zoom_of_scale(std::numeric_limits<double>::quiet_NaN()), 100);
}

TEST(ViewMode, IsFitForEveryUnknownNumber)
{
    EXPECT_EQ(media::effective_view_mode(2100), mode_actual_size);
    for (const int mode : { 2101, 0, 7, -1, 2099, 2102, std::numeric_limits<int>::min() })
        EXPECT_EQ(media::effective_view_mode(mode), mode_fit) << mode;
    EXPECT_EQ(core::view_whole, mode_actual_size);
    EXPECT_EQ(core::default_view_mode, mode_fit);
}

TEST(ZoomButtons, ShowInTheTopStripOfTheClientArea)
{
    constexpr platform::Size client{ 400, 300 };
    EXPECT_TRUE(media::shows_zoom_buttons({ 0, 0 }, client));
    EXPECT_TRUE(media::shows_zoom_buttons({ 399, 49 }, client));
    EXPECT_FALSE(media::shows_zoom_buttons({ 0, 50 }, client));
    EXPECT_FALSE(media::shows_zoom_buttons({ 400, 10 }, client));
    EXPECT_FALSE(media::shows_zoom_buttons({ -1, 10 }, client));
    EXPECT_FALSE(media::shows_zoom_buttons({ 10, -1 }, client));
    EXPECT_FALSE(media::shows_zoom_buttons({ 10, 30 }, { 400, 30 })) << "a lower window";
}

TEST(ViewerTitle, ShowsNameSizeAndPercent)
{
    EXPECT_EQ(media::viewer_title(L"photo.jpg", { 1024, 768 }, 1.5), L"photo.jpg   [ 1024 x 768,  150% ]");
    EXPECT_EQ(media::viewer_title(L"a", { 1, 1 }, 0.004), L"a   [ 1 x 1,  0% ]");
    EXPECT_EQ(media::viewer_title(L"a", { 1, 1 }, 0.005), L"a   [ 1 x 1,  1% ]");
    EXPECT_EQ(media::viewer_title(L"a", { 30'000, 2 }, 20.0), L"a   [ 30000 x 2,  2000% ]");
}

TEST(ViewerTitle, OmitsWhatIsNotThere)
{
    EXPECT_EQ(media::viewer_title(L"", { 10, 10 }, 1), L"Viewer");
    EXPECT_EQ(media::viewer_title(L"無い.png", {}, 0), L"無い.png");
    EXPECT_EQ(media::viewer_title(L"a", { 0, 10 }, 0), L"a");
}

std::wstring enabled_files(std::size_t count, std::uint64_t selected, bool is_file)
{
    std::wstring enabled;
    for (const ovlib::MenuRow& row : media::viewer_menu({ mode_fit, count, selected, is_file })) {
        if (row.id >= command::duplicate_file && row.id <= command::last_file && row.enabled)
            enabled += std::to_wstring(row.id) + L' ';
    }
    return enabled;
}

TEST(ViewerMenu, HasItsRowsInOrder)
{
    using ovlib::MenuKind;
    const ovlib::MenuRows rows = media::viewer_menu({ mode_fit, 2, 0, true });
    const std::vector<std::pair<int, std::wstring>> wanted{ { 2100, L"実寸大" },
        { 2101, L"サイズをウィンドウに合わせる" }, { 0, L"" }, { 2532, L"先頭ファイル" },
        { 2533, L"末尾ファイル" }, { 2531, L"ファイルを複製" }, { 0, L"" }, { 2106, L"Viewer を閉じる" } };
    ASSERT_EQ(rows.size(), wanted.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].kind, wanted[i].first ? MenuKind::item : MenuKind::separator) << i;
        EXPECT_EQ(rows[i].id, wanted[i].first) << i;
        EXPECT_EQ(rows[i].text, wanted[i].second) << i;
    }
}

TEST(ViewerMenu, MarksTheModeAndMakesItTheDefault)
{
    for (const auto& [stored, shown] : { std::pair{ 2100, 0u }, std::pair{ 2101, 1u }, std::pair{ 7, 1u } }) {
        const ovlib::MenuRows rows = media::viewer_menu({ stored, 0, 0, false });
        for (const std::size_t i : { 0u, 1u }) {
            EXPECT_EQ(rows[i].mark, i == shown ? ovlib::MenuMark::radio : ovlib::MenuMark::none) << stored;
            EXPECT_EQ(rows[i].is_default, i == shown) << stored;
        }
    }
}

TEST(ViewerMenu, EnablesTheFilesThatCanBeReached)
{
    EXPECT_EQ(enabled_files(0, 0, false), L"");
    EXPECT_EQ(enabled_files(1, 0, false), L"");
    EXPECT_EQ(enabled_files(1, 0, true), L"2531 ");
    EXPECT_EQ(enabled_files(3, 0, true), L"2533 2531 ");
    EXPECT_EQ(enabled_files(3, 1, true), L"2532 2533 2531 ");
    EXPECT_EQ(enabled_files(3, 2, false), L"2532 ");
    EXPECT_EQ(enabled_files(3, 9, false), L"2532 2533 ") << "past the end";
}

TEST(ViewerKeys, AreOnTheNumberPadToo)
{
    constexpr std::pair<int, ViewerKey> rows[] = { { 0x1B, ViewerKey::close }, { 0x6B, ViewerKey::zoom_in },
        { 0xBB, ViewerKey::zoom_in }, { 0x6D, ViewerKey::zoom_out }, { 0xBD, ViewerKey::zoom_out },
        { 0x60, ViewerKey::zoom_to_actual }, { '0', ViewerKey::zoom_to_actual },
        { 0x21, ViewerKey::previous_file }, { 0x22, ViewerKey::next_file }, { ' ', ViewerKey::next_file },
        { 0x25, ViewerKey::left }, { 0x26, ViewerKey::up }, { 0x27, ViewerKey::right },
        { 0x28, ViewerKey::down }, { 'A', ViewerKey::none }, { 0, ViewerKey::none } };
    for (const auto& [key, wanted] : rows)
        EXPECT_EQ(media::viewer_key(static_cast<std::uint64_t>(key)), wanted) << key;
}

TEST(ViewerHit, MakesOnlyTheFittedPictureOfAnOrdinaryWindowACaption)
{
    EXPECT_EQ(media::viewer_hit(1, mode_fit, true), 2);
    EXPECT_EQ(media::viewer_hit(1, 7, true), 2);
    EXPECT_EQ(media::viewer_hit(1, mode_fit, false), 1);
    EXPECT_EQ(media::viewer_hit(1, mode_actual_size, true), 1);
    for (const int part : { -2, -1, 0, 2, 3, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 20 })
        EXPECT_EQ(media::viewer_hit(part, mode_fit, true), part);
}

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();
const std::vector<Rect> one_screen{ { 0, 0, 1600, 1000 } };

TEST(FirstPlaceOfTheViewer, IsTheStoredRectangleIfAScreenMeetsIt)
{
    for (const Rect& place :
        { Rect{ 10, 20, 310, 420 }, Rect{ -299, -399, 1, 1 }, Rect{ 1599, 999, 1700, 1100 } })
        EXPECT_EQ(media::first_viewer_place(place, one_screen), place);
    const std::vector<Rect> two{ { 0, 0, 1600, 1000 }, { -1280, 0, 0, 1024 } };
    EXPECT_EQ(media::first_viewer_place({ -500, 1001, -400, 1100 }, two), (Rect{ -500, 1001, -400, 1100 }));
}

TEST(FirstPlaceOfTheViewer, IsLeftToTheSystemOtherwise)
{
    for (const Rect& place : { Rect{}, Rect{ 10, 20, 10, 40 }, Rect{ 10, 20, 40, 20 }, Rect{ 40, 20, 10, 60 },
             Rect{ -300, 0, 0, 100 }, Rect{ 1600, 0, 1700, 100 }, Rect{ 0, 1000, 100, 1100 },
             Rect{ highest, highest, lowest, lowest }, Rect{ lowest, lowest, lowest + 1, highest } })
        EXPECT_EQ(media::first_viewer_place(place, one_screen), std::nullopt)
            << place.left << ' ' << place.top;
    EXPECT_EQ(media::first_viewer_place({ 0, 0, 10, 10 }, {}), std::nullopt);
}

TEST(FirstPlaceOfTheViewer, IsNoLargerThanAllScreens)
{
    EXPECT_EQ(media::first_viewer_place({ lowest, lowest, highest, highest }, one_screen), one_screen[0]);
    EXPECT_EQ(media::first_viewer_place({ lowest, 10, highest, 60 }, one_screen), (Rect{ 0, 10, 1600, 60 }));
    EXPECT_EQ(media::first_viewer_place({ 5, -3000, 60, 3000 }, one_screen), (Rect{ 5, 0, 60, 1000 }));
}

} // namespace
