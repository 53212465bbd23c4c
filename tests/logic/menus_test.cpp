// The main window's menus, row by row.
#include "app/bitmap_files.hpp"
#include "app/menus.hpp"
#include "core/command_ids.hpp"
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using app::FileMenuState;
using app::MainMenuState;
using ovlib::MenuKind;
using ovlib::MenuRow;
using ovlib::MenuRows;

// One line per row: its number, its text and its state if it is not a plain item. Rows of a submenu are
// indented.
std::vector<std::wstring> lines_of(const MenuRows& rows, const std::wstring& indent = L"")
{
    std::vector<std::wstring> lines;
    for (const MenuRow& row : rows) {
        if (row.kind == MenuKind::separator) {
            lines.push_back(indent + L"-");
            continue;
        }
        std::wstring line = indent + std::to_wstring(row.id) + L' ' + row.text;
        if (!row.enabled)
            line += L" grey";
        if (row.mark == ovlib::MenuMark::radio)
            line += L" marked";
        lines.push_back(row.kind == MenuKind::submenu ? line + L" >" : line);
        for (const std::wstring& inner : lines_of(row.rows, indent + L"  "))
            lines.push_back(inner);
    }
    return lines;
}

using Lines = std::vector<std::wstring>;

std::wstring line_of(const MenuRows& rows, int id)
{
    const Lines lines = lines_of(rows);
    const auto starts = [&](const std::wstring& line) {
        const std::size_t start = line.find_first_not_of(L' ');
        return line.substr(start, 5) == std::to_wstring(id) + L' ';
    };
    const auto line = std::ranges::find_if(lines, starts);
    return line == lines.end() ? L"" : line->substr(line->find_first_not_of(L' '));
}

// Each line begins with the number of its row.
void expect_rows(const MenuRows& rows, const Lines& expected)
{
    for (const std::wstring& line : expected)
        EXPECT_EQ(line_of(rows, std::stoi(line)), line);
}

TEST(BookMenu, HasItsRowsInOrder)
{
    EXPECT_EQ(lines_of(app::book_menu(true)),
        (Lines{ L"1002 新規作成", L"1003 開く", L"1004 保存", L"1005 名前を付けて保存",
            L"1009 バックアップの作成", L"-", L"1040 Pagewick を終了する" }));
}

TEST(BookMenu, GreysSaveWithoutAnEdit)
{
    expect_rows(app::book_menu(false), { L"1004 保存 grey", L"1005 名前を付けて保存" });
}

MainMenuState stored_order()
{
    return { .order_mode = 2700 };
}

TEST(MainMenu, HasItsRowsInOrder)
{
    EXPECT_EQ(lines_of(app::main_menu(stored_order())),
        (Lines{ L"15001 履歴", L"-", L"2528 ページの追加 (末尾)", L"2530 ページの追加 (現在の位置)",
            L"1064 このページを削除", L"-", L"2509 編集", L"2510 置換", L"-", L"5500 Chat",
            L"2519 色 / フォント", L"7000 設定" }));
}

TEST(MainMenu, WhileAnotherWindowOwnsTheBookGreysWhatWouldChangeIt)
{
    MainMenuState state = stored_order();
    state.is_busy = true;
    EXPECT_EQ(lines_of(app::main_menu(state)),
        (Lines{ L"15001 履歴 grey", L"-", L"2528 ページの追加 (末尾) grey",
            L"2530 ページの追加 (現在の位置) grey", L"1064 このページを削除 grey", L"-",
            L"2509 ソート中は編集不可 grey", L"2510 ソート中は置換不可 grey", L"-", L"5500 Chat",
            L"2519 色 / フォント", L"7000 設定 grey" }));
}

