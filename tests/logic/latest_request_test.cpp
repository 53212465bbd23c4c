// Requests of which only the latest counts.
#include "core/latest_request.hpp"
#include <gtest/gtest.h>

namespace {

using core::LatestRequest;
using Request = LatestRequest::Request;

TEST(LatestRequest, IsNoneAtFirst)
{
    const LatestRequest requests;
    EXPECT_EQ(requests.latest(), Request::none);
    EXPECT_TRUE(requests.is_latest(Request::none));
}

TEST(LatestRequest, CountsUntilAnotherIsMade)
{
    LatestRequest requests;
    const Request first = requests.make();
    EXPECT_TRUE(requests.is_latest(first));
    EXPECT_EQ(requests.latest(), first);
    EXPECT_FALSE(requests.is_latest(Request::none));
    const Request second = requests.make();
    EXPECT_FALSE(requests.is_latest(first));
    EXPECT_TRUE(requests.is_latest(second));
}

TEST(LatestRequest, AnOutdatedOneNeverCountsAgain)
{
    LatestRequest requests;
    const Request first = requests.make();
    for (int i = 0; i < 1000; ++i) {
        requests.make();
        ASSERT_FALSE(requests.is_latest(first));
        ASSERT_FALSE(requests.is_latest(Request::none));
    }
}

TEST(LatestRequest, OfOneOwnerOutdatesNoneOfAnother)
{
    LatestRequest requests;
    LatestRequest others;
    const Request first = requests.make();
    others.make();
    others.make();
    EXPECT_TRUE(requests.is_latest(first));
}

// As in a window that loads the file requested last: requests made while one is being served are served
// afterwards, together.
TEST(LatestRequest, MadeDuringTheServiceIsServedNext)
{
    LatestRequest requests;
    int runs = 0;
    Request served = Request::none;
    requests.make();
    while (!requests.is_latest(served) && runs < 5) {
        served = requests.latest();
        if (++runs == 1) {
            requests.make();
            requests.make();
            EXPECT_FALSE(requests.is_latest(served));
        }
    }
    EXPECT_EQ(runs, 2);
}

} // namespace
