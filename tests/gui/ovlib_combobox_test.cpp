// The combo box: every operation on the system's own control.
#include "ovlib/gui/combobox.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>
#include <map>

namespace {

using ovlib::ComboBox;

constexpr int combo_id = 1053;

// Records messages that the box itself has no operations for.
class WatchedCombo : public ComboBox {
public:
    using ComboBox::ComboBox;

    bool on_message(ovlib::WndMessage& message) override
    {
        ++seen[message.message];
        if (message.message == CB_ADDSTRING && refusal != 0) {
            message.result = refusal;
            return true;
        }
        return ComboBox::on_message(message);
    }

    std::map<std::uint32_t, int> seen;
    int refusal = 0; // the result of adding a text; 0 lets the system decide
};

class Combo : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(host.create(L"host"));
        ASSERT_TRUE(combo.create(L""));
        combo.set_rect({ 10, 10, 210, 40 }, true);
    }
    void TearDown() override { host.destroy(); }

    void fill()
    {
        for (const int i : { 0, 1, 2 })
            combo.add(L"item " + std::to_wstring(i), 100 + i);
    }

    gui::TopWnd host;
    WatchedCombo combo{ &host, combo_id, CBS_DROPDOWNLIST };
};

TEST_F(Combo, HasTheStyleItIsGiven)
{
    CREATESTRUCTW params{};
    combo.create_params(params);
    EXPECT_EQ(params.style, 0x56200003);
    EXPECT_EQ(GetWindowLongW(combo.hwnd(), GWL_STYLE) & 0x5600000F, 0x56000003);
    EXPECT_EQ(combo.control_id(), combo_id);
    EXPECT_EQ(combo.count(), 0);
    EXPECT_EQ(combo.selected(), CB_ERR);
}

TEST_F(Combo, SetsNoValueOfATextThatWasNotAdded)
{
    combo.set_subclassed(true);
    fill();
    combo.seen.clear();
    for (const int refusal : { CB_ERR, CB_ERRSPACE }) {
        combo.refusal = refusal;
        EXPECT_EQ(combo.add(L"one too many", 7), refusal);
    }
    EXPECT_EQ(combo.seen[CB_ADDSTRING], 2);
    EXPECT_EQ(combo.seen[CB_SETITEMDATA], 0);
}

TEST_F(Combo, AddsWithAndWithoutAValue)
{
    EXPECT_EQ(combo.add(L"日本語"), 0);
    EXPECT_EQ(combo.add(L"b", 0x123456789A), 1);
    EXPECT_EQ(combo.count(), 2);
    EXPECT_EQ(combo.item_text(0), L"日本語");
    EXPECT_EQ(combo.text_length(0), 3);
    EXPECT_EQ(combo.item_data(0), 0);
    EXPECT_EQ(combo.item_data(1), 0x123456789A);
    combo.set_item_data(0, -7);
    EXPECT_EQ(combo.item_data(0), -7);
}

TEST_F(Combo, InsertsAndRemoves)
{
    fill();
    EXPECT_EQ(combo.insert(1, L"between"), 1);
    EXPECT_EQ(combo.item_text(1), L"between");
    EXPECT_EQ(combo.item_text(2), L"item 1");
    EXPECT_EQ(combo.remove(0), 3);
    EXPECT_EQ(combo.item_text(0), L"between");
    EXPECT_EQ(combo.remove(9), CB_ERR);
    combo.clear();
    EXPECT_EQ(combo.count(), 0);
}

TEST_F(Combo, SelectsAndDeselects)
{
    fill();
    EXPECT_EQ(combo.select(2), 2);
    EXPECT_EQ(combo.selected(), 2);
    EXPECT_EQ(combo.text(), L"item 2");
    combo.clear_selection();
    EXPECT_EQ(combo.selected(), CB_ERR);
    EXPECT_EQ(combo.select(3), CB_ERR);
}

