// The wrapper of the edit control.
#include "tests/support/gui_folder.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>
#include <sstream>

namespace {

using gui::Edit;
using gui::TopWnd;

class EditBoxTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(top.create(L"edit") && edit.create(L"")); }
    void TearDown() override { top.destroy(); }

    void make_multiline()
    {
        edit.destroy();
        edit.extra_style = ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL | WS_HSCROLL | ES_WANTRETURN;
        ASSERT_TRUE(edit.create(L""));
        edit.set_limit(0);
    }
    void fill_lines(int count)
    {
        std::wstring text;
        for (int i = 0; i < count; ++i)
            text += L"line\r\n";
        edit.set_text(text);
    }
    void type(const std::wstring& text)
    {
        for (const wchar_t unit : text)
            edit.send(WM_CHAR, unit, 1);
    }
    void expect_selection(int from, int to)
    {
        int start = -2;
        int end = -2;
        EXPECT_EQ(edit.selection(start, end), from != to);
        EXPECT_EQ(start, from);
        EXPECT_EQ(end, to);
        EXPECT_EQ(edit.has_selection(), from != to);
        EXPECT_EQ(edit.caret(), from);
    }
    int first_line() { return static_cast<int>(edit.send(EM_GETFIRSTVISIBLELINE, 0, 0)); }

    TopWnd top;
    Edit edit{ &top, 1045 };
};

TEST_F(EditBoxTest, IsTheSystemsEditInItsStyle)
{
    wchar_t name[16] = {};
    GetClassNameW(edit.hwnd(), name, 16);
    EXPECT_STREQ(name, L"Edit");
    CREATESTRUCTW params{};
    params.dwExStyle = WS_EX_CLIENTEDGE;
    edit.create_params(params); // the control itself hides the style of its border
    EXPECT_EQ(params.style, 0x56800180);
    EXPECT_EQ(params.dwExStyle, 0u);
    EXPECT_EQ(params.hMenu, reinterpret_cast<HMENU>(std::uintptr_t{ 1045 }));
    EXPECT_EQ(edit.control_id(), 1045);
    EXPECT_EQ(GetDlgCtrlID(edit.hwnd()), 1045);
}

TEST_F(EditBoxTest, UndoesAndClearsTheUndoBuffer)
{
    EXPECT_FALSE(edit.can_undo());
    type(L"abc");
    EXPECT_TRUE(edit.can_undo());
    edit.undo();
    EXPECT_EQ(edit.text(), L"");
    type(L"d");
    edit.clear_undo();
    EXPECT_FALSE(edit.can_undo());
}

TEST_F(EditBoxTest, CutsCopiesAndPastes)
{
    edit.set_text(L"one 二 three");
    edit.set_selection(4, 5);
    edit.copy();
    EXPECT_TRUE(edit.can_paste());
    edit.set_caret(0);
    edit.paste();
    EXPECT_EQ(edit.text(), L"二one 二 three");
    edit.set_selection(1, 5);
    edit.cut();
    EXPECT_EQ(edit.text(), L"二二 three");
    edit.select_at(0);
    edit.paste();
    EXPECT_EQ(edit.text(), L"one 二二 three");
}

TEST_F(EditBoxTest, CannotPasteFromAnEmptyClipboard)
{
    ASSERT_TRUE(OpenClipboard(top.hwnd()));
    EmptyClipboard();
    CloseClipboard();
    EXPECT_FALSE(edit.can_paste());
}

TEST_F(EditBoxTest, ReadOnlyIsReadFromTheStyle)
{
    EXPECT_FALSE(edit.is_read_only());
    edit.set_read_only(true);
    EXPECT_TRUE(edit.is_read_only());
    type(L"x");
    EXPECT_EQ(edit.text(), L"");
    edit.set_read_only(false);
    EXPECT_FALSE(edit.is_read_only());
}

