// The history window.
#include "book/history_view.hpp"
#include "book/wnd/historywnd.hpp"
#include "core/folders.hpp"
#include "platform/process_log.hpp"
#include "tests/support/built_files.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_folder.hpp"
#include "tests/support/gui_input.hpp"
#include "tests/support/gui_look.hpp"
#include "tests/support/gui_mouse.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_window.hpp"
#include "tests/support/picture_file.hpp"
#include <gtest/gtest.h>

extern "C" void* __imp_ImageList_Create;

namespace {

constexpr int first_command = 10000;

class HistoryWindow : public testing::Test {
protected:
    HistoryWindow() { core::init_folders(test_support::dist_path()); }
    ~HistoryWindow() override
    {
        top_.destroy();
        ovlib::WinApp::process_log().flush();
        ovlib::WinApp::process_log().set_path({});
    }
    void create()
    {
        ASSERT_TRUE(top_.create(L"top"));
        top_.answer = [this](ovlib::WndMessage& message) {
            if (message.message == WM_COMMAND)
                commands_.push_back(LOWORD(message.wparam));
            return false;
        };
        ASSERT_TRUE(window_.create(L""));
        top_.show(true);
    }
    void show_with(const std::vector<std::wstring>& paths)
    {
        for (auto path = paths.rbegin(); path != paths.rend(); ++path)
            history_.add(*path);
        window_.show(true);
        gui::pump();
    }
    void click(int row)
    {
        NMITEMACTIVATE notice{};
        notice.hdr = { window_.list().hwnd(), 1, NM_CLICK };
        notice.iItem = row;
        window_.send(WM_NOTIFY, 1, static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(&notice)));
    }
    std::uint32_t list_color(UINT message) const
    {
        return static_cast<std::uint32_t>(SendMessageW(window_.list().hwnd(), message, 0, 0));
    }
    int image_of(int row) const
    {
        LVITEMW item{};
        item.mask = LVIF_IMAGE;
        item.iItem = row;
        SendMessageW(window_.list().hwnd(), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        return item.iImage;
    }

    const gui::Look look_;
    gui::TempFolder folder_;
    book::HistoryList history_{ folder_.file(L"history.txt") };
    gui::TopWnd top_;
    book::HistoryWnd window_{ &top_, 0, &history_ };
    std::vector<int> commands_;
};

TEST_F(HistoryWindow, IsCreatedHiddenWithItsClientSizeAndMargins)
{
    create();
    EXPECT_FALSE(window_.is_visible());
    const SIZE client = window_.client_size();
    EXPECT_EQ(client.cx, 350);
    EXPECT_EQ(client.cy, 400);
    const RECT list = window_.list().rect();
    EXPECT_EQ(list.left, 8);
    EXPECT_EQ(list.top, 8);
    EXPECT_EQ(list.right, 342);
    EXPECT_EQ(list.bottom, 392);
}

TEST_F(HistoryWindow, ShowsNameFolderAndCount)
{
    create();
    show_with({ L"C:\\本\\日記.bok", L"D:\\古い.bok", L"名だけ" });
    EXPECT_EQ(window_.text(), L"履歴  [3件]");
    ASSERT_EQ(window_.list().count(), 3);
    EXPECT_EQ(window_.list().cell_text(0, 0), L"日記.bok");
    EXPECT_EQ(window_.list().cell_text(0, 1), L"C:\\本");
    EXPECT_EQ(window_.list().cell_text(1, 1), L"D:\\");
    EXPECT_EQ(window_.list().cell_text(2, 0), L"名だけ");
    EXPECT_EQ(window_.list().cell_text(2, 1), L"");
    EXPECT_EQ(image_of(0), 0);
    EXPECT_EQ(image_of(1), 1);
    EXPECT_EQ(image_of(2), 1);
}

TEST_F(HistoryWindow, OpensAtTheCursorIfItWasHidden)
{
    create();
    ASSERT_TRUE(gui::point_at({ 700, 300 }));
    window_.show(true);
    const RECT place = window_.rect();
    EXPECT_EQ(place.top, 300 - 64);
    EXPECT_EQ(place.left, 700 - (place.right - place.left) / 2);
    ASSERT_TRUE(gui::point_at({ 400, 500 }));
    window_.show(true);
    EXPECT_EQ(window_.rect().left, place.left) << "a shown window only comes forward";
}

TEST_F(HistoryWindow, IsFilledOnlyWhileVisible)
{
    create();
    history_.add(L"C:\\a.bok");
    window_.refill();
    EXPECT_EQ(window_.list().count(), 0);
    window_.show(true);
    EXPECT_EQ(window_.list().count(), 1);
    history_.add(L"C:\\b.bok");
    window_.refill();
    EXPECT_EQ(window_.list().count(), 2);
}

TEST_F(HistoryWindow, ClosingOnlyHides)
{
    create();
    window_.show(true);
    window_.send(WM_CLOSE, 0, 0);
    EXPECT_FALSE(window_.is_visible());
    EXPECT_TRUE(IsWindow(window_.hwnd()));
}

TEST_F(HistoryWindow, AClickPostsTheCommandOfItsRow)
{
    create();
    show_with({ L"C:\\a.bok", L"C:\\b.bok" });
    click(1);
    EXPECT_TRUE(commands_.empty()) << "inside the notification the list must stay as it is";
    ASSERT_TRUE(gui::pump_until([&] { return !commands_.empty(); }));
    EXPECT_EQ(commands_, (std::vector{ first_command + 1 }));
}

TEST_F(HistoryWindow, AClickOutsideTheRowsDoesNothing)
{
    create();
    show_with({ L"C:\\a.bok" });
    click(-1);
    click(5000);
    gui::pump();
    EXPECT_TRUE(commands_.empty());
}

TEST_F(HistoryWindow, ARealClickOpensTheRow)
{
    create();
    show_with({ L"C:\\a.bok", L"C:\\b.bok" });
    RECT row{ LVIR_LABEL, 0, 0, 0 };
    SendMessageW(window_.list().hwnd(), LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
    const LPARAM at = MAKELPARAM(row.left + 4, (row.top + row.bottom) / 2);
    PostMessageW(window_.list().hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageW(window_.list().hwnd(), WM_LBUTTONUP, 0, at);
    ASSERT_TRUE(gui::pump_until([&] { return !commands_.empty(); }));
    EXPECT_EQ(commands_.front(), first_command + 1);
}

TEST_F(HistoryWindow, EscHidesItAlsoFromItsList)
{
    create();
    show_with({ L"C:\\a.bok" });
    ASSERT_TRUE(gui::pump_until([&] { return GetFocus() == window_.list().hwnd(); }));
    gui::press_key(VK_ESCAPE);
    EXPECT_TRUE(gui::pump_until([&] { return !window_.is_visible(); }));
    EXPECT_FALSE(window_.is_open());
    EXPECT_TRUE(gui::pump_until([&] { return GetFocus() == top_.hwnd(); }));
}

TEST_F(HistoryWindow, ArrowsAndEnterOpenARow)
{
    create();
    show_with({ L"C:\\a.bok", L"C:\\b.bok" });
    ASSERT_TRUE(gui::pump_until([&] { return GetFocus() == window_.list().hwnd(); }));
    gui::press_key(VK_RETURN);
    gui::pump();
    EXPECT_TRUE(commands_.empty()) << "no row is chosen";
    gui::press_key(VK_END);
    ASSERT_TRUE(gui::pump_until([&] { return window_.list().selected() == 1; }));
    gui::press_key(VK_RETURN);
    ASSERT_TRUE(gui::pump_until([&] { return !commands_.empty(); }));
    EXPECT_EQ(commands_, (std::vector{ first_command + 1 }));
    EXPECT_TRUE(window_.is_open());
}

TEST_F(HistoryWindow, IsFilledWhileItsOwnerIsMinimised)
{
    create();
    show_with({ L"C:\\a.bok" });
    top_.minimize();
    ASSERT_TRUE(gui::pump_until([&] { return !window_.is_visible(); }));
    history_.add(L"C:\\b.bok");
    window_.refill();
    EXPECT_EQ(window_.list().count(), 2);
}

TEST_F(HistoryWindow, HasTheColorsOfEveryTheme)
{
    create();
    window_.show(true);
    for (std::int32_t theme = look::theme_standard; theme <= look::theme_blue; ++theme) {
        look::load_theme(theme);
        look::apply_theme_to_windows();
        EXPECT_EQ(list_color(LVM_GETBKCOLOR), look::palette().box_back.value) << theme;
        EXPECT_EQ(list_color(LVM_GETTEXTBKCOLOR), look::palette().box_back.value) << theme;
        EXPECT_EQ(list_color(LVM_GETTEXTCOLOR), look::palette().list_text.value) << theme;
        const ovlib::ClientDC dc(window_);
        EXPECT_EQ(GetPixel(dc.handle(), 3, 3), look::palette().caption.value) << theme;
    }
}

TEST_F(HistoryWindow, IsGreyWhileDisabledAlsoAfterAChangeOfTheTheme)
{
    create();
    window_.show(true);
    window_.enable(false);
    EXPECT_EQ(list_color(LVM_GETTEXTCOLOR), 0xBFBFBFu);
    look::load_theme(look::theme_dark);
    look::apply_theme_to_windows();
    EXPECT_EQ(list_color(LVM_GETTEXTCOLOR), 0x3F3F3Fu);
    window_.enable(true);
    EXPECT_EQ(list_color(LVM_GETTEXTCOLOR), look::palette().list_text.value);
}

TEST_F(HistoryWindow, HasNoPicturesIfAFileIsMissing)
{
    core::init_folders(folder_.path());
    ovlib::WinApp::process_log().set_path(folder_.file(L"log.txt"));
    create();
    EXPECT_EQ(SendMessageW(window_.list().hwnd(), LVM_GETIMAGELIST, LVSIL_SMALL, 0), 0);
    EXPECT_EQ(ovlib::WinApp::process_log().buffered(),
        L"HistoryWnd: Failed to create bitmap1\r\nHistoryWnd: Failed to create bitmap2\r\n");
}

TEST_F(HistoryWindow, HasNoPicturesIfThereIsNoImageList)
{
    ovlib::WinApp::process_log().set_path(folder_.file(L"log.txt"));
    {
        const gui::ReplacedImport<decltype(ImageList_Create)> failing{ &__imp_ImageList_Create,
            [](int, int, UINT, int, int) -> HIMAGELIST { return nullptr; } };
        create();
    }
    EXPECT_EQ(SendMessageW(window_.list().hwnd(), LVM_GETIMAGELIST, LVSIL_SMALL, 0), 0);
    EXPECT_EQ(ovlib::WinApp::process_log().buffered(), L"Failed to create ImageList\r\n");
    show_with({ L"C:\\a.bok" });
    EXPECT_EQ(window_.list().cell_text(0, 0), L"a.bok");
}

// An opaque pixel of the picture keeps its colour in the image list.
TEST_F(HistoryWindow, ShowsThePictureInItsOwnColors)
{
    create();
    show_with({ L"C:\\a.bok" });
    UpdateWindow(window_.list().hwnd());
    const test_support::BmpFile file{ test_support::dist_path(L"/res/book.bmp") };
    RECT icon{ LVIR_ICON, 0, 0, 0 };
    SendMessageW(window_.list().hwnd(), LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&icon));
    const ovlib::ClientDC dc(window_.list());
    int checked = 0;
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            const test_support::PicturePixel pixel = file.at(x, y);
            if (pixel.alpha != 255)
                continue;
            const int top = icon.top + (icon.bottom - icon.top - 16) / 2;
            EXPECT_EQ(GetPixel(dc.handle(), icon.left + x, top + y), RGB(pixel.red, pixel.green, pixel.blue))
                << x << ' ' << y;
            ++checked;
        }
    }
    EXPECT_GT(checked, 20);
}

} // namespace
