// The search for a Book to open at start.
#include "app/last_book.hpp"
#include <gtest/gtest.h>

namespace {

using Paths = std::vector<std::wstring>;

struct Start {
    Paths history{};
    Paths tried{};
    std::wstring openable{};
    bool forgets = true; // as opening a missing file does
    bool can_create = false;
    int created = 0;

    bool open()
    {
        return app::open_last_book(history,
            { [this](std::wstring path) {
                 tried.push_back(path);
                 if (forgets && path != openable)
                     history.erase(history.begin());
                 return path == openable;
             },
                [this] {
                    ++created;
                    return can_create;
                },
                [this] { history.erase(history.begin()); } });
    }
};

TEST(OpenLastBook, OpensTheFirstEntry)
{
    Start start{ .history = { L"a", L"b" }, .openable = L"a" };
    EXPECT_TRUE(start.open());
    EXPECT_EQ(start.tried, Paths{ L"a" });
    EXPECT_EQ(start.created, 0);
}

TEST(OpenLastBook, ContinuesWithTheNextEntryWhenOneIsMissing)
{
    Start start{ .history = { L"a", L"b", L"c" }, .openable = L"c" };
    EXPECT_TRUE(start.open());
    EXPECT_EQ(start.tried, (Paths{ L"a", L"b", L"c" }));
    EXPECT_EQ(start.history, Paths{ L"c" });
}

TEST(OpenLastBook, AsksForANewBookWhenNoneIsLeft)
{
    Start start{ .history = { L"a" }, .can_create = true };
    EXPECT_TRUE(start.open());
    EXPECT_EQ(start.created, 1);
}

TEST(OpenLastBook, FailsWhenNoBookIsCreated)
{
    Start start{};
    EXPECT_FALSE(start.open());
    EXPECT_EQ(start.created, 1);
}

TEST(OpenLastBook, EndsEvenIfAFailedEntryStays)
{
    Start start{ .history = { L"", L"b" }, .openable = L"none", .forgets = false };
    EXPECT_FALSE(start.open());
    EXPECT_EQ(start.tried, (Paths{ L"", L"b" }));
    EXPECT_TRUE(start.history.empty());
}

} // namespace
