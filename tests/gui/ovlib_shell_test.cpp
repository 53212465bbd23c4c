// Facts from the shell and the system about files and scroll bars.
#include "media/wnd/shell_thumbnail.hpp"
#include "ovlib/gui/scrollbar.hpp"
#include "ovlib/gui/shicon.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_folder.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_window.hpp"
#include <commctrl.h>
#include <gtest/gtest.h>
#include <objbase.h>
#include <shellapi.h>

namespace {

using ovlib::SHIcon;

constexpr std::size_t few = 200; // handles that are still available, so that a leak is found soon

class Shell : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))); }
    void TearDown() override { CoUninitialize(); }

    gui::TempFolder folder;
};

// The number of pixels that an icon covers on a plain background.
int ink_of(HICON icon, int side)
{
    ovlib::BackBuffer canvas;
    canvas.create(side, side);
    const ovlib::Color ground = ovlib::rgb(1, 2, 3);
    gui::clear(canvas, ground);
    DrawIconEx(canvas.dc().handle(), 0, 0, icon, side, side, 0, nullptr, DI_NORMAL);
    return side * side - gui::count_pixels(canvas, ground);
}

TEST_F(Shell, HasAnIconForAFileThatDoesNotExist)
{
    SHIcon icon;
    EXPECT_FALSE(icon);
    icon.load(folder.file(L"無い.txt"), SHIL_LARGE);
    ASSERT_TRUE(icon);
    EXPECT_EQ(icon.width(), GetSystemMetrics(SM_CXICON));
    EXPECT_EQ(icon.height(), GetSystemMetrics(SM_CYICON));
    EXPECT_GT(ink_of(icon.icon(), icon.width()), 0);
}

TEST_F(Shell, HasAnotherIconForAFolder)
{
    SHIcon file;
    SHIcon directory;
    file.load(folder.file(L"a.txt"), SHIL_SMALL);
    directory.load(folder.path(), SHIL_SMALL);
    ASSERT_TRUE(file && directory);
    EXPECT_EQ(directory.width(), GetSystemMetrics(SM_CXSMICON));
    EXPECT_NE(ink_of(file.icon(), file.width()), ink_of(directory.icon(), directory.width()));
}

TEST_F(Shell, LoadsAnIconOnce)
{
    SHIcon icon;
    icon.load(folder.file(L"a.txt"), SHIL_SMALL);
    HICON const first = icon.icon();
    icon.load(folder.path(), SHIL_LARGE);
    EXPECT_EQ(icon.icon(), first);
    EXPECT_EQ(icon.width(), GetSystemMetrics(SM_CXSMICON));
}

TEST_F(Shell, OfAnUnknownListHasNoIcon)
{
    SHIcon icon;
    icon.load(folder.file(L"a.txt"), 99);
    EXPECT_FALSE(icon);
    EXPECT_EQ(icon.width(), 0);
    icon.load(folder.file(L"a.txt"), SHIL_SMALL);
    EXPECT_TRUE(icon) << "a failure leaves it ready for another try";
}

TEST_F(Shell, ReleasesEveryIcon)
{
    const gui::UserCrowd windows_taken(few);
    const gui::GdiCrowd crowd(few);
    for (std::size_t i = 0; i < 3 * few; ++i) {
        SHIcon icon;
        icon.load(L"a.txt", SHIL_SMALL);
        ASSERT_TRUE(icon) << "after " << i;
    }
    gui::expect_handles_to_spare(static_cast<int>(few) / 10);
}

TEST_F(Shell, HasNoThumbnailOfAMissingPath)
{
    media::ShellThumbnail thumbnail;
    thumbnail.load(folder.file(L"無い.mp4"), 256);
    EXPECT_FALSE(thumbnail);
    EXPECT_EQ(thumbnail.bitmap(), nullptr);
    EXPECT_EQ(thumbnail.width(), 0);
    thumbnail.load(L"", 256);
    EXPECT_FALSE(thumbnail);
}