TEST_F(Combo, QueriesForMissingItemsReturnEmptyResults)
{
    fill();
    combo.add(L"");
    EXPECT_EQ(combo.item_text(3), L"");
    EXPECT_EQ(combo.text_length(3), 0);
    EXPECT_EQ(combo.item_text(4), L"");
    EXPECT_EQ(combo.item_text(-1), L"");
    EXPECT_EQ(combo.text_length(4), CB_ERR);
}

TEST_F(Combo, FindsOnlyAWholeText)
{
    fill();
    combo.add(L"item");
    EXPECT_EQ(combo.find_exact(L"item", -1), 3);
    EXPECT_EQ(combo.find_exact(L"ITEM 1", -1), 1);
    EXPECT_EQ(combo.find_exact(L"item 1", 1), 1) << "goes round";
    EXPECT_EQ(combo.find_exact(L"ite", -1), CB_ERR);
}

TEST_F(Combo, AReplacedItemKeepsItsValueAndItsSelection)
{
    fill();
    combo.select(1);
    combo.replace(1, L"another", true);
    EXPECT_EQ(combo.selected(), 1);
    EXPECT_EQ(combo.item_text(1), L"another");
    EXPECT_EQ(combo.item_data(1), 101);
    EXPECT_EQ(combo.text(), L"another");
    EXPECT_EQ(combo.count(), 3);
    combo.select(2);
    combo.replace(2, L"the last", true);
    EXPECT_EQ(combo.selected(), 2);
    EXPECT_EQ(combo.item_text(2), L"the last");
}

TEST_F(Combo, ReplacingAnotherItemKeepsTheSelection)
{
    fill();
    combo.select(2);
    combo.replace(0, L"another", true);
    EXPECT_EQ(combo.item_text(0), L"another");
    EXPECT_EQ(combo.selected(), 2);
    EXPECT_EQ(combo.text(), L"item 2");
    combo.clear_selection();
    combo.replace(0, L"yet another", true);
    EXPECT_EQ(combo.selected(), CB_ERR);
}

TEST_F(Combo, ReplacingAMissingItemDoesNothing)
{
    fill();
    combo.select(1);
    combo.set_subclassed(true);
    combo.seen.clear();
    for (const int index : { -1, 3, 1000 })
        combo.replace(index, L"nothing", true);
    EXPECT_EQ(combo.seen[WM_SETREDRAW], 0);
    EXPECT_EQ(combo.count(), 3);
    EXPECT_EQ(combo.selected(), 1);
}

TEST_F(Combo, AReplacementCanLeaveTheRedrawingToTheCaller)
{
    fill();
    host.show(true);
    gui::pump();
    combo.set_subclassed(true);
    combo.replace(0, L"quiet", false);
    EXPECT_EQ(combo.seen[WM_SETREDRAW], 1);
    combo.seen.clear();
    combo.replace(0, L"seen", true);
    EXPECT_EQ(combo.seen[WM_SETREDRAW], 2);
    EXPECT_EQ(combo.seen[WM_PAINT], 1);
}

TEST_F(Combo, DropsAListWithTheRequestedNumberOfItems)
{
    for (int i = 0; i < 20; ++i)
        combo.add(std::to_wstring(i));
    const auto list_height = [&](int visible) {
        combo.set_min_visible(visible);
        combo.show_list(true);
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        GetComboBoxInfo(combo.hwnd(), &info);
        RECT rect{};
        GetWindowRect(info.hwndList, &rect);
        EXPECT_TRUE(IsWindowVisible(info.hwndList));
        combo.show_list(false);
        EXPECT_FALSE(IsWindowVisible(info.hwndList));
        return rect.bottom - rect.top;
    };
    const LONG of_three = list_height(3);
    EXPECT_GT(of_three, 0);
    EXPECT_GT(list_height(10), 2 * of_three);
}

TEST_F(Combo, ReturnsTheWindowInItsCorner)
{
    EXPECT_EQ(combo.edit_child(), ChildWindowFromPoint(combo.hwnd(), { 1, 1 }));
    EXPECT_NE(combo.edit_child(), nullptr);
    EXPECT_EQ(combo.text_length(), 0) << "the window's own text length is still there";
}

} // namespace
