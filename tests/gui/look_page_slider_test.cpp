// The slider that moves through the pages, as a real window.
#include "look/theme.hpp"
#include "look/wnd/myslider.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_mouse.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_slider.hpp"
#include <gtest/gtest.h>

namespace {

using look::PageMove;
using look::palette;
using ovlib::Color;
using platform::Rect;
using Notices = gui::SliderHost::Notices;

class PageSlider : public testing::Test {
protected:
    void SetUp() override
    {
        look::load_theme(look::theme_standard);
        ASSERT_TRUE(host.create(L"host"));
        ASSERT_TRUE(slider.create(L""));
        slider.set_font(font.handle());
        slider.set_rect({ 20, 10, 20 + 355, 10 + 30 }, true);
        slider.apply_theme();
        slider.show_page(1000, 0);
        gui::pump();
    }
    void TearDown() override { host.destroy(); }

    // The number of pixels in the label's colour to the right of the track.
    int label_ink() const
    {
        const Color color = look::page_label_color(slider.back, slider.fill);
        int count = 0;
        for (int y = 1; y < 29; ++y) {
            for (int x = 283; x < 354; ++x)
                count += gui::pixel(slider.buffer, x, y) == color ? 1 : 0;
        }
        return count;
    }

    ovlib::GDI::Font font{ CreateFontW(-14, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
        OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, NONANTIALIASED_QUALITY, DEFAULT_PITCH, L"IPAGothic") };
    gui::SliderHost host;
    look::MySlider slider{ &host, 8 };
};

TEST_F(PageSlider, HasItsTrackBetweenTwoMargins)
{
    EXPECT_EQ(slider.track, (Rect{ 48, 8, 277, 21 }));
    EXPECT_EQ(slider.border_style, ovlib::SliderBorder::sunken);
    EXPECT_EQ(gui::pixel(slider.buffer, 0, 10), palette().slider_back.shade(-100));
}

TEST_F(PageSlider, LeavesTheThumbOnTheWiderTrackUntilTheNextUpdate)
{
    slider.show_page(101, 50);
    slider.layout();
    EXPECT_EQ(slider.track, (Rect{ 48, 8, 277, 21 }));
    EXPECT_EQ(slider.thumb.left, 178 - 5) << "50 of 100 on 8 to 347";
    slider.update_thumb();
    EXPECT_EQ(slider.thumb.left, 163 - 5) << "50 of 100 on 48 to 277";
}

TEST_F(PageSlider, OfABookOfOnePageIsAtTheLeftAndShowsOne)
{
    slider.show_page(1, 0);
    EXPECT_EQ(slider.max, 0);
    EXPECT_EQ(slider.thumb.left, slider.track.left - 5);
    EXPECT_GT(label_ink(), 0);
    slider.show_page(0, 0);
    EXPECT_EQ(slider.max, 0);
    EXPECT_EQ(slider.value, 0);
}

TEST_F(PageSlider, ShowsTheNumberOfThePageBesideTheTrack)
{
    const int one = label_ink();
    EXPECT_GT(one, 5);
    slider.show_page(100'000, 88'887);
    EXPECT_EQ(slider.value, 88'887);
    EXPECT_GT(label_ink(), 3 * one);
    EXPECT_EQ(gui::pixel(slider.buffer, 352, 15), slider.back) << "the longest number has room";
}

TEST_F(PageSlider, WritesTheNumberInTheFontThatWasSet)
{
    const ovlib::GDI::Font larger{ CreateFontW(-18, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
        OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, NONANTIALIASED_QUALITY, DEFAULT_PITCH, L"Arial") };
    for (HFONT const given : { font.handle(), larger.handle() }) {
        slider.set_font(given);
        EXPECT_EQ(slider.font(), given);
        slider.show_page(100'000, 88'887);

        ovlib::BackBuffer expected;
        ASSERT_TRUE(expected.create(355, 30));
        gui::clear(expected, slider.back);
        const ovlib::DC& dc = expected.dc();
        const ovlib::ObjectSelection selected(dc, given);
        TEXTMETRICW metrics{};
        GetTextMetricsW(dc.handle(), &metrics);
        SetBkMode(dc.handle(), TRANSPARENT);
        SetTextColor(dc.handle(), look::page_label_color(slider.back, slider.fill).value);
        TextOutW(dc.handle(), 277 + 6, (30 - metrics.tmHeight) / 2, L"88888", 5);
        for (int y = 1; y < 29; ++y) {
            for (int x = 283; x < 354; ++x)
                ASSERT_EQ(gui::pixel(slider.buffer, x, y), gui::pixel(expected, x, y)) << x << ' ' << y;
        }
    }
}

TEST_F(PageSlider, HasTheColoursOfEveryTheme)
{
    for (std::int32_t theme = 6000; theme <= 6005; ++theme) {
        SCOPED_TRACE(theme);
        look::load_theme(theme);
        slider.apply_theme();
        EXPECT_EQ(slider.groove, palette().slider_groove);
        EXPECT_EQ(slider.fill, palette().accent);
        EXPECT_EQ(slider.back, palette().slider_back);
        EXPECT_EQ(gui::pixel(slider.buffer, 20, 15), palette().slider_back);
        EXPECT_EQ(gui::pixel(slider.buffer, 200, 15), palette().slider_groove);
        EXPECT_GT(label_ink(), 5);
    }
}

TEST_F(PageSlider, ShowsNewColoursOnTheScreenAlone)
{
    look::load_theme(look::theme_dark);
    slider.apply_theme();
    gui::pump();
    const ovlib::ClientDC screen(slider);
    EXPECT_EQ(Color{ GetPixel(screen.handle(), 20, 15) }, palette().slider_back);
}

TEST_F(PageSlider, FollowsAChangeOfThemeWithTheOtherWindows)
{
    look::load_theme(look::theme_dark);
    look::apply_theme_to_windows();
    EXPECT_EQ(slider.back, palette().slider_back);
    EXPECT_EQ(gui::pixel(slider.buffer, 20, 15), palette().slider_back);
}

// The whole exchange with an owner: a click left of the thumb goes directly to the page under it.
TEST_F(PageSlider, AClickLeftOfTheThumbTurnsToThePageUnderIt)
{
    std::uint64_t position = 800;
    slider.show_page(1000, position);
    host.on_notice = [&] {
        if (look::page_move(host.notices.back().first, slider.value, position, 1000) == PageMove::turn)
            position = static_cast<std::uint64_t>(slider.value);
    };
    gui::Mouse mouse(slider.hwnd());
    ASSERT_TRUE(mouse.move({ 108, 14 }));
    ASSERT_TRUE(mouse.press() && mouse.release());
    EXPECT_EQ(host.notices, (Notices{ { SB_PAGEUP, 0 }, { SB_THUMBPOSITION, 262 } }));
    EXPECT_EQ(position, 262u) << "60 of 229 pixels";
}

TEST_F(PageSlider, AcceptsAnyClientSize)
{
    for (const int width : { 0, 1, 20, 60, 100, 118, 119 }) {
        slider.set_rect({ 0, 0, width, 30 }, true);
        slider.show_page(1000, 500);
        EXPECT_EQ(slider.buffer.width, std::max(width, 1));
        slider.send(WM_LBUTTONDOWN, MK_LBUTTON, 0);
    }
}

TEST_F(PageSlider, SeventyThousandPaintsCostNoHandle)
{
    const gui::GdiCrowd crowd;
    for (std::uint64_t i = 0; i < 70'000; ++i) {
        set_page_range(slider, 1000, i % 1000);
        slider.update_thumb();
        slider.redraw();
    }
    slider.repaint();
    EXPECT_GT(label_ink(), 0);
    gui::expect_handles_to_spare();
}

} // namespace
