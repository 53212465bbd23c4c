// The message for an exception, and the file written at the end of a logon.
#include "app/failures.hpp"
#include "book/book.hpp"
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

using app::BoxStyle;
using app::FailedAt;
using app::FailureNotice;

template <class Error> FailureNotice notice(const Error& error, FailedAt where)
{
    return app::failure_notice(std::make_exception_ptr(error), where);
}

TEST(FailureNotice, OfAStandardExceptionEndsTheProgram)
{
    const FailureNotice expected{ L"読込み\r\nアプリケーションを終了します．", BoxStyle::error, true };
    const std::runtime_error error{ "\xE8\xAA\xAD\xE8\xBE\xBC\xE3\x81\xBF" };
    EXPECT_EQ(notice(error, FailedAt::creation), expected);
    EXPECT_EQ(notice(error, FailedAt::command), expected);
}

TEST(FailureNotice, OfAFatalErrorOfOursEndsTheProgram)
{
    const FailureNotice expected{ L"失敗\r\nアプリケーションを終了します．", BoxStyle::error, true };
    EXPECT_EQ(notice(MyException{ L"失敗", fatal_code }, FailedAt::creation), expected);
    EXPECT_EQ(notice(MyException{ L"失敗", fatal_code }, FailedAt::command), expected);
}

TEST(FailureNotice, OfAnotherErrorOfOursWarnsInACommandOnly)
{
    EXPECT_EQ(notice(MyException{ L"失敗", 2 }, FailedAt::command),
        (FailureNotice{ L"失敗", BoxStyle::warning, false }));
    EXPECT_EQ(notice(MyException{ L"失敗", 2 }, FailedAt::creation),
        (FailureNotice{ L"失敗\r\nアプリケーションを終了します．", BoxStyle::error, true }));
}

TEST(FailureNotice, OfAFullBookIsAWarning)
{
    const FailureNotice full = notice(book::Book::PageCountOver{}, FailedAt::command);
    EXPECT_EQ(full.style, BoxStyle::warning);
    EXPECT_FALSE(full.ends_program);
    EXPECT_EQ(full.text.find(L"ページ数の上限 ["), 0u);
}

TEST(FailureNotice, WithoutATextHasOnlyTheClosingWords)
{
    EXPECT_EQ(notice(MyException{ L"", fatal_code }, FailedAt::creation).text,
        L"\r\nアプリケーションを終了します．");
}

TEST(EndOfLogonText, FillsAllButTheYearWithZeros)
{
    EXPECT_EQ(app::end_of_logon_text({ 2024, 3, 5, 7, 8, 9 }),
        L"-- Pagewick --\r\nThe last modifications were saved.\r\n@ WM_ENDSESSION\r\n\r\n2024/03/05 "
        L"07:08:09");
}

TEST(EndOfLogonText, OfAFailedClockIsAllZeros)
{
    const std::wstring text = app::end_of_logon_text({});
    EXPECT_EQ(text.substr(text.size() - 17), L"\n0/00/00 00:00:00");
}

} // namespace
