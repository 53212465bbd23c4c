// The strip that shows all pages of a Book.
#include "core/folders.hpp"
#include "look/theme.hpp"
#include "look/wnd/page_bar.hpp"
#include "platform/process_log.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_folder.hpp"
#include "tests/support/gui_picture.hpp"
#include <gtest/gtest.h>

namespace {

using book::PageSelection;
using gui::pixel;
using look::PageBar;
using look::palette;
using ovlib::Color;

Color blended(Color old, Color span)
{
    const auto mix = [](std::uint32_t below, std::uint32_t above) { return (160 * below + 96 * above) >> 8; };
    return ovlib::rgb(
        mix(old.red(), span.red()), mix(old.green(), span.green()), mix(old.blue(), span.blue()));
}

class PageBarWindow : public testing::Test {
protected:
    void SetUp() override
    {
        look::load_theme(look::theme_standard);
        before = core::folders();
        core::folders().res = folder.path();
        book.pages.resize(10);
    }
    void TearDown() override { core::folders() = before; }

    // Red except for its left column, which is white.
    void write_indicator()
    {
        std::vector<unsigned char> file = gui::bmp_file(9, 21, ovlib::rgb(255, 0, 0));
        for (std::size_t row = 0; row < 21; ++row)
            std::fill_n(file.begin() + 54 + static_cast<std::ptrdiff_t>(row) * 28, 3, 255);
        folder.write(L"indicator.bmp", file);
    }
    void show(PageBar& bar, std::size_t first, std::size_t last, std::size_t current)
    {
        bar.redraw_strip();
        bar.draw(first, last, current);
    }

    gui::TempFolder folder;
    core::Folders before;
    book::Book book;
};

TEST_F(PageBarWindow, ShowsRunsSpanAndFrameInTheColoursOfEveryTheme)
{
    book.pages[2].selected = PageSelection::selected; // x from 74 to 111
    book.pages[3].selected = PageSelection::pasted; // x from 111 to 148
    PageBar bar(&book);
    for (std::int32_t theme = 6000; theme <= 6005; ++theme) {
        SCOPED_TRACE(theme);
        look::load_theme(theme);
        show(bar, 3, 5, 5);
        const ovlib::BackBuffer& view = bar.view();
        EXPECT_EQ(pixel(view, 60, 8), palette().bar_back);
        EXPECT_EQ(pixel(view, 90, 3), palette().bar_back);
        EXPECT_EQ(pixel(view, 90, 4), palette().selected_bar);
        EXPECT_EQ(pixel(view, 90, 11), palette().selected_bar);
        EXPECT_EQ(pixel(view, 90, 12), palette().bar_back);
        EXPECT_EQ(pixel(view, 74, 8), palette().selected_bar);
        EXPECT_EQ(pixel(view, 73, 8), palette().bar_back);
        EXPECT_EQ(pixel(view, 111, 8), blended(palette().pasted_bar, palette().bar_view));
        EXPECT_EQ(pixel(view, 200, 8), blended(palette().bar_back, palette().bar_view));
        EXPECT_EQ(pixel(view, 221, 1), blended(palette().bar_back, palette().bar_view));
        EXPECT_EQ(pixel(view, 222, 1), palette().bar_back);
        EXPECT_EQ(pixel(view, 0, 8), palette().panel_back.shade(-150));
        EXPECT_EQ(pixel(view, 60, 0), palette().panel_back.shade(-150));
        EXPECT_EQ(pixel(view, 369, 8), palette().panel_back.shade(200));
        EXPECT_EQ(pixel(view, 60, 15), palette().panel_back.shade(200));
    }
}

TEST_F(PageBarWindow, OfAnEmptyBookShowsOnlyTheFrame)
{
    write_indicator();
    book.pages.clear();
    PageBar bar(&book);
    show(bar, 0, 0, 0);
    EXPECT_EQ(gui::count_pixels(bar.view(), palette().bar_back), 368 * 14);
    PageBar without(nullptr);
    show(without, 0, 0, 0);
    EXPECT_EQ(gui::count_pixels(without.view(), palette().bar_back), 368 * 14);
}

TEST_F(PageBarWindow, ShowsRunsOfAThousandPagesAPixelWide)
{
    book.pages.resize(1000);
    book.pages[500].selected = PageSelection::selected;
    PageBar bar(&book);
    show(bar, 0, 0, 0);
    EXPECT_EQ(gui::count_pixels(bar.view(), palette().selected_bar), 8);
    EXPECT_EQ(pixel(bar.view(), 185, 8), palette().selected_bar);
    EXPECT_EQ(pixel(bar.view(), 0, 8), blended(palette().panel_back.shade(-150), palette().bar_view));
    EXPECT_EQ(pixel(bar.view(), 1, 8), palette().bar_back);
}

TEST_F(PageBarWindow, TheIndicatorIsTransparentWhereItIsWhite)
{
    write_indicator();
    look::load_theme(look::theme_dark); // its background is not white
    PageBar bar(&book);
    show(bar, 0, 0, 5); // its left side is at 203 - 4
    const Color red = ovlib::rgb(255, 0, 0);
    EXPECT_EQ(pixel(bar.view(), 199, 8), palette().bar_back) << "its white column";
    EXPECT_EQ(pixel(bar.view(), 200, 8), red);
    EXPECT_EQ(pixel(bar.view(), 207, 0), red);
    EXPECT_EQ(pixel(bar.view(), 207, 15), red) << "5 rows above the strip, 16 in it";
    EXPECT_EQ(pixel(bar.view(), 208, 8), palette().bar_back);
    bar.draw(0, 0, 9);
    EXPECT_EQ(pixel(bar.view(), 203, 8), palette().bar_back) << "drawn anew from the strip";
    EXPECT_EQ(pixel(bar.view(), 350, 8), red);
    bar.draw(0, 0, 500);
    EXPECT_EQ(pixel(bar.view(), 350, 8), red) << "past the end it stands at the last page";
}

TEST_F(PageBarWindow, WorksWithoutItsIndicatorAndLogsThat)
{
    auto& log = ovlib::WinApp::process_log();
    log.set_path(folder.file(L"log.txt"));
    PageBar bar(&book);
    EXPECT_EQ(log.buffered(), L"イメージの作成に失敗: indicator_bmp_\r\n");
    log.flush();
    log.set_path(L"");
    show(bar, 0, 9, 3);
    EXPECT_EQ(pixel(bar.view(), 200, 8), blended(palette().bar_back, palette().bar_view));
}

TEST_F(PageBarWindow, SeventyThousandPaintsCostNoHandle)
{
    write_indicator();
    PageBar bar(&book);
    const gui::GdiCrowd crowd;
    for (std::size_t i = 0; i < 70'000; ++i) {
        book.pages[i % 10].selected = static_cast<PageSelection>(i % 3);
        if (i % 10 == 0)
            bar.redraw_strip();
        bar.draw(i % 10, i % 7, i % 10);
    }
    EXPECT_NE(pixel(bar.view(), 20, 8), Color{});
    gui::expect_handles_to_spare();
}

} // namespace
