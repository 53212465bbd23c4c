// Nesting of commands: one refresh when the outermost ends, and nothing raised gets out.
#include "app/command_run.hpp"
#include "book/my_exception.hpp"
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using app::RefreshMask;

class CommandRun : public testing::Test {
protected:
    std::vector<RefreshMask> refreshed;
    std::vector<std::string> reported;
    bool gone = false;
    std::function<void()> during_refresh = [] {};
    app::CommandRun commands{ { [this](RefreshMask& pending) {
                                   refreshed.push_back(pending);
                                   pending = 0;
                                   during_refresh();
                               },
        [this](const std::exception_ptr& failure) {
            try {
                std::rethrow_exception(failure);
            } catch (const std::exception& error) {
                reported.emplace_back(error.what());
            } catch (const MyException& error) {
                reported.emplace_back("mine " + std::to_string(error.code));
            }
        },
        [this] { return gone; } } };
};

TEST_F(CommandRun, WithoutAMaskRefreshesNothing)
{
    commands.run([] {});
    EXPECT_TRUE(refreshed.empty());
}

TEST_F(CommandRun, MergesTheMasksOfNestedCommandsIntoOneRefresh)
{
    commands.run([&] {
        commands.merge(0x1);
        commands.run([&] { commands.run([&] { commands.merge(0x8000); }); });
        EXPECT_TRUE(refreshed.empty());
        EXPECT_EQ(commands.depth(), 1);
        commands.merge(0x10);
    });
    EXPECT_EQ(refreshed, std::vector<RefreshMask>{ 0x8011 });
    EXPECT_EQ(commands.pending(), 0u);
    EXPECT_EQ(commands.depth(), 0);
}

TEST_F(CommandRun, ReportsWhatAnActionRaisesAndStillRefreshes)
{
    commands.run([&] {
        commands.merge(0x1);
        throw std::runtime_error("broken");
    });
    EXPECT_EQ(reported, std::vector<std::string>{ "broken" });
    EXPECT_EQ(refreshed, std::vector<RefreshMask>{ 0x1 });
    EXPECT_EQ(commands.depth(), 0);
}

TEST_F(CommandRun, CatchesANestedFailureWhereItWasRaised)
{
    bool went_on = false;
    commands.run([&] {
        commands.run([] { throw MyException(L"", 2); });
        went_on = true;
    });
    EXPECT_TRUE(went_on);
    EXPECT_EQ(reported, std::vector<std::string>{ "mine 2" });
    EXPECT_EQ(commands.depth(), 0);
}

TEST_F(CommandRun, CatchesWhatTheRefreshRaisesAndDoesNotTryAgain)
{
    during_refresh = [&] {
        commands.merge(0x8000);
        throw std::out_of_range("stamp");
    };
    commands.run([&] { commands.merge(0x1); });
    EXPECT_EQ(reported, std::vector<std::string>{ "stamp" });
    EXPECT_EQ(refreshed.size(), 1u);
    EXPECT_EQ(commands.pending(), 0u);
    EXPECT_EQ(commands.depth(), 0);
}

TEST_F(CommandRun, LetsACommandSentByTheRefreshJoinIt)
{
    bool first = true;
    during_refresh = [&] {
        if (std::exchange(first, false))
            commands.run([&] { commands.merge(0x10); });
    };
    commands.run([&] { commands.merge(0x1); });
    EXPECT_EQ(refreshed, (std::vector<RefreshMask>{ 0x1, 0x10 }));
}

TEST_F(CommandRun, LeavesViewsThatNeverSettle)
{
    during_refresh = [&] { commands.merge(0x10); };
    commands.run([&] { commands.merge(0x1); });
    EXPECT_LE(refreshed.size(), 4u);
    EXPECT_EQ(commands.pending(), 0u);
}

TEST_F(CommandRun, DoesNotTakeTheStandingHistoryBitForMoreWork)
{
    during_refresh = [&] { commands.merge(0x40); };
    commands.run([&] { commands.merge(0x1); });
    EXPECT_EQ(refreshed.size(), 1u);
}

TEST_F(CommandRun, RefreshesNothingOfAWindowThatIsGone)
{
    commands.run([&] {
        commands.merge(0x1);
        gone = true;
    });
    EXPECT_TRUE(refreshed.empty());
    EXPECT_EQ(commands.pending(), 0u);
}

} // namespace
