// The context menu of a text box and the rules for greying its items.
#include "core/command_ids.hpp"
#include "look/box_menu.hpp"
#include <gtest/gtest.h>

namespace {

namespace command = core::command;
using look::BoxMenuState;

constexpr BoxMenuState everything{
    .has_selection = true, .has_text = true, .can_undo = true, .can_paste = true, .is_palette_visible = false
};

// The ids of the greyed items.
std::vector<int> greyed(const BoxMenuState& state)
{
    std::vector<int> ids;
    for (const ovlib::MenuRow& row : look::box_menu()) {
        if (row.kind == ovlib::MenuKind::item && !look::is_box_item_enabled(row.id, state))
            ids.push_back(row.id);
    }
    return ids;
}

BoxMenuState everything_but(bool BoxMenuState::*what, bool value)
{
    BoxMenuState state = everything;
    state.*what = value;
    return state;
}

TEST(BoxMenu, HasItsItemsInOrder)
{
    using ovlib::menu_item;
    using ovlib::menu_separator;
    const ovlib::MenuRows expected{ menu_item(33006, L"検索"), menu_item(33007, L"色/フォント"),
        menu_separator(), menu_item(33000, L"元に戻す(U)"), menu_separator(),
        menu_item(33001, L"切り取り(T)"), menu_item(33002, L"コピー(C)"), menu_item(33003, L"貼り付け(P)"),
        menu_item(33004, L"削除(D)"), menu_separator(), menu_item(33005, L"すべて選択(A) ") };
    EXPECT_EQ(look::box_menu(), expected);
}

TEST(BoxMenu, GreysNothingWhenEverythingCanBeDone)
{
    EXPECT_EQ(greyed(everything), std::vector<int>{});
}

TEST(BoxMenu, GreysWhatNeedsASelection)
{
    EXPECT_EQ(greyed(everything_but(&BoxMenuState::has_selection, false)),
        (std::vector<int>{ command::box_search, command::box_cut, command::box_copy, command::box_delete }));
}

TEST(BoxMenu, GreysColoursAndFontWhileTheirWindowIsVisible)
{
    EXPECT_EQ(greyed(everything_but(&BoxMenuState::is_palette_visible, true)),
        std::vector<int>{ command::box_look });
}

TEST(BoxMenu, GreysUndoWithoutAChange)
{
    EXPECT_EQ(greyed(everything_but(&BoxMenuState::can_undo, false)), std::vector<int>{ command::box_undo });
}

TEST(BoxMenu, GreysPasteWithoutTextInTheClipboard)
{
    EXPECT_EQ(
        greyed(everything_but(&BoxMenuState::can_paste, false)), std::vector<int>{ command::box_paste });
}

TEST(BoxMenu, GreysSelectAllInAnEmptyBox)
{
    EXPECT_EQ(
        greyed(everything_but(&BoxMenuState::has_text, false)), std::vector<int>{ command::box_select_all });
}

} // namespace