TEST(MainMenu, OffersEditingInTheStoredOrderOnly)
{
    for (const std::int32_t mode : { -2700, 2701, -2701, 2702, -2702, 0 }) {
        const MenuRows rows = app::main_menu({ .order_mode = mode });
        EXPECT_EQ(line_of(rows, 2509), L"2509 ソート中は編集不可 grey") << mode;
        EXPECT_EQ(line_of(rows, 2510), L"2510 ソート中は置換不可 grey") << mode;
        EXPECT_EQ(line_of(rows, 1064), L"1064 このページを削除") << mode;
    }
}

TEST(MainMenu, OffersNoEditingWhileTheFileListEditorIsOpen)
{
    MainMenuState state = stored_order();
    state.is_file_list_editor_open = true;
    expect_rows(app::main_menu(state), { L"2509 ソート中は編集不可 grey", L"2510 ソート中は置換不可 grey" });
}

TEST(MainMenu, GreysTheSettingsWhileABoxIsOpen)
{
    MainMenuState state = stored_order();
    state.accepts_input = false;
    expect_rows(app::main_menu(state), { L"1064 このページを削除", L"7000 設定 grey" });
}

TEST(MainMenu, GreysThePaletteWhileItIsOpen)
{
    MainMenuState state = stored_order();
    state.is_palette_open = true;
    expect_rows(app::main_menu(state), { L"2519 色 / フォント grey" });
}

FileMenuState two_files()
{
    return { .entry_count = 2,
        .entry = L"C:\\絵\\a.png",
        .entry_name = L"a.png",
        .is_entry_file = true,
        .interpolation_command = 5005 };
}

TEST(FileMenu, HasItsRowsInOrder)
{
    EXPECT_EQ(lines_of(app::file_menu(two_files())),
        (Lines{ L"2523 ファイルの追加", L"2525 ファイルの削除 >", L"  2526 このファイル",
            L"  2527 リスト全体", L"2531 ファイルを複製", L"2548 ファイルの場所を開く", L"-",
            L"2522 リストの編集", L"2540 リストのソート >", L"  2541 昇順", L"  2542 降順", L"  -",
            L"  2536 ひとつ上に移動", L"  2537 ひとつ下に移動", L"  -", L"  2538 先頭に移動",
            L"  2539 末尾に移動", L"-", L"2547 ファイルを既定のアプリで開く",
            L"2546 画像を Viewer (a.png) で開く", L"-", L"0 画像の補間モード >", L"  5000 (Default)",
            L"  5001 Nearest Neighbor", L"  5002 Bilinear", L"  5003 Bilinear High Quality",
            L"  5004 Bicubic", L"  5005 Bicubic High Quality marked" }));
}

TEST(FileMenu, OfAnEmptyListOffersToAddAndToEdit)
{
    const MenuRows rows = app::file_menu({});
    expect_rows(rows,
        { L"2523 ファイルの追加", L"2522 リストの編集", L"2525 ファイルの削除 grey >",
            L"2540 リストのソート grey >", L"2531 ファイルを複製 grey", L"2548 ファイルの場所を開く grey",
            L"2547 ファイルを既定のアプリで開く grey", L"2546 画像を Viewer () で開く grey" });
}

TEST(FileMenu, OfASingleEntryOffersNoWholeListAndNoSorting)
{
    FileMenuState state = two_files();
    state.entry_count = 1;
    const MenuRows rows = app::file_menu(state);
    expect_rows(rows,
        { L"2525 ファイルの削除 >", L"2526 このファイル", L"2527 リスト全体 grey",
            L"2540 リストのソート grey >" });
}

TEST(FileMenu, OfAnEntryThatIsNoFileOffersToOpenItOnly)
{
    FileMenuState state = two_files();
    state.entry = state.entry_name = L"https://example.com/";
    state.is_entry_file = false;
    const MenuRows rows = app::file_menu(state);
    expect_rows(rows,
        { L"2531 ファイルを複製 grey", L"2548 ファイルの場所を開く grey",
            L"2547 ファイルを既定のアプリで開く", L"2546 画像を Viewer (https://example.com/) で開く" });
}

