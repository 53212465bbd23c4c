// The address that opens the user's mail program.
#include "app/mail_link.hpp"
#include <gtest/gtest.h>

namespace {

TEST(MailLink, EncodesAddressSubjectAndBody)
{
    EXPECT_EQ(app::mail_link(L"a.b@example.com", L"", L""), L"mailto:a.b%40example.com?Subject=&Body=");
    EXPECT_EQ(app::mail_link(L"a", L"件 名", L"&?"), L"mailto:a?Subject=%E4%BB%B6%20%E5%90%8D&Body=%26%3F");
}

TEST(MailLink, TheFailureIsFixed)
{
    EXPECT_STREQ(app::mail_failure, L"Error: 既定のメーラーを開けませんでした．");
}

} // namespace
