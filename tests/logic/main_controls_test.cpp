// The main window's buttons and check boxes as data.
#include "app/control_rows.hpp"
#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <string_view>

namespace {

namespace command = core::command;
using app::button_rows;
using app::check_rows;
using platform::Rect;

const app::MainLayout at = app::main_layout({ 1374, 825 });

std::vector<Rect> all_places()
{
    std::vector<Rect> places;
    for (const app::ButtonRow& row : button_rows)
        places.push_back(at.*row.place);
    for (const app::CheckRow& row : check_rows)
        places.push_back(at.*row.place);
    return places;
}

bool overlap(const Rect& one, const Rect& other)
{
    return one.left < other.right && other.left < one.right && one.top < other.bottom
        && other.top < one.bottom;
}

// The numbers are written out: a control with another command's name would still compile.
TEST(MainControls, HaveTheNumbersOfTheCommandsTheySend)
{
    std::map<std::wstring_view, int> numbers;
    for (const app::ButtonRow& row : button_rows)
        numbers[*row.text ? row.text : row.picture] = row.command;
    for (const app::CheckRow& row : check_rows)
        numbers[row.text] = row.command;
    const std::map<std::wstring_view, int> expected{ { L"front.png", 1012 }, { L"prev.png", 1011 },
        { L"next.png", 1010 }, { L"back.png", 1013 }, { L"Book", 1001 }, { L"保存", 1006 },
        { L"loupe.png", 1057 }, { L"clear.png", 1025 }, { L"資料", 1028 }, { L"topfile.png", 2532 },
        { L"btmfile.png", 2533 }, { L"マーク", 1014 }, { L"マーク追跡", 1015 }, { L"タブ", 2507 },
        { L"タブ追跡", 1016 }, { L"昇順", 1020 }, { L"ランダム", 1018 }, { L"逆順", 1019 },
        { L"AND検索", 1022 }, { L"大文字・小文字を区別しない", 1023 }, { L"ファイルリストも検索", 1024 } };
    EXPECT_EQ(numbers, expected);
    EXPECT_EQ(button_rows.size() + check_rows.size(), expected.size());
}

TEST(TypingFields, GiveTheKeyboardToTheOneThatHadItLast)
{
    for (std::size_t last = 0; last < app::typing_fields.size(); ++last)
        EXPECT_EQ(app::field_for_keyboard(last, { true, true, true, true }), last);
}

TEST(TypingFields, SkipThoseThatCannotTakeTheKeyboard)
{
    EXPECT_EQ(app::field_for_keyboard(0, { false, true, true, true }), 1u);
    EXPECT_EQ(app::field_for_keyboard(1, { true, false, false, true }), 3u);
    EXPECT_EQ(app::field_for_keyboard(3, { true, true, true, false }), 0u);
    EXPECT_EQ(app::field_for_keyboard(2, { false, true, false, false }), 1u);
    EXPECT_EQ(app::field_for_keyboard(2, { false, false, false, false }), std::nullopt);
}

TEST(MainControls, DoNotOverlap)
{
    const std::vector<Rect> places = all_places();
    for (std::size_t i = 0; i < places.size(); ++i) {
        for (std::size_t other = i + 1; other < places.size(); ++other)
            EXPECT_FALSE(overlap(places[i], places[other])) << i << " and " << other;
    }
}

TEST(MainControls, HaveATextOrAPicture)
{
    for (const app::ButtonRow& row : button_rows)
        EXPECT_NE(std::wstring_view(row.text).empty(), std::wstring_view(row.picture).empty()) << row.command;
}

TEST(MainControls, OfTheOrderAndThePageAreInsideTheirFrame)
{
    const Rect frame = app::checks_frame(at);
    EXPECT_EQ(frame, (Rect{ 97, 714, 291, 786 }));
    for (const Rect& check : { at.mark_check, at.mark_tracking_check, at.tab_check, at.tab_tracking_check,
             at.sorted_check, at.random_check, at.reversed_check }) {
        EXPECT_GT(check.left, frame.left);
        EXPECT_GT(check.top, frame.top);
        EXPECT_LT(check.right, frame.right);
        EXPECT_LT(check.bottom, frame.bottom);
    }
}

} // namespace
