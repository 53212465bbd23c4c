#include "controls/slider_model.hpp"
#include <gtest/gtest.h>
#include <limits>

namespace {

using ovlib::Color;
using ovlib::FilledRect;
using ovlib::SliderBorder;
using ovlib::SliderCode;
using ovlib::SliderModel;
using ovlib::SliderNotice;
using ovlib::SliderPart;
using ovlib::Stroke;
using platform::Point;
using platform::Rect;

constexpr Color fill{ 0xFFD7C3 };
constexpr Color back{ 0xD7D2D2 };
constexpr Color groove{ 0x3F3D3D };

// The track runs from 8 to 208, the client is 216 wide and 28 high.
SliderModel slider_at(std::int32_t value, std::int32_t max = 100)
{
    SliderModel slider;
    slider.groove = groove;
    slider.fill = fill;
    slider.back = back;
    slider.max = max;
    slider.value = value;
    slider.track = ovlib::slider_track({ 216, 28 });
    slider.thumb = ovlib::slider_thumb(slider.track, ovlib::value_to_x(slider));
    return slider;
}

TEST(SliderTrack, IsCentredWithMarginsAtItsSides)
{
    EXPECT_EQ(ovlib::slider_track({ 216, 28 }), (Rect{ 8, 7, 208, 20 }));
    EXPECT_EQ(ovlib::slider_track({ 355, 30 }), (Rect{ 8, 8, 347, 21 }));
    EXPECT_EQ(ovlib::slider_track({ 100, 13 }), (Rect{ 8, 0, 92, 13 }));
}

TEST(SliderTrack, OfAClientTooSmallForItHasNoWidth)
{
    for (const int width : { 0, 1, 8, 15, 16 })
        EXPECT_EQ(ovlib::slider_track({ width, 20 }).width(), 0) << width;
    EXPECT_EQ(ovlib::slider_track({ 17, 20 }).width(), 1);
    EXPECT_EQ(ovlib::slider_track({ 0, 0 }).height(), 13);
}

TEST(SliderThumb, IsCentredOnItsPositionAndHigherThanTheTrack)
{
    EXPECT_EQ(ovlib::slider_thumb({ 8, 7, 208, 20 }, 108), (Rect{ 103, 3, 113, 22 }));
}

TEST(SliderThumb, OfAnEmptyRangeIsAtTheLeftEndOfTheTrack)
{
    const SliderModel slider = slider_at(0, 0);
    EXPECT_EQ(ovlib::value_to_x(slider), slider.track.left);
    EXPECT_EQ(slider.thumb.left, slider.track.left - 5);
}

TEST(SliderMapping, RoundsTheValueToTheNearestPixel)
{
    EXPECT_EQ(ovlib::value_to_x(slider_at(0)), 8);
    EXPECT_EQ(ovlib::value_to_x(slider_at(50)), 108);
    EXPECT_EQ(ovlib::value_to_x(slider_at(1, 3)), 75) << "200 / 3 + 8 is 74.67";
    EXPECT_EQ(ovlib::value_to_x(slider_at(1, 400)), 9) << "a half goes up";
}

TEST(SliderMapping, KeepsTheThumbInsideTheTrack)
{
    EXPECT_EQ(ovlib::value_to_x(slider_at(100)), 207);
    EXPECT_EQ(ovlib::value_to_x(slider_at(500)), 207);
    EXPECT_EQ(ovlib::value_to_x(slider_at(-500)), 8);
}

TEST(SliderMapping, RoundsAPositionToTheNearestValue)
{
    const SliderModel slider = slider_at(0);
    EXPECT_EQ(ovlib::x_to_value(slider, 8), 0);
    EXPECT_EQ(ovlib::x_to_value(slider, 108), 50);
    EXPECT_EQ(ovlib::x_to_value(slider, 9), 1) << "a half goes up";
    EXPECT_EQ(ovlib::x_to_value(slider, 208), 100);
    EXPECT_EQ(ovlib::x_to_value(slider, -1000), 0);
    EXPECT_EQ(ovlib::x_to_value(slider, 5000), 100);
}

TEST(SliderMapping, RoundTripsWherePixelsSuffice)
{
    for (std::int32_t value = 0; value < 100; ++value) {
        const SliderModel slider = slider_at(value);
        EXPECT_EQ(ovlib::x_to_value(slider, ovlib::value_to_x(slider)), value);
    }
}

TEST(SliderMapping, OfATrackWithoutWidthIsItsStart)
{
    SliderModel slider = slider_at(50);
    slider.track = { 10, 0, 10, 13 };
    EXPECT_EQ(ovlib::x_to_value(slider, 99), 0);
    EXPECT_EQ(ovlib::value_to_x(slider), 10);
}

TEST(SliderMapping, HandlesAnInvertedTrackAndTheLargestRange)
{
    SliderModel slider = slider_at(50);
    slider.track = { 48, 0, 20, 13 };
    EXPECT_EQ(ovlib::value_to_x(slider), 48);
    EXPECT_EQ(ovlib::x_to_value(slider, 60), 0);
    slider = slider_at(std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(ovlib::value_to_x(slider), 207);
    EXPECT_EQ(ovlib::x_to_value(slider, 5000), std::numeric_limits<std::int32_t>::max());
    slider.min = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(ovlib::x_to_value(slider, 8), 0);
}

TEST(SliderMapping, DoesNotSubtractTheMinimum)
{
    SliderModel slider = slider_at(50);
    slider.min = 20;
    EXPECT_EQ(ovlib::value_to_x(slider), 133) << "50 of 80, not 30 of 80";
    EXPECT_EQ(ovlib::x_to_value(slider, 108), 40);
    EXPECT_EQ(ovlib::x_to_value(slider, 8), 20);
}

TEST(SliderValue, IsClampedIntoTheRange)
{
    SliderModel slider = slider_at(0);
    slider.min = 10;
    EXPECT_EQ(ovlib::clamp_value(slider, 9), 10);
    EXPECT_EQ(ovlib::clamp_value(slider, 55), 55);
    EXPECT_EQ(ovlib::clamp_value(slider, 1'000'000'000'000), 100);
    slider.min = 200;
    EXPECT_EQ(ovlib::clamp_value(slider, 150), 200) << "crossed limits";
}

TEST(SliderPress, FindsTheThumbBeforeTheTrack)
{
    const SliderModel slider = slider_at(50);
    EXPECT_EQ(ovlib::slider_part(slider, { 103, 3 }), SliderPart::thumb);
    EXPECT_EQ(ovlib::slider_part(slider, { 112, 21 }), SliderPart::thumb);
    EXPECT_EQ(ovlib::slider_part(slider, { 113, 10 }), SliderPart::track);
    EXPECT_EQ(ovlib::slider_part(slider, { 8, 7 }), SliderPart::track);
    EXPECT_EQ(ovlib::slider_part(slider, { 7, 10 }), SliderPart::none);
    EXPECT_EQ(ovlib::slider_part(slider, { 208, 10 }), SliderPart::none);
    EXPECT_EQ(ovlib::slider_part(slider, { 20, 20 }), SliderPart::none);
}

TEST(SliderPress, OnTheThumbTracks)
{
    SliderModel slider = slider_at(50);
    EXPECT_EQ(
        ovlib::press_slider(slider, SliderPart::thumb, 52), (SliderNotice{ SliderCode::thumb_track, 52 }));
    EXPECT_EQ(slider.value, 52);
    EXPECT_TRUE(slider.pressed);
    EXPECT_FALSE(slider.captured);
}

TEST(SliderPress, OnTheTrackGoesStraightToThePositionAndNotifiesAPage)
{
    SliderModel slider = slider_at(50);
    EXPECT_EQ(ovlib::press_slider(slider, SliderPart::track, 20), (SliderNotice{ SliderCode::page_up, 0 }));
    EXPECT_EQ(slider.value, 20);
    EXPECT_TRUE(slider.pressed) << "a drag may follow";
    EXPECT_EQ(ovlib::press_slider(slider, SliderPart::track, 70), (SliderNotice{ SliderCode::page_down, 0 }));
    EXPECT_EQ(ovlib::press_slider(slider, SliderPart::track, 70), (SliderNotice{ SliderCode::page_down, 0 }));
    EXPECT_EQ(slider.value, 70);
}

TEST(SliderPress, OutsideBothEndsAPressAndNotifiesNothing)
{
    SliderModel slider = slider_at(50);
    slider.pressed = true;
    EXPECT_FALSE(ovlib::press_slider(slider, SliderPart::none, 20));
    EXPECT_EQ(slider.value, 50);
    EXPECT_FALSE(slider.pressed);
}

TEST(SliderPress, InAnEmptyRangeKeepsTheMinimum)
{
    SliderModel slider = slider_at(0, 0);
    EXPECT_EQ(ovlib::press_slider(slider, SliderPart::track, 40), (SliderNotice{ SliderCode::page_down, 0 }));
    EXPECT_EQ(slider.value, 0);
    slider.min = slider.max = slider.value = 7;
    EXPECT_TRUE(ovlib::press_slider(slider, SliderPart::thumb, 0));
    EXPECT_EQ(slider.value, 7);
}

TEST(SliderDrag, BeginsOnlyWhileTheButtonIsDown)
{
    SliderModel slider = slider_at(50);
    slider.pressed = true;
    EXPECT_TRUE(ovlib::begin_slider_drag(slider, true));
    EXPECT_TRUE(slider.captured && slider.pressed);
    EXPECT_FALSE(ovlib::begin_slider_drag(slider, true)) << "already captured";
    slider.captured = false;
    EXPECT_FALSE(ovlib::begin_slider_drag(slider, false)) << "released while the parent asked a question";
    EXPECT_FALSE(slider.captured || slider.pressed);
    EXPECT_FALSE(ovlib::begin_slider_drag(slider, true)) << "the parent ended the press";
}

TEST(SliderDrag, NotifiesOnlyChanges)
{
    SliderModel slider = slider_at(50);
    EXPECT_FALSE(ovlib::drag_slider(slider, 50));
    EXPECT_EQ(ovlib::drag_slider(slider, 51), (SliderNotice{ SliderCode::thumb_track, 51 }));
    EXPECT_EQ(ovlib::drag_slider(slider, 900), (SliderNotice{ SliderCode::thumb_track, 100 }));
    EXPECT_FALSE(ovlib::drag_slider(slider, 5000));
}

TEST(SliderDrag, EndsOnceByTheFirstMessageThatEndsIt)
{
    SliderModel slider = slider_at(50);
    slider.pressed = slider.captured = true;
    EXPECT_EQ(ovlib::release_slider(slider), (SliderNotice{ SliderCode::thumb_position, 50 }));
    EXPECT_FALSE(slider.captured || slider.pressed);
    EXPECT_FALSE(ovlib::release_slider(slider));
}

TEST(SliderPicture, TheBarIsShadedFromItsMiddle)
{
    const SliderModel slider = slider_at(50);
    const auto bar = ovlib::slider_bar(slider);
    EXPECT_EQ(bar[0], (FilledRect{ { 8, 7, 208, 20 }, groove }));
    const auto row = [](int y, Color color) { return FilledRect{ { 8, y, 107, y + 1 }, color }; };
    EXPECT_EQ(bar[1], row(12, fill));
    EXPECT_EQ(bar[2], row(13, fill));
    EXPECT_EQ(bar[3], row(11, fill.shade(-45)));
    EXPECT_EQ(bar[4], row(14, fill.shade(-45)));
    EXPECT_EQ(bar[5], row(10, fill.shade(-90)));
    EXPECT_EQ(bar[6], row(15, fill.shade(-90)));
}

TEST(SliderPicture, WithoutAFillThereIsNoBarAndTheThumbTakesTheBackground)
{
    SliderModel slider = slider_at(50);
    slider.fill = Color{};
    const auto bar = ovlib::slider_bar(slider);
    EXPECT_EQ(bar[0].rect, slider.track);
    for (std::size_t i = 1; i < bar.size(); ++i)
        EXPECT_EQ(bar[i].rect, Rect{});
    EXPECT_EQ(ovlib::thumb_color(slider), back.shade(-32));
    slider.pressed = true;
    EXPECT_EQ(ovlib::thumb_color(slider), back);
}

TEST(SliderPicture, AFrameSurroundsTheTrack)
{
    const auto frame = ovlib::slider_frame(slider_at(50));
    EXPECT_EQ(frame[0], (Stroke{ { Point{ 7, 20 }, Point{ 7, 6 }, Point{ 208, 6 } }, back.shade(-100) }));
    EXPECT_EQ(frame[1], (Stroke{ { Point{ 208, 6 }, Point{ 208, 20 }, Point{ 7, 20 } }, back.shade(120) }));
}

TEST(SliderPicture, TheThumbIsRaisedAndBrighterWhilePressed)
{
    SliderModel slider = slider_at(50);
    const Color plain = fill.shade(-32);
    EXPECT_EQ(ovlib::thumb_color(slider), plain);
    const auto edges = ovlib::thumb_edges(slider);
    EXPECT_EQ(edges[0], (Stroke{ { Point{ 113, 3 }, Point{ 103, 3 }, Point{ 103, 22 } }, plain.shade(150) }));
    EXPECT_EQ(
        edges[1], (Stroke{ { Point{ 103, 22 }, Point{ 113, 22 }, Point{ 113, 3 } }, plain.shade(-100) }));
    slider.pressed = true;
    EXPECT_EQ(ovlib::thumb_color(slider), fill);
    EXPECT_EQ(ovlib::thumb_edges(slider)[0].color, fill.shade(150));
    EXPECT_EQ(ovlib::thumb_edges(slider)[1].color, fill.shade(-100));
}

TEST(SliderPicture, ABorderIsSunkenOrRaised)
{
    SliderModel slider = slider_at(50);
    slider.border_style = SliderBorder::sunken;
    const auto sunken = ovlib::slider_border(slider, { 216, 28 });
    EXPECT_EQ(sunken[0], (Stroke{ { Point{ 0, 28 }, Point{ 0, 0 }, Point{ 215, 0 } }, back.shade(-100) }));
    EXPECT_EQ(sunken[1], (Stroke{ { Point{ 215, 0 }, Point{ 215, 27 }, Point{ 0, 27 } }, back.shade(150) }));
    slider.border_style = SliderBorder::raised;
    const auto raised = ovlib::slider_border(slider, { 216, 28 });
    EXPECT_EQ(raised[0].points, sunken[0].points);
    EXPECT_EQ(raised[0].color, back.shade(150));
    EXPECT_EQ(raised[1].color, back.shade(-100));
}

} // namespace
