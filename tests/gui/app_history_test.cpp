// The history window of the main window: when it appears, what it shows, and when it accepts clicks.
#include "tests/support/gui_app.hpp"
#include "tests/support/gui_window.hpp"
#include <commctrl.h>

namespace {

namespace command = core::command;
using gui::AppWindow;
using gui::MetBox;

class AppHistory : public AppWindow {
protected:
    ~AppHistory() override { close(); } // before the window that it refers to

    static HWND history_window()
    {
        HWND found = nullptr;
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND hwnd, LPARAM result) -> BOOL {
                wchar_t name[64] = {};
                GetClassNameW(hwnd, name, 64);
                if (std::wstring(name) == L"ovlib_historywnd[53]")
                    *reinterpret_cast<HWND*>(result) = hwnd;
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }
    static HWND list() { return FindWindowExW(history_window(), nullptr, WC_LISTVIEWW, nullptr); }
    static int rows() { return static_cast<int>(SendMessageW(list(), LVM_GETITEMCOUNT, 0, 0)); }
    static void click(int row)
    {
        NMITEMACTIVATE notice{};
        notice.hdr = { list(), 1, NM_CLICK };
        notice.iItem = row;
        SendMessageW(history_window(), WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&notice));
        gui::pump();
    }
    void open_with_two_books()
    {
        ASSERT_TRUE(book_of({ page(L"甲\r\n") }).save_to(file(L"甲.bok")));
        ASSERT_TRUE(book_of({ page(L"乙\r\n") }).save_to(file(L"乙.bok")));
        set_history({ file(L"甲.bok"), file(L"乙.bok") });
        ASSERT_TRUE(create());
        command(command::show_history);
        gui::pump();
    }
};

TEST_F(AppHistory, IsCreatedHiddenAndShownByItsCommand)
{
    open({ page(L"1\r\n") });
    ASSERT_NE(history_window(), nullptr);
    EXPECT_FALSE(IsWindowVisible(history_window()));
    command(command::show_history);
    EXPECT_TRUE(IsWindowVisible(history_window()));
    EXPECT_EQ(gui::text_of(history_window()), L"履歴  [1件]");
}

TEST_F(AppHistory, AClickOpensTheBookWhichIsFirstAfterwards)
{
    open_with_two_books();
    ASSERT_EQ(rows(), 2);
    click(1);
    EXPECT_EQ(title(), L"乙");
    EXPECT_EQ(history(), (std::vector{ file(L"乙.bok"), file(L"甲.bok") }));
    wchar_t top[64] = {};
    LVITEMW item{};
    item.pszText = top;
    item.cchTextMax = 64;
    SendMessageW(list(), LVM_GETITEMTEXTW, 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(std::wstring(top), L"乙.bok") << "the rows follow";
}

TEST_F(AppHistory, AClickSavesEditsWithoutAQuestion)
{
    open_with_two_books();
    type(command::box_1, L"新");
    click(1);
    EXPECT_EQ(title(), L"乙");
    EXPECT_EQ(saved(L"甲.bok").pages[0].text[0], L"新甲\r\n");
}

TEST_F(AppHistory, AMissingBookIsReportedAndLosesItsRow)
{
    open_with_two_books();
    ASSERT_TRUE(DeleteFileW(file(L"乙.bok").c_str()));
    const MetBox met = answered(IDOK, [&] { click(1); });
    EXPECT_EQ(met.text, L"ファイル [" + file(L"乙.bok") + L"] が見つかりませんでした．");
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(gui::text_of(history_window()), L"履歴  [1件]");
    EXPECT_EQ(title(), L"甲");
}

TEST_F(AppHistory, AcceptsNoClicksWhileABoxIsOpenOrInputIsHeld)
{
    open_with_two_books();
    bool behind_box = true;
    answered(
        IDOK, [&] { command(command::about); }, [&] { behind_box = IsWindowEnabled(history_window()) != 0; });
    EXPECT_FALSE(behind_box);
    EXPECT_TRUE(IsWindowEnabled(history_window()));
    command(command::set_accepting_input, 0);
    EXPECT_FALSE(IsWindowEnabled(history_window()));
    command(command::set_accepting_input, 1);
    EXPECT_TRUE(IsWindowEnabled(history_window()));
}

TEST_F(AppHistory, AcceptsNoClicksWhileAnEditingWindowOwnsTheBook)
{
    open_with_two_books();
    gui::EditingWindow editor{ &window() };
    ASSERT_TRUE(editor.create(L"editor"));
    window().add_busy_window(editor);
    editor.show(true);
    command(command::request_refresh, 0x40);
    EXPECT_FALSE(IsWindowEnabled(history_window()));
    answered(IDOK, [&] { command(command::about); });
    EXPECT_FALSE(IsWindowEnabled(history_window())) << "a box that ends must not open it";
    editor.show(false);
    command(command::request_refresh, 0x40);
    EXPECT_TRUE(IsWindowEnabled(history_window()));
    close(); // before the window that it may query is destroyed
}

TEST_F(AppHistory, ClosingItsWindowOnlyHidesIt)
{
    open({ page(L"1\r\n") });
    command(command::show_history);
    SendMessageW(history_window(), WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindowVisible(history_window()));
    command(command::show_history);
    EXPECT_TRUE(IsWindowVisible(history_window()));
}

} // namespace
