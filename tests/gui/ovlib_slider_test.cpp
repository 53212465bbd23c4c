// The custom-drawn slider: its painting, and its notifications when it is moved.
#include "look/theme.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_driver.hpp"
#include "tests/support/gui_mouse.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_screen_copies.hpp"
#include "tests/support/gui_slider.hpp"
#include <gtest/gtest.h>
#include <memory>

namespace {

using gui::pixel;
using ovlib::Color;
using ovlib::SliderBorder;
using Notices = gui::SliderHost::Notices;

constexpr int slider_id = 5;
constexpr LONG width = 216;
constexpr LONG height = 28;

class Slider : public testing::Test {
protected:
    using Watched = gui::Watched<ovlib::HorzSlider>;

    void SetUp() override
    {
        ASSERT_TRUE(host.create(L"host"));
        ASSERT_TRUE(slider->create(L""));
        slider->max = 100;
        slider->value = 50;
        take_colors(look::theme_standard);
        slider->set_rect({ 20, 10, 20 + width, 10 + height }, true);
        slider->update_thumb();
        slider->redraw();
        slider->repaint();
        gui::pump();
    }
    void TearDown() override { host.destroy(); }

    void take_colors(std::int32_t theme)
    {
        const look::ThemePalette colors = look::theme_colors(theme);
        slider->groove = colors.slider_groove;
        slider->fill = colors.accent;
        slider->back = colors.slider_back;
    }
    Color at(int x, int y) const { return pixel(slider->buffer, x, y); }
    void expect_bar_rows(Color fill)
    {
        const int shades[] = { -90, -45, 0, 0, -45, -90 };
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(at(50, 10 + i), fill.shade(shades[i])) << "row " << 10 + i;
        EXPECT_EQ(at(50, 9), slider->groove);
        EXPECT_EQ(at(50, 16), slider->groove);
    }