TEST_F(EditBoxTest, ClearsErasesAndReplaces)
{
    edit.set_text(L"0123456789");
    edit.set_selection(0, 2);
    edit.clear_selection();
    EXPECT_EQ(edit.text(), L"23456789");
    edit.erase_range(0, 3);
    EXPECT_EQ(edit.text(), L"56789");
    edit.set_selection(1, 2);
    edit.erase_selection();
    EXPECT_EQ(edit.text(), L"5789");
    edit.replace_range(L"六", 1, 2);
    EXPECT_EQ(edit.text(), L"5六89");
    edit.set_selection(0, -1);
    edit.replace_selection(L"all");
    EXPECT_EQ(edit.text(), L"all");
    edit.select_at(0);
    edit.clear_undo();
    edit.append(L"+");
    EXPECT_EQ(edit.text(), L"all+");
    EXPECT_TRUE(edit.can_undo());
    edit.undo();
    EXPECT_EQ(edit.text(), L"all");
}

TEST_F(EditBoxTest, ReturnsAndSetsTheSelection)
{
    edit.set_text(L"abcdef");
    edit.set_selection(1, 4);
    expect_selection(1, 4);
    EXPECT_EQ(edit.selected_text(), L"bcd");
    edit.select_at(3);
    expect_selection(3, 3);
    EXPECT_EQ(edit.selected_text(), L"");
    edit.select_all();
    expect_selection(0, 6);
    EXPECT_EQ(edit.selected_text(), L"abcdef");
}

TEST_F(EditBoxTest, SetCaretStopsAtTheEnds)
{
    edit.set_text(L"abc");
    edit.set_caret(2);
    expect_selection(2, 2);
    edit.set_caret(100);
    expect_selection(3, 3);
    edit.set_caret(-5);
    expect_selection(0, 0);
}

TEST_F(EditBoxTest, SelectAtPassesItsPositionUnchanged)
{
    edit.set_text(L"abc");
    edit.set_subclassed(true);
    std::vector<std::pair<std::uint64_t, std::int64_t>> asked;
    edit.answer = [&](ovlib::WndMessage& message) {
        if (message.message == EM_SETSEL)
            asked.emplace_back(message.wparam, message.lparam);
        return false;
    };
    edit.select_at(100);
    edit.set_caret(100);
    ASSERT_EQ(asked.size(), 2u);
    EXPECT_EQ(asked[0], (std::pair<std::uint64_t, std::int64_t>{ 100, 100 }));
    EXPECT_EQ(asked[1], (std::pair<std::uint64_t, std::int64_t>{ 3, 3 }));
}

