// Where a dropped text goes, and what box 2 accepts.
#include "app/drop_rules.hpp"
#include "app/save_rules.hpp"
#include "book/page_text.hpp"
#include "look/drop_option_layout.hpp"
#include <array>
#include <gtest/gtest.h>

namespace {

using platform::Rect;

constexpr std::array boxes{ Rect{ 10, 10, 100, 50 }, Rect{ 10, 50, 100, 60 }, Rect{ 10, 40, 100, 90 } };

TEST(DropTarget, IsTheFirstBoxThatContainsThePoint)
{
    EXPECT_EQ(app::box_at(boxes, { 10, 10 }), 0u);
    EXPECT_EQ(app::box_at(boxes, { 99, 49 }), 0u) << "of two boxes the first";
    EXPECT_EQ(app::box_at(boxes, { 50, 50 }), 1u) << "the lower edge belongs to the next box";
    EXPECT_EQ(app::box_at(boxes, { 50, 60 }), 2u);
}

TEST(DropTarget, IsNoneOutsideTheBoxes)
{
    for (const platform::Point point : { platform::Point{ 9, 20 }, { 100, 20 }, { 50, 9 }, { 50, 90 } })
        EXPECT_EQ(app::box_at(boxes, point), std::nullopt) << point.x << ' ' << point.y;
    EXPECT_EQ(app::box_at({}, { 0, 0 }), std::nullopt);
}

TEST(DroppedTextForABox, IsOneLineForBox2)
{
    EXPECT_EQ(app::text_for_box(1, L"one\r\ntwo"), L"one");
    EXPECT_EQ(app::text_for_box(1, L"one\ntwo"), L"one");
    EXPECT_EQ(app::text_for_box(1, L"one\rtwo"), L"one");
    EXPECT_EQ(app::text_for_box(1, L"\r\none"), L"");
    EXPECT_EQ(app::text_for_box(1, L" one "), L" one ");
    EXPECT_EQ(app::text_for_box(0, L"one\r\ntwo"), L"one\r\ntwo");
    EXPECT_EQ(app::text_for_box(2, L"one\r\ntwo"), L"one\r\ntwo");
}

book::Page committed(const std::wstring& text)
{
    book::Page page;
    app::commit_edits({ std::nullopt, text, std::nullopt }, page);
    return page;
}

TEST(CommitOfBox2, EndsAtALineBreak)
{
    EXPECT_EQ(committed(L"one\r\ntwo").text[1], L"one");
    EXPECT_EQ(committed(L"one\ntwo").text[1], L"one");
    EXPECT_EQ(committed(L"one\rtwo").text[1], L"one");
    EXPECT_EQ(committed(L"one \r\ntwo").text[1], L"one");
    EXPECT_EQ(committed(L"\r\none\r\n").text[1], L"one") << "what surrounds the text is trimmed first";
    EXPECT_EQ(committed(L"one two").text[1], L"one two");
}

TEST(CommitOfTheOtherBoxes, KeepsLineBreaks)
{
    book::Page page;
    app::commit_edits({ L"a\r\nb", std::nullopt, L"c\r\nd" }, page);
    EXPECT_EQ(page.text[0], L"a\r\nb");
    EXPECT_EQ(page.text[2], L"c\r\nd");
}

TEST(DropOptionLayout, PutsTheButtonsAroundTheMiddle)
{
    const look::DropOptionLayout at = look::drop_option_layout({ 260, 64 });
    EXPECT_EQ(at.files_button, (Rect{ 15, 5, 245, 31 }));
    EXPECT_EQ(at.pages_button, (Rect{ 15, 33, 245, 59 }));
    const look::DropOptionLayout lower = look::drop_option_layout({ 260, 61 });
    EXPECT_EQ(lower.files_button, (Rect{ 15, 3, 245, 29 }));
    EXPECT_EQ(lower.pages_button, (Rect{ 15, 31, 245, 57 }));
}

} // namespace