    gui::SliderHost host;
    std::unique_ptr<Watched> slider = std::make_unique<Watched>(&host, slider_id);
};

TEST_F(Slider, IsCreatedWithoutASizeAndLaysItselfOutWhenItGetsOne)
{
    ovlib::HorzSlider other(&host, 6);
    ASSERT_TRUE(other.create(L""));
    EXPECT_EQ(other.size().cx, 0);
    EXPECT_EQ(other.buffer.width, 1);
    EXPECT_EQ(GetWindowLongW(other.hwnd(), GWL_STYLE), 0x56000000);
    other.set_rect({ 0, 50, 100, 80 }, true);
    EXPECT_EQ(other.buffer.width, 100);
    EXPECT_EQ(other.buffer.height, 30);
    EXPECT_EQ(other.track, (platform::Rect{ 8, 8, 92, 21 }));
    EXPECT_EQ(other.thumb, (platform::Rect{ 3, 4, 13, 23 }));
    const HBITMAP bitmap = other.buffer.bitmap();
    other.send(WM_SIZE, 0, 0);
    EXPECT_EQ(other.buffer.bitmap(), bitmap) << "the size is the same";
    other.destroy();
    EXPECT_FALSE(other.buffer.is_created());
}

TEST_F(Slider, PaintsItsPartsInTheColoursOfEveryTheme)
{
    for (std::int32_t theme = 6000; theme <= 6005; ++theme) {
        SCOPED_TRACE(theme);
        take_colors(theme);
        slider->redraw();
        const Color back = slider->back;
        const Color thumb = slider->fill.shade(-32);
        EXPECT_EQ(at(0, 0), back);
        EXPECT_EQ(at(2, 14), back);
        EXPECT_EQ(at(width - 1, height - 1), back);
        EXPECT_EQ(at(150, 8), slider->groove);
        EXPECT_EQ(at(206, 18), slider->groove);
        expect_bar_rows(slider->fill);
        EXPECT_EQ(at(150, 6), back.shade(-100)) << "the frame's upper edge";
        EXPECT_EQ(at(7, 13), back.shade(-100)) << "and left one";
        EXPECT_EQ(at(150, 20), back.shade(120)) << "and lower one";
        EXPECT_EQ(at(208, 13), back.shade(120)) << "and right one";
        EXPECT_EQ(at(108, 12), thumb);
        EXPECT_EQ(at(108, 3), thumb.shade(150)) << "the thumb's upper edge";
        EXPECT_EQ(at(103, 12), thumb.shade(150)) << "and left one";
        EXPECT_EQ(at(108, 22), thumb.shade(-100)) << "and lower one";
        EXPECT_EQ(at(113, 12), thumb.shade(-100)) << "and right one";
    }
}

TEST_F(Slider, ShowsAPressedThumbUnshaded)
{
    slider->pressed = true;
    slider->redraw();
    EXPECT_EQ(at(108, 12), slider->fill);
    EXPECT_EQ(at(103, 12), slider->fill.shade(150));
    EXPECT_EQ(at(113, 12), slider->fill.shade(-100));
}

TEST_F(Slider, WithoutAFillDrawsNoBarAndAThumbInTheBackground)
{
    slider->fill = Color{};
    slider->redraw();
    for (int y = 8; y < 19; ++y)
        EXPECT_EQ(at(50, y), slider->groove);
    EXPECT_EQ(at(108, 12), slider->back.shade(-32));
}

TEST_F(Slider, DrawsABorderSunkenOrRaised)
{
    slider->border_style = SliderBorder::sunken;
    slider->redraw();
    const Color dark = slider->back.shade(-100);
    const Color light = slider->back.shade(150);
    EXPECT_EQ(at(0, height - 1), dark) << "the left line runs through";
    EXPECT_EQ(at(1, height - 1), light);
    EXPECT_EQ(at(100, 0), dark);
    EXPECT_EQ(at(width - 1, 0), light);
    EXPECT_EQ(at(width - 1, 14), light);
    EXPECT_EQ(at(100, height - 1), light);
    slider->border_style = SliderBorder::raised;
    slider->redraw();
    EXPECT_EQ(at(0, 14), light);
    EXPECT_EQ(at(100, 0), light);
    EXPECT_EQ(at(width - 1, 14), dark);
    EXPECT_EQ(at(100, height - 1), dark);
}

TEST_F(Slider, StaysAtTheLeftEndOfAnEmptyRange)
{
    slider->max = 0;
    slider->value = 0;
    slider->update_thumb();
    EXPECT_EQ(slider->thumb.left, slider->track.left - 5);
    gui::Mouse mouse(slider->hwnd());
    ASSERT_TRUE(mouse.move({ 150, 14 }));
    ASSERT_TRUE(mouse.press() && mouse.release());
    EXPECT_EQ(slider->value, 0);
    EXPECT_EQ(host.notices, (Notices{ { SB_PAGEDOWN, 0 }, { SB_THUMBPOSITION, 0 } }));
}

TEST_F(Slider, ReachesTheScreenInOneCopyWithoutErasing)
{
    const gui::ScreenCopies copies;
    slider->seen.clear();
    slider->repaint();
    EXPECT_EQ(slider->count(WM_PAINT), 1);
    EXPECT_EQ(copies.count(), 1);
    EXPECT_EQ(slider->send(WM_ERASEBKGND, 0, 0), 1);
    const ovlib::ClientDC screen(*slider);
    EXPECT_EQ(Color{ GetPixel(screen.handle(), 108, 12) }, at(108, 12));
}

TEST_F(Slider, DoesNotRepaintBeforeItsCreation)
{
    ovlib::HorzSlider other(&host, 6);
    slider->seen.clear();
    other.redraw();
    other.repaint();
    gui::pump();
    EXPECT_EQ(slider->count(WM_PAINT), 0);
}

TEST_F(Slider, ADragNotifiesOfEveryChangeAndOnceOfItsEnd)
{
    gui::Mouse mouse(slider->hwnd());
    ASSERT_TRUE(mouse.move({ 108, 14 }));
    ASSERT_TRUE(mouse.press());
    EXPECT_EQ(GetCapture(), slider->hwnd());
    EXPECT_TRUE(slider->pressed);
    ASSERT_TRUE(mouse.move({ 128, 14 }));
    ASSERT_TRUE(mouse.move({ 128, 60 })) << "outside, with the same value";
    ASSERT_TRUE(mouse.move({ 300, 60 }));
    ASSERT_TRUE(mouse.release());
    EXPECT_EQ(host.notices,
        (Notices{ { SB_THUMBTRACK, 50 }, { SB_THUMBTRACK, 60 }, { SB_THUMBTRACK, 100 },
            { SB_THUMBPOSITION, 100 } }));
    EXPECT_EQ(host.sender, slider->hwnd());
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(slider->pressed || slider->captured);
    EXPECT_EQ(slider->thumb.left, 202);
    EXPECT_EQ(at(207, 12), slider->fill.shade(-32)) << "drawn where it was dragged to, no longer pressed";
    ASSERT_TRUE(mouse.move({ 30, 14 }));
    EXPECT_EQ(host.notices.size(), 4u) << "the drag is over";
}

TEST_F(Slider, AClickOnTheTrackGoesThereAndNotifiesOfAPage)
{
    gui::Mouse mouse(slider->hwnd());
    ASSERT_TRUE(mouse.move({ 48, 14 }));
    std::vector<int> values;
    host.on_notice = [&] { values.push_back(slider->value); };
    ASSERT_TRUE(mouse.press() && mouse.release());
    EXPECT_EQ(host.notices, (Notices{ { SB_PAGEUP, 0 }, { SB_THUMBPOSITION, 20 } }));
    EXPECT_EQ(values.front(), 20) << "set before the parent hears of it";
    ASSERT_TRUE(mouse.move({ 188, 14 }));
    ASSERT_TRUE(mouse.press());
    EXPECT_EQ(host.notices.back(), (std::pair{ SB_PAGEDOWN, 0 }));
    ASSERT_TRUE(mouse.move({ 168, 14 }));
    EXPECT_EQ(host.notices.back(), (std::pair{ SB_THUMBTRACK, 80 })) << "a drag may begin on the track";
    ASSERT_TRUE(mouse.release());
}

TEST_F(Slider, AClickOutsideTheTrackNotifiesOfNothing)
{
    gui::Mouse mouse(slider->hwnd());
    ASSERT_TRUE(mouse.move({ 150, 26 }));
    ASSERT_TRUE(mouse.press());
    EXPECT_EQ(GetCapture(), nullptr);
    ASSERT_TRUE(mouse.release());
    EXPECT_TRUE(host.notices.empty());
    EXPECT_EQ(slider->value, 50);
}

TEST_F(Slider, LosesTheCaptureToAnotherWindowThatKeepsIt)
{
    gui::Mouse mouse(slider->hwnd());
    ASSERT_TRUE(mouse.move({ 108, 14 }));
    ASSERT_TRUE(mouse.press());
    SetCapture(host.hwnd());
    EXPECT_EQ(host.notices, (Notices{ { SB_THUMBTRACK, 50 }, { SB_THUMBPOSITION, 50 } }));
    EXPECT_EQ(GetCapture(), host.hwnd());
    EXPECT_FALSE(slider->pressed || slider->captured);
    ReleaseCapture();
    ASSERT_TRUE(mouse.release());
    EXPECT_EQ(host.notices.size(), 2u);
}

TEST_F(Slider, EndsADragWhenItLosesTheFocus)
{
    gui::Mouse mouse(slider->hwnd());
    ASSERT_TRUE(mouse.move({ 108, 14 }));
    ASSERT_TRUE(mouse.press());
    slider->send(WM_KILLFOCUS, 0, 0);
    EXPECT_EQ(host.notices.back(), (std::pair{ SB_THUMBPOSITION, 50 }));
    EXPECT_EQ(GetCapture(), nullptr);
    ASSERT_TRUE(mouse.release());
    EXPECT_EQ(host.notices.size(), 2u) << "told once";
}

TEST_F(Slider, EndsADragWhoseButtonWasReleasedUnseen)
{
    gui::Mouse mouse(slider->hwnd());
    ASSERT_TRUE(mouse.move({ 108, 14 }));
    ASSERT_TRUE(mouse.press());
    slider->send(WM_MOUSEMOVE, 0, 0);
    EXPECT_EQ(host.notices.back(), (std::pair{ SB_THUMBPOSITION, 50 }));
    EXPECT_FALSE(slider->captured);
}

// The parent shows a question that is answered before the notification returns.
TEST_F(Slider, DoesNotCaptureTheMouseIfTheButtonIsUpAgain)
{
    gui::Mouse mouse(slider->hwnd());
    ASSERT_TRUE(mouse.move({ 48, 14 }));
    host.on_notice = [&] { EXPECT_TRUE(mouse.release()); };
    mouse.push();
    ASSERT_TRUE(gui::pump_until([&] { return !host.notices.empty(); }));
    host.on_notice = {};
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(slider->pressed || slider->captured);
    EXPECT_EQ(at(48, 12), slider->fill.shade(-32)) << "not drawn as pressed";
    ASSERT_TRUE(mouse.move({ 150, 14 }));
    EXPECT_EQ(host.notices, (Notices{ { SB_PAGEUP, 0 } }));
}

TEST_F(Slider, AQuestionDuringADragEndsIt)
{
    gui::Mouse mouse(slider->hwnd());
    ASSERT_TRUE(mouse.move({ 108, 14 }));
    ASSERT_TRUE(mouse.press());
    host.on_notice = [&] {
        host.on_notice = {};
        gui::DialogDriver user([](HWND box) { PostMessageW(box, WM_COMMAND, IDOK, 0); });
        host.message_box(L"保存しますか？", L"", MB_OK);
        EXPECT_TRUE(user.finish());
    };
    ASSERT_TRUE(mouse.move({ 128, 14 }));
    EXPECT_FALSE(slider->captured || slider->pressed);
    EXPECT_EQ(GetCapture(), nullptr);
    ASSERT_TRUE(mouse.move({ 168, 14 }));
    ASSERT_TRUE(mouse.release());
    EXPECT_EQ(
        host.notices, (Notices{ { SB_THUMBTRACK, 50 }, { SB_THUMBTRACK, 60 }, { SB_THUMBPOSITION, 60 } }));
}

TEST_F(Slider, ARefusedMoveGoesBackAndEndsTheDrag)
{
    gui::Mouse mouse(slider->hwnd());
    ASSERT_TRUE(mouse.move({ 48, 14 }));
    host.on_notice = [&] { slider->refuse_move(50); };
    ASSERT_TRUE(mouse.press());
    EXPECT_EQ(slider->value, 50);
    EXPECT_EQ(slider->thumb.left, 103);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(slider->pressed);
    EXPECT_EQ(at(108, 12), slider->fill.shade(-32));
    ASSERT_TRUE(mouse.move({ 150, 14 }));
    EXPECT_EQ(host.notices, (Notices{ { SB_PAGEUP, 0 } }));
}

TEST_F(Slider, ARefusedMoveEndsADragWithoutANotification)
{
    gui::Mouse mouse(slider->hwnd());
    ASSERT_TRUE(mouse.move({ 108, 14 }));
    ASSERT_TRUE(mouse.press());
    host.on_notice = [&] { slider->refuse_move(50); };
    ASSERT_TRUE(mouse.move({ 128, 14 }));
    EXPECT_EQ(host.notices, (Notices{ { SB_THUMBTRACK, 50 }, { SB_THUMBTRACK, 60 } }));
    EXPECT_EQ(slider->value, 50);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(Slider, CanBeDeletedDuringItsNotification)
{
    gui::Mouse mouse(host.hwnd());
    ASSERT_TRUE(mouse.move({ 20 + 48, 10 + 14 }));
    host.on_notice = [&] {
        slider->destroy();
        slider.reset();
    };
    ASSERT_TRUE(mouse.press());
    EXPECT_EQ(slider, nullptr);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(Slider, DestroyedDuringItsNotificationCapturesNoMouse)
{
    gui::Mouse mouse(host.hwnd());
    ASSERT_TRUE(mouse.move({ 20 + 48, 10 + 14 }));
    host.on_notice = [&] { slider->destroy(); };
    ASSERT_TRUE(mouse.press());
    EXPECT_EQ(slider->hwnd(), nullptr);
    EXPECT_FALSE(slider->captured);
}

TEST_F(Slider, DestroyedDuringADragReleasesTheCaptureWithoutANotification)
{
    gui::Mouse mouse(slider->hwnd());
    ASSERT_TRUE(mouse.move({ 108, 14 }));
    ASSERT_TRUE(mouse.press());
    slider->destroy();
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(host.notices, (Notices{ { SB_THUMBTRACK, 50 } }));
    EXPECT_FALSE(slider->buffer.is_created());
}

TEST_F(Slider, NotifiesOfPositionsBeyondSixteenBits)
{
    slider->notify(SB_THUMBTRACK, 99'999);
    EXPECT_EQ(host.notices, (Notices{ { SB_THUMBTRACK, 99'999 } }));
}

TEST_F(Slider, BorrowsItsFont)
{
    const ovlib::GDI::Font font(CreateFontW(-12, 0, 0, 0, 400, 0, 0, 0, 1, 0, 0, 0, 0, L"Arial"));
    EXPECT_EQ(slider->font(), GetStockObject(SYSTEM_FONT));
    slider->send(WM_SETFONT, reinterpret_cast<WPARAM>(font.handle()), TRUE);
    EXPECT_EQ(slider->font(), font.handle());
    EXPECT_EQ(slider->send(WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(font.handle()));
    slider->set_font(nullptr);
    slider->set_font(font.handle());
    slider.reset();
    EXPECT_NE(GetObjectType(font.handle()), 0u);
}

TEST_F(Slider, ClosesIfItsBufferCannotBeCreated)
{
    slider->buffer.release();
    {
        const gui::GdiCrowd crowd(0);
        slider->send(WM_SIZE, 0, 0);
    }
    EXPECT_EQ(slider->count(WM_CLOSE), 1);
    EXPECT_EQ(slider->hwnd(), nullptr);
}

TEST_F(Slider, SeventyThousandPaintsCostNoHandle)
{
    const gui::GdiCrowd crowd;
    slider->border_style = SliderBorder::sunken;
    for (int i = 0; i < 70'000; ++i) {
        slider->value = i % 101;
        slider->pressed = i % 2 == 0;
        slider->update_thumb();
        slider->redraw();
        if (i % 10 == 0) // still far more often than there are free handles
            slider->repaint();
    }
    EXPECT_EQ(at(108, 0), slider->back.shade(-100));
    gui::expect_handles_to_spare();
}

} // namespace
