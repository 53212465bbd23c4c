// The main window's popup menus on the screen, and the mouse on its background.
#include "tests/support/gui_app.hpp"
#include "tests/support/gui_menu.hpp"
#include "tests/support/gui_typing.hpp"

namespace {

namespace command = core::command;
using gui::AppWindow;
using gui::MenuDriver;
using gui::ShownMenu;

class Menus : public AppWindow {
protected:
    // The texts of the menu that `action` shows; those of grey items end in a minus. The menu is cancelled.
    std::vector<std::wstring> shown_by(const std::function<void()>& action)
    {
        std::vector<std::wstring> texts;
        MenuDriver driver{ [&](const ShownMenu& menu) {
            place_ = {};
            GetWindowRect(menu.hwnd(), &place_);
            const int count = GetMenuItemCount(menu.menu());
            for (int item = 0; item < count; ++item)
                texts.push_back(menu.text(item) + (menu.is_grey(item) ? L"-" : L""));
        } };
        action();
        EXPECT_TRUE(driver.finish());
        return texts;
    }
    int middle_of_place() const { return (place_.top + place_.bottom) / 2; }
    static void put_cursor(POINT place) { EXPECT_TRUE(gui::point_at(place)); }

    RECT place_{};
};

TEST_F(Menus, OfTheBookAppearsBelowItsButton)
{
    open({ page(L"1\r\n") });
    const auto texts = shown_by([&] { command(command::show_book_menu); });
    ASSERT_EQ(texts.size(), 7u);
    EXPECT_EQ(texts[0], L"新規作成");
    EXPECT_EQ(texts[2], L"保存-");
    EXPECT_EQ(texts[6], L"Pagewick を終了する");
    RECT button{};
    GetWindowRect(box(command::show_book_menu), &button);
    EXPECT_EQ(place_.left, button.left);
    EXPECT_NEAR(middle_of_place(), button.bottom, 1);
}

// Their flags put the middle of the menu at the point; those of the web menu put its top there.
TEST_F(Menus, AppearAtTheCursor)
{
    book::Book with_file = book_of({ page(L"1\r\n") });
    with_file.pages[0].files = { file(L"手帖.bok") };
    open(with_file);
    for (const POINT cursor : { POINT{ 640, 400 }, POINT{ 410, 530 } }) {
        for (const int id : { command::show_folder_menu, command::show_file_menu }) {
            put_cursor(cursor);
            shown_by([&] { command(id); });
            EXPECT_EQ(place_.left, cursor.x) << id;
            EXPECT_NEAR(middle_of_place(), cursor.y, 1) << id;
        }
        put_cursor(cursor);
        shown_by([&] { window().send(WM_NCRBUTTONUP, HTCAPTION, 0); });
        EXPECT_EQ(place_.left, cursor.x);
        EXPECT_NEAR(middle_of_place(), cursor.y, 1);
        put_cursor(cursor);
        shown_by([&] { command(command::show_web_menu); });
        EXPECT_EQ(place_.left, cursor.x);
        EXPECT_EQ(place_.top, cursor.y);
    }
}

TEST_F(Menus, OfTheBookOffersToSaveAnEdit)
{
    open({ page(L"1\r\n") });
    type(command::box_1, L"x");
    EXPECT_EQ(shown_by([&] { command(command::show_book_menu); })[2], L"保存");
}

TEST_F(Menus, OfTheWindowAppearsOnARightClickOnItsBackground)
{
    open({ page(L"1\r\n") });
    EXPECT_EQ(window().send(WM_NCRBUTTONDOWN, HTCAPTION, 0), 0); // returns without waiting for the release
    const auto texts = shown_by([&] { window().send(WM_NCRBUTTONUP, HTCAPTION, 0); });
    ASSERT_EQ(texts.size(), 12u);
    EXPECT_EQ(texts[0], L"履歴");
    EXPECT_EQ(texts[6], L"編集");
    EXPECT_EQ(texts[11], L"設定");
}

TEST_F(Menus, OfTheWindowShowsThatASortedBookCannotBeEdited)
{
    open({ page(L"1\r\n") });
    command(command::reverse_order);
    const auto texts = shown_by([&] { window().send(WM_NCRBUTTONUP, HTCAPTION, 0); });
    ASSERT_EQ(texts.size(), 12u);
    EXPECT_EQ(texts[6], L"ソート中は編集不可-");
    EXPECT_EQ(texts[7], L"ソート中は置換不可-");
}

TEST_F(Menus, SendTheCommandOfTheChosenRow)
{
    open({ page(L"1\r\n") });
    MenuDriver driver{ [](const ShownMenu& menu) { menu.choose(2); } };
    window().send(WM_NCRBUTTONUP, HTCAPTION, 0);
    ASSERT_TRUE(driver.finish());
    gui::pump();
    EXPECT_EQ(book().pages.size(), 2u);
}

TEST_F(Menus, OfFilesFollowThePage)
{
    book::Book with_file = book_of({ page(L"1\r\n"), page(L"2\r\n") });
    with_file.pages[0].files = { file(L"手帖.bok") };
    open(with_file);
    const auto texts = shown_by([&] { command(command::show_file_menu); });
    ASSERT_EQ(texts.size(), 12u);
    EXPECT_EQ(texts[1], L"ファイルの削除");
    EXPECT_EQ(texts[2], L"ファイルを複製");
    EXPECT_EQ(texts[6], L"リストのソート-");
    EXPECT_EQ(texts[9], L"画像を Viewer (手帖.bok) で開く");
    command(command::next_page);
    EXPECT_EQ(shown_by([&] { command(command::show_file_menu); })[2], L"ファイルを複製-");
}

TEST_F(Menus, OfFilesOfferNoCopyOfAFolder)
{
    CreateDirectoryW(file(L"箱").c_str(), nullptr);
    book::Book with_folder = book_of({ page(L"1\r\n") });
    with_folder.pages[0].files = { file(L"箱") };
    open(with_folder);
    const auto texts = shown_by([&] { command(command::show_file_menu); });
    ASSERT_EQ(texts.size(), 12u);
    EXPECT_EQ(texts[2], L"ファイルを複製-");
    EXPECT_EQ(texts[3], L"ファイルの場所を開く-");
    EXPECT_EQ(texts[8], L"ファイルを既定のアプリで開く");
    EXPECT_EQ(texts[9], L"画像を Viewer (箱) で開く");
}

TEST_F(Menus, OfFilesResolveARelativeEntryAgainstTheDataRoot)
{
    book::Book with_file = book_of({ page(L"1\r\n") });
    with_file.pages[0].files = { L"手帖.bok" };
    open(with_file);
    SetCurrentDirectoryW(L"C:\\");
    const auto texts = shown_by([&] { command(command::show_file_menu); });
    ASSERT_EQ(texts.size(), 12u);
    EXPECT_EQ(texts[2], L"ファイルを複製");
}

TEST_F(Menus, OfTheFolderFollowThePage)
{
    open({ page(L"1\r\n") });
    EXPECT_EQ(shown_by([&] { command(command::show_folder_menu); }),
        (std::vector<std::wstring>{ L"フォルダを開く-", L"", L"フォルダの選択", L"フォルダの取消-" }));
}

TEST_F(Menus, OfTheWebOfferToSearchInTheBook)
{
    open({ page(L"1\r\n") });
    const auto texts = shown_by([&] { command(command::show_web_menu); });
    ASSERT_FALSE(texts.empty());
    EXPECT_EQ(texts.back(), L"Book内");
}

class Background : public AppWindow {
protected:
    // Just below the first box, where the upper gap begins.
    POINT gap_point() const
    {
        RECT rect{};
        GetWindowRect(box(command::box_1), &rect);
        return { rect.left + 50, rect.bottom + 1 };
    }
    std::int64_t hit(POINT point) { return window().send(WM_NCHITTEST, 0, MAKELPARAM(point.x, point.y)); }
};

TEST_F(Background, HandlesTheMouseOverAGapAndMovesTheWindowElsewhere)
{
    open({ page(L"1\r\n") });
    EXPECT_EQ(hit(gap_point()), HTCLIENT);
    POINT aside = gap_point();
    aside.x -= 55;
    EXPECT_EQ(hit(aside), HTCAPTION);
}

TEST_F(Background, ShowsTheCursorOfAGapBeforeTheMouseMoves)
{
    open({ page(L"1\r\n") });
    const POINT gap = gap_point();
    gui::point_at(gap);
    const auto own = static_cast<std::uint64_t>(reinterpret_cast<UINT_PTR>(window().hwnd()));
    EXPECT_EQ(window().send(WM_SETCURSOR, own, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)), TRUE);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_SIZENS));
}

TEST_F(Background, LeavesOtherRightButtonsToTheSystem)
{
    open({ page(L"1\r\n") });
    window().send(WM_NCRBUTTONUP, HTLEFT, 0); // a menu would block the test
    EXPECT_TRUE(gui::popups_of(GetCurrentThreadId()).empty());
}

} // namespace