// A shell may have no thumbnail for a text file. If it has one, it must fit.
TEST_F(Shell, AThumbnailFitsIntoItsSquare)
{
    const std::wstring path = folder.write(L"a.bmp", gui::bmp_file(600, 300, ovlib::rgb(200, 0, 0)));
    media::ShellThumbnail thumbnail;
    thumbnail.load(path, 64);
    EXPECT_EQ(thumbnail.width() > 0, static_cast<bool>(thumbnail));
    EXPECT_LE(thumbnail.width(), 64);
    EXPECT_LE(thumbnail.height(), 64);
    HBITMAP const bitmap = thumbnail.bitmap();
    if (thumbnail)
        thumbnail.load(folder.path(), 32);
    EXPECT_EQ(thumbnail.bitmap(), bitmap) << "loaded once";
    thumbnail.clear();
    EXPECT_EQ(thumbnail.width(), 0);
}

TEST_F(Shell, ReleasesEveryThumbnail)
{
    const std::wstring path = folder.write(L"a.bmp", gui::bmp_file(8, 8, ovlib::rgb(200, 0, 0)));
    const gui::GdiCrowd crowd(few);
    for (std::size_t i = 0; i < 3 * few; ++i) {
        media::ShellThumbnail thumbnail;
        thumbnail.load(path, 64);
    }
    gui::expect_handles_to_spare(static_cast<int>(few) / 10);
}

class Scrolling : public testing::Test {
protected:
    class Scrolled : public gui::TopWnd {
    public:
        void create_params(CREATESTRUCTW& params) override
        {
            TopWnd::create_params(params);
            params.style |= WS_VSCROLL | WS_HSCROLL;
        }
    };

    void SetUp() override
    {
        ASSERT_TRUE(wnd.create(L"scrolled"));
        set(SB_VERT, 0, 99, 20, 40);
        set(SB_HORZ, 10, 30, 0, 15);
    }
    void TearDown() override { wnd.destroy(); }

    void set(int bar, int min, int max, UINT page, int pos)
    {
        const SCROLLINFO info{ sizeof info, SIF_ALL | SIF_DISABLENOSCROLL, min, max, page, pos, 0 };
        SetScrollInfo(wnd.hwnd(), bar, &info, TRUE);
    }

    Scrolled wnd;
    ovlib::ScrollBar vertical{ &wnd, SB_VERT };
    ovlib::ScrollBar horizontal{ &wnd, SB_HORZ };
};

TEST_F(Scrolling, ABarReturnsItsPosition)
{
    EXPECT_EQ(vertical.pos(), 40);
    EXPECT_DOUBLE_EQ(vertical.fraction(), 0.5);
    EXPECT_EQ(horizontal.pos(), 15);
    EXPECT_DOUBLE_EQ(horizontal.fraction(), 0.25);
    EXPECT_EQ(vertical.clamp(500), 80);
    EXPECT_EQ(horizontal.clamp(-5), 10);
}

TEST_F(Scrolling, ABarMovesAndStaysInside)
{
    vertical.scroll_by(-15);
    EXPECT_EQ(vertical.pos(), 25);
    vertical.scroll_by(1'000);
    EXPECT_EQ(vertical.pos(), 80);
    vertical.scroll_by(-1'000);
    EXPECT_EQ(vertical.pos(), 0);
    EXPECT_EQ(horizontal.pos(), 15);
}

TEST_F(Scrolling, ABarIsVisibleOrNot)
{
    EXPECT_TRUE(vertical.is_visible());
    EXPECT_TRUE(horizontal.is_visible());
    ShowScrollBar(wnd.hwnd(), SB_HORZ, FALSE);
    EXPECT_TRUE(vertical.is_visible());
    EXPECT_FALSE(horizontal.is_visible());
}

TEST_F(Scrolling, ABarWithoutAnOwnerOrAWindowReturnsNothing)
{
    ovlib::ScrollBar none;
    EXPECT_EQ(none.pos(), 0);
    EXPECT_EQ(none.fraction(), 0.0);
    EXPECT_EQ(none.clamp(77), 77);
    EXPECT_FALSE(none.is_visible());
    none.scroll_by(5);
    gui::TopWnd plain;
    ovlib::ScrollBar bar(&plain, SB_VERT);
    EXPECT_EQ(bar.pos(), 0);
    EXPECT_EQ(bar.clamp(77), 77);
    EXPECT_FALSE(bar.is_visible());
}

} // namespace
