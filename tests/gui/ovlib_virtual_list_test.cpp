// The list that queries its rows.
#include "ovlib/gui/virtual_list.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_typing.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>
#include <memory>
#include <set>

namespace {

using ovlib::ListSource;
using ovlib::SelectionChange;
using ovlib::VirtualList;

constexpr int many = 100'000;

class Virtual : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top.create(L"owner"));
        top.answer = [](ovlib::WndMessage& message) { return ovlib::route_list_notice(message); };
        list = std::make_unique<VirtualList>(&top, 7, LVS_SHOWSELALWAYS);
        ASSERT_TRUE(list->create(L""));
        list->set_rect({ 10, 10, 290, 210 }, false);
        ASSERT_EQ(list->add_column(L"語句", 80), 0);
        ASSERT_EQ(list->add_column(L"場所", 60), 1);
        list->set_source(source());
        top.show(true);
        gui::pump();
    }
    void TearDown() override { top.destroy(); }

    ListSource source()
    {
        return {
            .text =
                [this](int row, int column) {
                    asked.insert(row);
                    return text_of(row, column);
                },
            .image = {},
            .selected = [this](const SelectionChange& change) { changes.push_back(change); },
        };
    }
    static std::wstring text_of(int row, int column)
    {
        return (column == 0 ? L"行" : L"p.") + std::to_wstring(row);
    }
    void set_count(int count)
    {
        list->set_count(count);
        gui::pump();
        changes.clear();
        asked.clear();
    }
    LRESULT ask(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const
    {
        return SendMessageW(list->hwnd(), message, wparam, lparam);
    }
    int top_row() const { return static_cast<int>(ask(LVM_GETTOPINDEX)); }
    int rows_in_view() const { return static_cast<int>(ask(LVM_GETCOUNTPERPAGE)) + 1; } // one may be partial
    void paint() const { RedrawWindow(list->hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }
    LRESULT notify(NMHDR& header) const
    {
        header.hwndFrom = list->hwnd();
        return SendMessageW(top.hwnd(), WM_NOTIFY, 7, reinterpret_cast<LPARAM>(&header));
    }
    int find(const wchar_t* sought, UINT flags, int start) const
    {
        NMLVFINDITEMW request{};
        request.hdr.code = LVN_ODFINDITEMW;
        request.iStart = start;
        request.lvfi.flags = flags;
        request.lvfi.psz = sought;
        return static_cast<int>(notify(request.hdr));
    }
    // The rows that the notifications reported as selected.
    std::set<int> reported_rows() const
    {
        std::set<int> rows;
        for (const SelectionChange& change : changes) {
            for (int row = change.first; row <= change.last; ++row) {
                if (change.is_selected)
                    rows.insert(row);
                else
                    rows.erase(row);
            }
        }
        return rows;
    }

    gui::TopWnd top;
    std::unique_ptr<VirtualList> list;
    std::set<int> asked;
    std::vector<SelectionChange> changes;
};

TEST_F(Virtual, AHundredThousandRowsAreSetWithoutAQuery)
{
    list->set_count(many);
    EXPECT_TRUE(asked.empty());
    EXPECT_EQ(list->count(), many);
}

TEST_F(Virtual, QueriesOnlyTheVisibleRows)
{
    list->set_count(many);
    paint();
    gui::pump();
    EXPECT_FALSE(asked.empty());
    EXPECT_LE(static_cast<int>(asked.size()), rows_in_view());
    EXPECT_LE(*asked.rbegin(), rows_in_view());
}

TEST_F(Virtual, ShowsTheCellsOfItsSource)
{
    set_count(many);
    EXPECT_EQ(list->cell_text(0, 0), L"行0");
    EXPECT_EQ(list->cell_text(99'999, 0), L"行99999");
    EXPECT_EQ(list->cell_text(12'345, 1), L"p.12345");
}

TEST_F(Virtual, DoesNotQueryAMissingRow)
{
    set_count(10);
    for (const int row : { -1, 10, many }) {
        EXPECT_EQ(list->cell_text(row, 0), L"");
        wchar_t text[16] = L"x";
        NMLVDISPINFOW request{};
        request.hdr.code = LVN_GETDISPINFOW;
        request.item.mask = LVIF_TEXT | LVIF_IMAGE;
        request.item.iItem = row;
        request.item.pszText = text;
        request.item.cchTextMax = 16;
        notify(request.hdr);
        EXPECT_EQ(std::wstring(text), L"") << row;
    }
    EXPECT_TRUE(asked.empty());
}

TEST_F(Virtual, ANewSourceIsShownAtOnce)
{
    set_count(10);
    paint();
    list->set_source(source());
    asked.clear();
    UpdateWindow(list->hwnd());
    EXPECT_EQ(asked.count(9), 1u);
    VirtualList not_created{ &top, 8 };
    ValidateRect(top.hwnd(), nullptr);
    not_created.set_source({});
    EXPECT_FALSE(GetUpdateRect(top.hwnd(), nullptr, FALSE)) << "no window is not all windows";
}

// The source's data no longer exists when the system reads the text.
TEST_F(Virtual, KeepsNoTextOfItsSource)
{
    std::wstring kept;
    list->set_source({ .text = [&](int row, int) {
        kept.assign(40, static_cast<wchar_t>(L'a' + row));
        return kept;
    } });
    set_count(3);
    wchar_t given[64] = {};
    NMLVDISPINFOW request{};
    request.hdr.code = LVN_GETDISPINFOW;
    request.item.mask = LVIF_TEXT;
    request.item.pszText = given;
    request.item.cchTextMax = 64;
    notify(request.hdr);
    EXPECT_EQ(request.item.pszText, given) << "into the buffer of the system";
    EXPECT_EQ(std::wstring(given), std::wstring(40, L'a'));
}

TEST_F(Virtual, ALongTextIsTruncatedAtTheBuffersEnd)
{
    list->set_source({ .text = [](int, int) { return std::wstring(5'000, L'あ'); } });
    set_count(1);
    for (const int room : { 1, 2, 7 }) {
        std::vector<wchar_t> buffer(static_cast<std::size_t>(room) + 1, L'#');
        NMLVDISPINFOW request{};
        request.hdr.code = LVN_GETDISPINFOW;
        request.item.mask = LVIF_TEXT;
        request.item.pszText = buffer.data();
        request.item.cchTextMax = room;
        notify(request.hdr);
        EXPECT_EQ(std::wstring(buffer.data()), std::wstring(static_cast<std::size_t>(room) - 1, L'あ'));
        EXPECT_EQ(buffer.back(), L'#') << room;
    }
    NMLVDISPINFOW none{};
    none.hdr.code = LVN_GETDISPINFOW;
    none.item.mask = LVIF_TEXT;
    notify(none.hdr);
    EXPECT_EQ(none.item.pszText, nullptr);
    EXPECT_EQ(list->cell_text(0, 0), std::wstring(1'023, L'あ'));
}

TEST_F(Virtual, ARowHasTheImageOfItsSource)
{
    const auto image_of = [&](int row, int column) {
        NMLVDISPINFOW request{};
        request.hdr.code = LVN_GETDISPINFOW;
        request.item.mask = LVIF_IMAGE;
        request.item.iItem = row;
        request.item.iSubItem = column;
        request.item.iImage = 77;
        notify(request.hdr);
        return request.item.iImage;
    };
    set_count(3);
    EXPECT_EQ(image_of(0, 0), I_IMAGENONE) << "a source without images";
    list->set_source({ .text = {}, .image = [](int row) { return row + 4; } });
    EXPECT_EQ(image_of(0, 0), 4);
    EXPECT_EQ(image_of(2, 0), 6);
    EXPECT_EQ(image_of(2, 1), I_IMAGENONE) << "in the first column only";
    EXPECT_EQ(image_of(3, 0), I_IMAGENONE) << "no such row";
}

TEST_F(Virtual, WithoutASourceItsCellsAreEmpty)
{
    list->set_source({});
    set_count(10);
    paint();
    list->select(3);
    EXPECT_EQ(list->cell_text(3, 0), L"");
    EXPECT_EQ(list->selected(), 3);
}

TEST_F(Virtual, ANewCountDoesNotScroll)
{
    set_count(many);
    list->select(10);
    list->ensure_visible(5'000);
    const int before = top_row();
    ASSERT_GT(before, 4'900);
    for (const int count : { many / 2, 2 * many, many }) {
        list->set_count(count);
        EXPECT_EQ(top_row(), before) << count;
    }
    list->set_count(0);
    EXPECT_EQ(list->count(), 0);
    list->set_count(-5);
    EXPECT_EQ(list->count(), 0);
}

TEST_F(Virtual, RowsBeyondANewCountLoseTheirSelectionWithoutANotification)
{
    set_count(many);
    const std::vector rows{ 2, 8, 9, 50'000 };
    list->select_rows(rows);
    changes.clear();
    list->set_count(9);
    EXPECT_EQ(list->selection(), (std::vector{ 2, 8 }));
    list->set_count(many);
    EXPECT_EQ(list->selection(), (std::vector{ 2, 8 })) << "they do not come back";
    EXPECT_TRUE(changes.empty());
}

TEST_F(Virtual, ReportsARowThatIsSelected)
{
    set_count(many);
    list->select(70'000);
    EXPECT_EQ(changes.back(), (SelectionChange{ 70'000, 70'000, true }));
    EXPECT_EQ(reported_rows(), (std::set{ 70'000 }));
    list->select(3);
    EXPECT_EQ(reported_rows(), (std::set{ 3 }));
    list->select(-1);
    EXPECT_TRUE(reported_rows().empty());
    const std::vector two{ 4, 8 };
    list->select_rows(two);
    list->select(-1);
    EXPECT_EQ(changes.back(), (SelectionChange{ 0, many - 1, false })) << "all rows at once";
}

TEST_F(Virtual, TheFocusAloneIsNoChangeOfTheSelection)
{
    set_count(10);
    LVITEMW item{};
    item.state = item.stateMask = LVIS_FOCUSED;
    ask(LVM_SETITEMSTATE, 4, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(ask(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 4);
    EXPECT_TRUE(changes.empty());
}

TEST_F(Virtual, ARangeOfRowsIsReportedOnce)
{
    set_count(many);
    NMLVODSTATECHANGE notice{};
    notice.hdr.code = LVN_ODSTATECHANGED;
    notice.iFrom = 20;
    notice.iTo = 400;
    notice.uNewState = LVIS_SELECTED;
    notify(notice.hdr);
    notice.uOldState = LVIS_SELECTED;
    notify(notice.hdr);
    notice.uNewState = 0;
    notify(notice.hdr);
    EXPECT_EQ(changes, (std::vector<SelectionChange>{ { 20, 400, true }, { 20, 400, false } }));
}

TEST_F(Virtual, AListWithoutRowsReportsNothing)
{
    NMLISTVIEW notice{};
    notice.hdr.code = LVN_ITEMCHANGED;
    notice.iItem = -1;
    notice.uOldState = LVIS_SELECTED;
    notify(notice.hdr);
    EXPECT_TRUE(changes.empty());
}

TEST_F(Virtual, SelectsOnlyTheseRows)
{
    set_count(many);
    list->select(5);
    const std::vector rows{ 90'000, 7, 8, -1, many };
    list->select_rows(rows);
    EXPECT_EQ(list->selection(), (std::vector{ 7, 8, 90'000 }));
    EXPECT_EQ(list->selected_count(), 3);
    EXPECT_EQ(reported_rows(), (std::set{ 7, 8, 90'000 }));
    EXPECT_EQ(top_row(), 0) << "not scrolled";
    list->select_rows({});
    EXPECT_TRUE(list->selection().empty());
    EXPECT_EQ(list->selected_count(), 0);
}

TEST_F(Virtual, AListOfSingleSelectionKeepsOneRow)
{
    VirtualList single{ &top, 8, LVS_SINGLESEL };
    ASSERT_TRUE(single.create(L""));
    single.set_count(10);
    const std::vector rows{ 2, 6, 4 };
    single.select_rows(rows);
    EXPECT_EQ(single.selection(), (std::vector{ 4 }));
}

TEST_F(Virtual, ARangeSelectedWithShiftIsReported)
{
    set_count(many);
    ASSERT_TRUE(gui::bring_to_front(top));
    list->set_focus();
    list->select(99);
    list->send(WM_KEYDOWN, VK_DOWN, 0);
    changes.clear();
    {
        const gui::HeldKey shift{ VK_SHIFT };
        ASSERT_TRUE(gui::pump_until([] { return GetKeyState(VK_SHIFT) < 0; }));
        for (int i = 0; i < 5; ++i)
            list->send(WM_KEYDOWN, VK_DOWN, 0);
    }
    EXPECT_EQ(list->selection(), (std::vector{ 100, 101, 102, 103, 104, 105 }));
    std::set<int> rows = reported_rows();
    rows.insert(100); // selected before
    EXPECT_EQ(rows, (std::set{ 100, 101, 102, 103, 104, 105 }));
}

TEST_F(Virtual, ARowIsScrolledIntoViewAndNotSelected)
{
    set_count(many);
    list->ensure_visible(60'000);
    EXPECT_LE(top_row(), 60'000);
    EXPECT_GT(top_row() + rows_in_view(), 60'000);
    EXPECT_EQ(list->selected(), -1);
    const int before = top_row();
    list->ensure_visible(before + 1);
    EXPECT_EQ(top_row(), before) << "in view already";
}

TEST_F(Virtual, RedrawnRowsAreQueriedAgain)
{
    set_count(many);
    paint();
    gui::pump();
    asked.clear();
    list->redraw_rows(2, 3);
    UpdateWindow(list->hwnd());
    EXPECT_EQ(asked.count(2), 1u);
    EXPECT_EQ(asked.count(3), 1u);
    EXPECT_EQ(asked.count(6), 0u);
    asked.clear();
    list->redraw_rows(50'000, 50'010);
    UpdateWindow(list->hwnd());
    EXPECT_TRUE(asked.empty()) << "out of view";
}

TEST_F(Virtual, TypingSelectsTheNextRowThatStartsWithTheText)
{
    const std::vector<std::wstring> names{ L"Apple", L"banana", L"Cherry", L"Citron", L"apricot" };
    list->set_source({ .text = [&](int row, int column) {
        return column == 0 ? names[static_cast<std::size_t>(row)] : std::wstring(L"x");
    } });
    set_count(static_cast<int>(names.size()));
    list->set_focus();
    for (const wchar_t unit : { L'C', L'i' })
        list->send(WM_CHAR, static_cast<std::uint64_t>(unit), 1);
    EXPECT_EQ(list->selected(), 3);
}

TEST_F(Virtual, ASearchFollowsItsRequest)
{
    const std::vector<std::wstring> names{ L"Apple", L"banana", L"Cherry", L"Citron", L"apricot" };
    list->set_source({ .text = [&](int row, int) { return names[static_cast<std::size_t>(row)]; } });
    set_count(static_cast<int>(names.size()));
    EXPECT_EQ(find(L"c", LVFI_STRING | LVFI_PARTIAL, 0), 2);
    EXPECT_EQ(find(L"c", LVFI_STRING | LVFI_PARTIAL, 3), 3);
    EXPECT_EQ(find(L"AP", LVFI_PARTIAL, 1), 4);
    EXPECT_EQ(find(L"AP", LVFI_STRING, 0), -1) << "the whole row";
    EXPECT_EQ(find(L"APPLE", LVFI_STRING, 0), 0);
    EXPECT_EQ(find(L"b", LVFI_STRING | LVFI_PARTIAL, 2), -1);
    EXPECT_EQ(find(L"b", LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP, 2), 1);
    constexpr UINT substring = 4;
    EXPECT_EQ(find(L"ci", substring, 0), 3);
    EXPECT_EQ(find(L"c", LVFI_PARAM, 0), -1) << "by a number that no row has";
    EXPECT_EQ(find(nullptr, LVFI_STRING, 0), -1);
}

TEST_F(Virtual, PassesOtherNotificationsToItsParent)
{
    ovlib::ReportListView plain{ &top, 9 };
    ASSERT_TRUE(plain.create(L""));
    const auto is_routed = [&](HWND from, UINT code) {
        NMLVDISPINFOW notice{};
        notice.hdr.hwndFrom = from;
        notice.hdr.code = code;
        ovlib::WndMessage message{ top.hwnd(), WM_NOTIFY, 0, reinterpret_cast<std::intptr_t>(&notice), 0 };
        return ovlib::route_list_notice(message);
    };
    EXPECT_TRUE(is_routed(list->hwnd(), LVN_GETDISPINFOW));
    EXPECT_FALSE(is_routed(list->hwnd(), NM_CLICK));
    EXPECT_FALSE(is_routed(plain.hwnd(), LVN_GETDISPINFOW));
    EXPECT_FALSE(is_routed(nullptr, LVN_GETDISPINFOW));
    ovlib::WndMessage other{ top.hwnd(), WM_COMMAND, 0, 0, 0 };
    EXPECT_FALSE(ovlib::route_list_notice(other));
}

TEST_F(Virtual, ANotificationMayChangeTheSourceOrDestroyTheList)
{
    set_count(10);
    list->set_source({ .text = {}, .image = {}, .selected = [&](const SelectionChange& change) {
                          changes.push_back(change);
                          list->set_source({});
                          changes.push_back(change);
                      } });
    list->select(4);
    EXPECT_EQ(changes.size(), 2u);
    list->set_source({ .text = {}, .image = {}, .selected = [&](const SelectionChange&) {
                          if (HWND const hwnd = list->hwnd()) {
                              list.reset();
                              PostMessageW(hwnd, WM_CLOSE, 0, 0);
                          }
                      } });
    NMLISTVIEW notice{};
    notice.hdr.code = LVN_ITEMCHANGED;
    notice.uNewState = LVIS_SELECTED;
    notify(notice.hdr);
    EXPECT_EQ(list, nullptr);
}

TEST_F(Virtual, CostsNoHandlesHoweverOftenItIsFilled)
{
    const gui::GdiCrowd crowd{ 150 };
    for (int i = 0; i < 200; ++i) {
        list->set_count(1'000 - i);
        list->select(i % 7);
        paint();
    }
    gui::expect_handles_to_spare(20);
}

} // namespace
