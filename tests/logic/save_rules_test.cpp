// When a Book is written, committing the boxes, and the message of a failure.
#include "app/save_rules.hpp"
#include "book/page_text.hpp"
#include <gtest/gtest.h>

namespace {

using app::BoxEdits;
using app::Leave;
using app::save_step;
using app::SaveCode;
using app::SaveStep;

constexpr bool changed = true;
constexpr bool busy = true;

TEST(SaveStep, AlwaysWritesEvenWithoutAChange)
{
    EXPECT_EQ(save_step(SaveCode::always, !changed, !busy), SaveStep::write);
    EXPECT_EQ(save_step(SaveCode::always, changed, !busy), SaveStep::write);
}

TEST(SaveStep, IfChangedWritesWithoutAQuestion)
{
    EXPECT_EQ(save_step(SaveCode::if_changed, changed, !busy), SaveStep::write);
    EXPECT_EQ(save_step(SaveCode::if_changed, !changed, !busy), SaveStep::skip);
}

TEST(SaveStep, BeforeLeavingAsksOnlyForAChange)
{
    EXPECT_EQ(save_step(SaveCode::ask, changed, !busy), SaveStep::ask);
    EXPECT_EQ(save_step(SaveCode::ask, !changed, !busy), SaveStep::skip);
}

TEST(SaveStep, WritesNothingWhileAnotherWindowOwnsTheBook)
{
    for (const SaveCode code : { SaveCode::always, SaveCode::if_changed, SaveCode::ask }) {
        EXPECT_EQ(save_step(code, changed, busy), SaveStep::give_up);
        EXPECT_EQ(save_step(code, !changed, busy), SaveStep::give_up);
    }
}

TEST(LeaveDecision, StaysOnAPageWhoseEditsCouldNotBeWritten)
{
    EXPECT_EQ(app::leave_decision(false, true), Leave::go_on);
    EXPECT_EQ(app::leave_decision(true, true), Leave::stay);
}

TEST(LeaveDecision, DropsEditsThatHaveNoPage)
{
    EXPECT_EQ(app::leave_decision(true, false), Leave::drop_edits_and_go_on);
    EXPECT_EQ(app::leave_decision(false, false), Leave::go_on);
}

TEST(TakeBack, ReplacesOnlyTheEditedBoxes)
{
    book::Page page;
    page.text = { L"one\r\n", L"two", L"three\r\n" };
    app::commit_edits({ std::nullopt, L"new", std::nullopt }, page);
    EXPECT_EQ(page.text, (std::array<std::wstring, 3>{ L"one\r\n", L"new", L"three\r\n" }));
    app::commit_edits({ L"", std::nullopt, L"x" }, page);
    EXPECT_EQ(page.text, (std::array<std::wstring, 3>{ L"", L"new", L"x" }));
}

TEST(TakeBack, TrimsOnlyBoxTwoAtBothEnds)
{
    book::Page page;
    app::commit_edits({ L"  a \r\n", L"\u3000 b \t", L" c \r\n" }, page);
    EXPECT_EQ(page.text, (std::array<std::wstring, 3>{ L"  a \r\n", L"b", L" c \r\n" }));
}

TEST(TakeBack, RemovesTheSeparatorFromEveryBox)
{
    book::Page page;
    app::commit_edits({ L"\u0003a\u0003", L"b\u0003c", L"\u0003" }, page);
    EXPECT_EQ(page.text, (std::array<std::wstring, 3>{ L"a", L"bc", L"" }));
}

// Trimming comes first, so white space next to a separator is kept.
TEST(TakeBack, TrimsBeforeItRemovesSeparators)
{
    book::Page page;
    app::commit_edits({ std::nullopt, L"\u0003 b", std::nullopt }, page);
    EXPECT_EQ(page.text[1], L" b");
}

TEST(RenewStamp, KeepsTheCreationTimeAndReplacesTheRest)
{
    std::wstring stamp = L"2020010203040520210102030405";
    book::renew_stamp(stamp, L"20240506070809");
    EXPECT_EQ(stamp, L"2020010203040520240506070809");
}

TEST(RenewStamp, OfAShortStampKeepsItsText)
{
    std::wstring stamp = L"2020";
    book::renew_stamp(stamp, L"20240506070809");
    EXPECT_EQ(stamp, L"202020240506070809");
    stamp.clear();
    book::renew_stamp(stamp, L"20240506070809");
    EXPECT_EQ(stamp, L"20240506070809");
}

TEST(SaveFailureText, NamesTheFile)
{
    EXPECT_EQ(app::save_failure_text(L"C:\\本.bok", 0x20), L"Error: Book の保存に失敗\r\nC:\\本.bok");
}

TEST(SaveFailureText, NamesAReadOnlyFileAndOneThatCannotBeExamined)
{
    const std::wstring told = L"Error: Book の保存に失敗\r\na.bok\r\n\r\nこのファイルは読取り専用";
    EXPECT_EQ(app::save_failure_text(L"a.bok", 0x21), told);
    EXPECT_EQ(app::save_failure_text(L"a.bok", 0xFFFFFFFF), told);
}

} // namespace
