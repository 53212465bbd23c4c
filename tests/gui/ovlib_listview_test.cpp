// The system's list view: rows, cells, columns and selection.
#include "ovlib/gui/listview.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>

namespace {

using ovlib::ListView;
using ovlib::ReportListView;

class List : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top.create(L"owner"));
        ASSERT_TRUE(list.create(L""));
        list.set_rect({ 10, 10, 290, 210 }, false);
        ASSERT_EQ(list.add_column(L"語句", 80), 0);
        ASSERT_EQ(list.add_column(L"場所", 60), 1);
        ASSERT_EQ(list.add_column(L"行", 60), 2);
        top.show(true);
        gui::pump();
    }
    void TearDown() override { top.destroy(); }

    gui::TopWnd top;
    ReportListView list{ &top, 7 };
};

TEST_F(List, IsTheSystemsInReportViewAndSelectsWholeRows)
{
    wchar_t name[32] = {};
    GetClassNameW(list.hwnd(), name, 32);
    EXPECT_EQ(std::wstring(name), L"SysListView32");
    const auto style = static_cast<DWORD>(GetWindowLongW(list.hwnd(), GWL_STYLE));
    EXPECT_EQ(style & LVS_TYPEMASK, DWORD{ LVS_REPORT });
    EXPECT_EQ(style & (WS_CHILD | WS_VISIBLE), DWORD{ WS_CHILD | WS_VISIBLE });
    const auto extended = static_cast<DWORD>(SendMessageW(list.hwnd(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0));
    EXPECT_NE(extended & LVS_EX_FULLROWSELECT, 0u);
}

TEST_F(List, AcceptsFurtherStyles)
{
    ListView icons(&top, 8, LVS_ICON | LVS_SINGLESEL);
    ASSERT_TRUE(icons.create(L""));
    const auto style = static_cast<DWORD>(GetWindowLongW(icons.hwnd(), GWL_STYLE));
    EXPECT_EQ(style & LVS_TYPEMASK, DWORD{ LVS_ICON });
    EXPECT_NE(style & LVS_SINGLESEL, 0u);
}

TEST_F(List, AppendsRowsAndReturnsTheirIndex)
{
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.add_row(L"一"), 0);
    EXPECT_EQ(list.add_row(L"二"), 1);
    EXPECT_EQ(list.add_row(L"三", I_IMAGENONE, 9), 2) << "beyond the end is the end";
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(list.cell_text(0, 0), L"一");
    EXPECT_EQ(list.cell_text(2, 0), L"三");
}

TEST_F(List, InsertsARowBetweenOthers)
{
    list.add_row(L"一");
    list.add_row(L"二");
    EXPECT_EQ(list.add_row(L"間", I_IMAGENONE, 1), 1);
    EXPECT_EQ(list.cell_text(1, 0), L"間");
    EXPECT_EQ(list.cell_text(2, 0), L"二");
}