TEST_F(EditBoxTest, TheLimitHoldsForTyping)
{
    edit.set_limit(3);
    EXPECT_EQ(edit.limit(), 3);
    type(L"abcdef");
    EXPECT_EQ(edit.text(), L"abc");
    edit.set_limit(0);
    EXPECT_GT(edit.limit(), 1'000'000);
    edit.set_text(std::wstring(40'000, L'a'));
    edit.set_caret(40'000);
    type(L"b");
    EXPECT_EQ(edit.text_length(), 40'001);
}

TEST_F(EditBoxTest, ModifiedFollowsTypingAndTheCall)
{
    EXPECT_FALSE(edit.is_modified());
    type(L"a");
    EXPECT_TRUE(edit.is_modified());
    edit.set_modified(false);
    EXPECT_FALSE(edit.is_modified());
    edit.set_modified(true);
    EXPECT_TRUE(edit.is_modified());
}

TEST_F(EditBoxTest, ScrollsByPositionAndByLine)
{
    make_multiline();
    fill_lines(500);
    EXPECT_EQ(edit.scroll_v_pos(), 0);
    edit.scroll_v_to(200);
    EXPECT_EQ(first_line(), 200);
    EXPECT_EQ(edit.scroll_v_pos(), 200);
    edit.line_scroll(0, -50);
    EXPECT_EQ(edit.scroll_v_pos(), 150);
    edit.scroll_v_to(-7);
    EXPECT_EQ(edit.scroll_v_pos(), 0);
}

TEST_F(EditBoxTest, ScrollsBeyondTheRangeOfOneWord)
{
    make_multiline();
    fill_lines(80'000);
    for (const int line : { 0x7FFF, 0x8000, 40'000, 0xFFFF, 0x10000, 70'000, 12 }) {
        edit.scroll_v_to(line);
        EXPECT_EQ(first_line(), line);
        EXPECT_EQ(edit.scroll_v_pos(), line);
    }
}

TEST_F(EditBoxTest, ScrollsSideways)
{
    make_multiline();
    edit.set_text(std::wstring(2'000, L'm'));
    edit.scroll_h_to(120);
    const int there = edit.scroll_h_pos();
    EXPECT_GT(there, 0);
    edit.line_scroll(-10'000, 0);
    EXPECT_EQ(edit.scroll_h_pos(), 0);
    edit.scroll_h_to(120);
    EXPECT_EQ(edit.scroll_h_pos(), there);
}

TEST_F(EditBoxTest, ScrollsTheCaretIntoView)
{
    make_multiline();
    fill_lines(300);
    edit.set_caret(edit.text_length());
    edit.scroll_caret();
    EXPECT_GT(first_line(), 250);
}

TEST_F(EditBoxTest, FindsTheLineOfACharacter)
{
    make_multiline();
    edit.set_text(L"ab\r\ncd\r\nef");
    EXPECT_EQ(edit.line_from_char(0), 0);
    EXPECT_EQ(edit.line_from_char(4), 1);
    EXPECT_EQ(edit.line_from_char(9), 2);
    edit.set_caret(5);
    EXPECT_EQ(edit.line_from_char(-1), 1) << "-1 asks for the caret's line";
}

TEST_F(EditBoxTest, TabStopsMoveTheTextAfterATab)
{
    make_multiline();
    edit.set_text(L"\tx");
    const auto x_of = [&] { return static_cast<short>(LOWORD(edit.send(EM_POSFROMCHAR, 1, 0))); };
    edit.set_tab_stops(4);
    const int narrow = x_of();
    edit.set_tab_stops(64);
    EXPECT_GT(x_of(), narrow);
}

class EditBoxFile : public EditBoxTest {
protected:
    gui::TempFolder folder;
};

TEST_F(EditBoxFile, SavesRawUnitsWithoutByteOrderMarkOrTerminator)
{
    edit.set_text(L"aあ");
    EXPECT_TRUE(edit.save_file(folder.file(L"保存.txt")));
    EXPECT_EQ(folder.read(L"保存.txt"), (std::vector<unsigned char>{ 'a', 0, 0x42, 0x30 }));
    edit.set_text(L"");
    EXPECT_TRUE(edit.save_file(folder.file(L"保存.txt"))) << "over the old file";
    EXPECT_TRUE(folder.read(L"保存.txt").empty());
}

TEST_F(EditBoxFile, LoadsRawUnitsIncludingAByteOrderMark)
{
    EXPECT_TRUE(edit.load_file(folder.write(L"a.txt", { 0xFF, 0xFE, 'a', 0, 0x42, 0x30 })));
    EXPECT_EQ(edit.text(),
        L"\xFEFF"
        L"aあ");
}

TEST_F(EditBoxFile, RefusesEmptyAndOddFilesAndKeepsTheText)
{
    edit.set_text(L"kept");
    EXPECT_FALSE(edit.load_file(folder.write(L"empty", {})));
    EXPECT_FALSE(edit.load_file(folder.write(L"odd", { 'a', 0, 'b' })));
    EXPECT_FALSE(edit.load_file(folder.write(L"one", { 'a' })));
    EXPECT_FALSE(edit.load_file(folder.file(L"missing")));
    EXPECT_FALSE(edit.load_file(folder.path()));
    EXPECT_EQ(edit.text(), L"kept");
}

TEST_F(EditBoxFile, LoadsAndSavesWhileOthersUseTheFile)
{
    const std::wstring path = folder.write(L"shared", { 'a', 0 });
    const HANDLE other =
        CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 7, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(edit.load_file(path));
    edit.set_text(L"bc");
    EXPECT_TRUE(edit.save_file(path));
    CloseHandle(other);
    EXPECT_EQ(folder.read(L"shared"), (std::vector<unsigned char>{ 'b', 0, 'c', 0 }));
}

TEST_F(EditBoxFile, CannotSaveWhereNoFileCanBe)
{
    EXPECT_FALSE(edit.save_file(folder.file(L"no such folder\\a.txt")));
    EXPECT_FALSE(edit.save_file(folder.path()));
}

TEST_F(EditBoxFile, KeepsAMillionUnits)
{
    make_multiline();
    const std::wstring text(1'000'000, L'字');
    edit.set_text(text);
    ASSERT_TRUE(edit.save_file(folder.file(L"long")));
    edit.set_text(L"");
    ASSERT_TRUE(edit.load_file(folder.file(L"long")));
    EXPECT_EQ(edit.text_length(), 1'000'000);
}

} // namespace