TEST(FileMenu, GreysTheListEditorWhileItIsOpen)
{
    FileMenuState state = two_files();
    state.is_file_list_editor_open = true;
    expect_rows(app::file_menu(state), { L"2522 リストの編集 grey" });
}

TEST(FileMenu, ShowsAnAmpersandOfANameAsItIs)
{
    FileMenuState state = two_files();
    state.entry_name = L"Q&A.png";
    expect_rows(app::file_menu(state), { L"2546 画像を Viewer (Q&&A.png) で開く" });
}

TEST(FileMenu, MarksTheChosenInterpolationOnly)
{
    for (int chosen = 5000; chosen <= 5005; ++chosen) {
        FileMenuState state = two_files();
        state.interpolation_command = chosen;
        const MenuRows rows = app::file_menu(state);
        for (const MenuRow& row : rows.back().rows)
            EXPECT_EQ(row.mark == ovlib::MenuMark::radio, row.id == chosen) << row.id;
    }
    FileMenuState unknown = two_files();
    unknown.interpolation_command = 123;
    const MenuRows unmarked = app::file_menu(unknown);
    for (const MenuRow& row : unmarked.back().rows)
        EXPECT_EQ(row.mark, ovlib::MenuMark::none);
}

TEST(FolderMenu, GreysWhatNeedsAFolder)
{
    EXPECT_EQ(lines_of(app::folder_menu(true)),
        (Lines{ L"2500 フォルダを開く", L"-", L"2501 フォルダの選択", L"2502 フォルダの取消" }));
    EXPECT_EQ(lines_of(app::folder_menu(false)),
        (Lines{ L"2500 フォルダを開く grey", L"-", L"2501 フォルダの選択", L"2502 フォルダの取消 grey" }));
}

TEST(WebMenu, ListsTheEnginesBeforeTheSearchInTheBook)
{
    EXPECT_EQ(lines_of(app::web_menu({ L"地図", L"R&D" })),
        (Lines{ L"34000 地図", L"34001 R&&D", L"-", L"1021 Book内" }));
    EXPECT_EQ(lines_of(app::web_menu({})), (Lines{ L"-", L"1021 Book内" }));
}

TEST(WebMenu, LeavesOutEnginesWithoutACommand)
{
    const MenuRows rows = app::web_menu(std::vector<std::wstring>(60, L"x"));
    ASSERT_EQ(rows.size(), 52u);
    EXPECT_EQ(rows[49].id, 34049);
    EXPECT_EQ(rows[51].id, 1021);
}

TEST(MenuFlags, AreThoseOfEachMenu)
{
    EXPECT_EQ(app::menu_flags::book, 0x10u);
    EXPECT_EQ(app::menu_flags::main, 0x10u);
    EXPECT_EQ(app::menu_flags::file, 16u);
    EXPECT_EQ(app::menu_flags::folder, 16u);
    EXPECT_EQ(app::menu_flags::web, 0u);
}

bool has_picture(int id)
{
    return std::ranges::any_of(app::bitmap_files, [id](const auto& file) { return file.command == id; });
}

void count_pictures(const MenuRows& rows, std::vector<int>& ids)
{
    for (const MenuRow& row : rows) {
        if (row.kind != MenuKind::separator && row.picture == ovlib::MenuPicture::by_id
            && has_picture(row.id))
            ids.push_back(row.id);
        count_pictures(row.rows, ids);
    }
}

TEST(MenuPictures, AreShownBesideTheRowsThatHaveOne)
{
    std::vector<int> ids;
    for (const MenuRows& rows : { app::book_menu(true), app::main_menu(stored_order()),
             app::file_menu(two_files()), app::folder_menu(true), app::web_menu({}) })
        count_pictures(rows, ids);
    EXPECT_EQ(ids,
        (std::vector<int>{ 1003, 1004, 1005, 1009, 15001, 2528, 2530, 1064, 2509, 2510, 5500, 2519, 7000,
            2523, 2525, 2531, 2548, 2522, 2500 }));
}

} // namespace