TEST_F(List, ARowHasItsImage)
{
    HIMAGELIST const images = ImageList_Create(16, 16, ILC_COLOR32, 2, 0);
    list.set_images(images);
    list.add_row(L"新", 1);
    list.add_row(L"なし");
    const auto image_of = [&](int row) {
        LVITEMW item{};
        item.mask = LVIF_IMAGE;
        item.iItem = row;
        SendMessageW(list.hwnd(), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        return item.iImage;
    };
    EXPECT_EQ(image_of(0), 1);
    EXPECT_EQ(image_of(1), I_IMAGENONE);
    list.set_images(nullptr);
    ImageList_Destroy(images);
}

TEST_F(List, CellsAreWrittenAndReadBack)
{
    list.add_row(L"語");
    list.set_cell(0, 1, L"Box 2");
    list.set_cell(0, 2, L"12");
    EXPECT_EQ(list.cell_text(0, 0), L"語");
    EXPECT_EQ(list.cell_text(0, 1), L"Box 2");
    EXPECT_EQ(list.cell_text(0, 2), L"12");
    list.set_cell(0, 1, L"");
    EXPECT_EQ(list.cell_text(0, 1), L"");
}

TEST_F(List, AMissingCellIsEmpty)
{
    EXPECT_EQ(list.cell_text(0, 0), L"");
    list.add_row(L"語");
    EXPECT_EQ(list.cell_text(1, 0), L"");
    EXPECT_EQ(list.cell_text(-1, 0), L"");
    EXPECT_EQ(list.cell_text(0, 2), L"");
}

TEST_F(List, ALongCellIsTruncatedAtTheBuffersEnd)
{
    for (const std::size_t length : { 1022u, 1023u, 1024u, 5000u }) {
        std::wstring text(length, L'あ');
        text.front() = L'始';
        list.clear();
        list.add_row(text);
        list.set_cell(0, 1, text);
        EXPECT_EQ(list.cell_text(0, 0), text.substr(0, 1023)) << length;
        EXPECT_EQ(list.cell_text(0, 1), text.substr(0, 1023)) << length;
    }
}

TEST_F(List, ClearsItsRowsAndKeepsItsColumns)
{
    list.add_row(L"一");
    list.add_row(L"二");
    list.clear();
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.column_count(), 3);
}

TEST_F(List, SelectsOnlyOneRow)
{
    for (int i = 0; i < 100; ++i)
        list.add_row(std::to_wstring(i));
    EXPECT_EQ(list.selected(), -1);
    list.select(2);
    EXPECT_EQ(list.selected(), 2);
    list.select(90);
    EXPECT_EQ(list.selected(), 90);
    EXPECT_EQ(SendMessageW(list.hwnd(), LVM_GETSELECTEDCOUNT, 0, 0), 1);
    EXPECT_GT(SendMessageW(list.hwnd(), LVM_GETTOPINDEX, 0, 0), 50) << "scrolled to the row";
    list.select(-1);
    EXPECT_EQ(list.selected(), -1);
    list.select(100);
    EXPECT_EQ(list.selected(), -1) << "no such row";
}

TEST_F(List, NotifiesItsParentOfTheSelection)
{
    list.add_row(L"一");
    list.add_row(L"二");
    std::vector<int> chosen;
    top.answer = [&](ovlib::WndMessage& message) {
        if (message.message != WM_NOTIFY)
            return false;
        const auto* note = reinterpret_cast<const NMLISTVIEW*>(message.lparam);
        if (note->hdr.code == LVN_ITEMCHANGED && (note->uNewState & LVIS_SELECTED) != 0)
            chosen.push_back(note->iItem);
        return false;
    };
    list.select(1);
    list.select(0);
    EXPECT_EQ(chosen, (std::vector<int>{ 1, 0 }));
}

TEST_F(List, ColumnsHaveTheirTitlesAndWidths)
{
    EXPECT_EQ(list.column_count(), 3);
    EXPECT_EQ(list.column_width(0), 80);
    EXPECT_EQ(list.column_width(1), 60);
    list.set_column_width(1, 120);
    EXPECT_EQ(list.column_width(1), 120);
    wchar_t title[16] = {};
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = title;
    column.cchTextMax = 16;
    ASSERT_TRUE(SendMessageW(list.hwnd(), LVM_GETCOLUMNW, 1, reinterpret_cast<LPARAM>(&column)));
    EXPECT_EQ(std::wstring(title), L"場所");
}

TEST_F(List, SetsItsColours)
{
    list.set_colors(ovlib::rgb(1, 2, 3), ovlib::rgb(4, 5, 6));
    EXPECT_EQ(SendMessageW(list.hwnd(), LVM_GETBKCOLOR, 0, 0), 0x030201);
    EXPECT_EQ(SendMessageW(list.hwnd(), LVM_GETTEXTBKCOLOR, 0, 0), 0x030201);
    EXPECT_EQ(SendMessageW(list.hwnd(), LVM_GETTEXTCOLOR, 0, 0), 0x060504);
}

} // namespace
