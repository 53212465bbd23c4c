// Work that a page turn skips because nothing changes.
#include "tests/support/gui_app_controls.hpp"
#include "tests/support/gui_calls.hpp"

namespace {

namespace command = core::command;

constexpr int page_boxes[] = { command::box_1, command::box_2, command::box_3 };

class Turn : public gui::AppControls {
protected:
    // How often `control` gets the message during a turn to the next page.
    int count_in_turn(UINT message, HWND control)
    {
        gui::pump();
        const gui::MessageCount count{ message };
        command(command::next_page);
        gui::pump();
        return count.of(control);
    }
    static std::wstring lines(int count)
    {
        std::wstring text;
        for (int i = 0; i < count; ++i)
            text += L"行\r\n";
        return text;
    }
    static book::Page scrolled_page()
    {
        book::Page made = page(lines(200).c_str(), L"", lines(200).c_str());
        made.scroll_first = 50;
        return made;
    }
    LPARAM place_behind_tab(int id) const { return SendMessageW(box(id), EM_POSFROMCHAR, 1, 0); }
    // The position of the first character after a tab in the control.
    LPARAM place_of_four_units() const
    {
        HWND const model = box(command::box_1);
        HWND const other = CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"",
            static_cast<DWORD>(GetWindowLongW(model, GWL_STYLE)) & ~static_cast<DWORD>(WS_VISIBLE), 0, 0, 400,
            200, GetParent(model), nullptr, nullptr, nullptr);
        SendMessageW(other, WM_SETFONT, static_cast<WPARAM>(SendMessageW(model, WM_GETFONT, 0, 0)), FALSE);
        const UINT stop = 4;
        SendMessageW(other, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&stop));
        SetWindowTextW(other, L"\t.");
        const LPARAM place = SendMessageW(other, EM_POSFROMCHAR, 1, 0);
        DestroyWindow(other);
        return place;
    }
};

TEST_F(Turn, PaintsEachBoxOnce)
{
    open({ page(L"a"), page(L"b"), page(L"c"), page(L"d") });
    for (const int id : page_boxes)
        EXPECT_EQ(count_in_turn(WM_PAINT, box(id)), 1) << id;
}

TEST_F(Turn, LeavesTheFramesOfBoxesAlone)
{
    open({ page(L"a"), page(L"b"), page(L"c"), page(L"d") });
    for (const int id : page_boxes)
        EXPECT_EQ(count_in_turn(WM_NCPAINT, box(id)), 0) << id;
}

TEST_F(Turn, PassesTheTextsOfMultiLineBoxesByTheirMemory)
{
    open(
        { page(L"a\r\n"), page(L"b\r\n", L"二", L"三\r\n"), page(L"c\r\n", L"", L"四\r\n"), page(L"d\r\n") });
    EXPECT_EQ(count_in_turn(WM_SETTEXT, box(command::box_1)), 0);
    EXPECT_EQ(box_text(command::box_1), L"b\r\n");
    EXPECT_EQ(box_text(command::box_3), L"三\r\n");
    EXPECT_EQ(count_in_turn(EM_SETHANDLE, box(command::box_3)), 1);
    EXPECT_EQ(box_text(command::box_1), L"c\r\n");
    EXPECT_EQ(box_text(command::box_3), L"四\r\n");
}

// Otherwise the old page's text would visibly move.
TEST_F(Turn, HidesTheScrollingToAStoredPosition)
{
    open({ page(L"a"), scrolled_page(), scrolled_page(), page(L"b") });
    EXPECT_EQ(count_in_turn(WM_SETREDRAW, box(command::box_1)), 2);
    EXPECT_EQ(count_in_turn(WM_NCPAINT, box(command::box_1)), 1);
    EXPECT_EQ(SendMessageW(box(command::box_1), EM_GETFIRSTVISIBLELINE, 0, 0), 50);
    EXPECT_EQ(count_in_turn(WM_SETREDRAW, box(command::box_1)), 0);
    EXPECT_TRUE(IsWindowVisible(box(command::box_1)) || !IsWindowVisible(window().hwnd()));
}

TEST_F(Turn, KeepsTheTabStops)
{
    book::Book tabbed = book_of({ page(L"\t.", L"", L"\t."), page(L"\t.", L"", L"\t.") });
    open(tabbed);
    const LPARAM place = place_of_four_units();
    for (int turn = 0; turn < 2; ++turn) {
        EXPECT_EQ(place_behind_tab(command::box_1), place) << turn;
        EXPECT_EQ(place_behind_tab(command::box_3), place_behind_tab(command::box_1)) << turn;
        command(command::next_page);
    }
}

TEST_F(Turn, DoesNotSetATitleThatIsUnchanged)
{
    open({ page(L"a"), page(L"b") });
    EXPECT_EQ(count_in_turn(WM_SETTEXT, window().hwnd()), 0);
    EXPECT_EQ(title(), L"手帖");
    type(command::box_1, L"x");
    EXPECT_EQ(title(), L"手帖 *");
}

TEST_F(Turn, FillsTheFileComboOnlyIfTheFilesDiffer)
{
    const book::Page with = page_with_files({ L"C:\\甲.txt", L"C:\\乙.txt" }, 1);
    book::Page other = with;
    other.files[1] = L"C:\\丙.txt";
    open({ page(L"a"), page(L"b"), with, with, other, page(L"c") });
    HWND const combo = box(command::file_combo);
    EXPECT_EQ(count_in_turn(CB_RESETCONTENT, combo), 0);
    EXPECT_EQ(count_in_turn(CB_RESETCONTENT, combo), 1);
    EXPECT_EQ(SendMessageW(combo, CB_GETCURSEL, 0, 0), 1);
    EXPECT_EQ(count_in_turn(CB_RESETCONTENT, combo), 0);
    EXPECT_EQ(SendMessageW(combo, CB_GETCURSEL, 0, 0), 1);
    EXPECT_EQ(count_in_turn(CB_RESETCONTENT, combo), 1);
    EXPECT_EQ(control<ovlib::ComboBox>(command::file_combo).item_text(1), L"C:\\丙.txt");
    EXPECT_EQ(count_in_turn(CB_RESETCONTENT, combo), 1);
    EXPECT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), 0);
}

TEST_F(Turn, FillsTheFileComboAlsoIfOnlyTheSelectionDiffers)
{
    const book::Page with = page_with_files({ L"C:\\甲.txt", L"C:\\乙.txt" }, 1);
    open({ with, with });
    HWND const combo = box(command::file_combo);
    SendMessageW(combo, CB_SETCURSEL, 0, 0);
    EXPECT_EQ(count_in_turn(CB_RESETCONTENT, combo), 1);
    EXPECT_EQ(SendMessageW(combo, CB_GETCURSEL, 0, 0), 1);
}

} // namespace
