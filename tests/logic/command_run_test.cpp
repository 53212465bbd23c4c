// Nested commands: one refresh when the outermost ends, and no exception escapes.
#include "app/command_run.hpp"
#include "book/my_exception.hpp"
#include <algorithm>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using core::RefreshMask;

class CommandRun : public testing::Test {
protected:
    std::vector<RefreshMask> refreshed;
    std::vector<std::string> reported;
    bool gone = false;
    RefreshMask overdue = 0;
    std::function<void()> during_refresh = [] {};
    int settled = 0;
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
        [this] { return gone; },
        [this] {
            ++settled;
            return std::exchange(overdue, 0u);
        } } };
};

TEST_F(CommandRun, WithoutAMaskRefreshesNothing)
{
    commands.run([] {});
    EXPECT_TRUE(refreshed.empty());
}

TEST_F(CommandRun, SettlesWhatFollowsTheBookAfterTheActionAndAfterTheRefresh)
{
    int settled_before_refresh = 0;
    during_refresh = [&] { settled_before_refresh = settled; };
    commands.run([&] { commands.run([&] { commands.merge(0x1); }); });
    EXPECT_EQ(settled_before_refresh, 1);
    EXPECT_EQ(settled, 2) << "a view may have changed the page";
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

TEST_F(CommandRun, ReportsAnExceptionAndStillRefreshes)
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

TEST_F(CommandRun, CatchesAnExceptionOfTheRefreshAndDoesNotRetry)
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

TEST_F(CommandRun, DropsBitsThatNoViewServes)
{
    commands.run([&] { commands.merge(0x80 | 0x100 | 0x200 | 0x800 | 0xFFFF0000); });
    EXPECT_TRUE(refreshed.empty());
    commands.run([&] { commands.merge(0xFFFFFFFF); });
    EXPECT_EQ(refreshed, std::vector<RefreshMask>{ core::refresh::full });
}

TEST_F(CommandRun, AddsOverdueViewsWhenTheOutermostEnds)
{
    overdue = 0x1;
    commands.run([&] {
        commands.run([] {});
        EXPECT_EQ(overdue, 0x1u);
    });
    EXPECT_EQ(refreshed, std::vector<RefreshMask>{ 0x1 });
}

TEST_F(CommandRun, AddsOverdueViewsEvenAfterAFailure)
{
    overdue = 0x1;
    commands.run([] { throw std::runtime_error("half done"); });
    EXPECT_EQ(refreshed, std::vector<RefreshMask>{ 0x1 });
}

TEST_F(CommandRun, GivesUpOnViewsThatNeverSettle)
{
    during_refresh = [&] { commands.merge(0x10); };
    commands.run([&] { commands.merge(0x1); });
    EXPECT_EQ(refreshed.size(), core::service_order.size());
    EXPECT_EQ(commands.pending(), 0u);
}

TEST_F(CommandRun, DoesNotTreatTheKeptHistoryBitAsMoreWork)
{
    during_refresh = [&] { commands.merge(0x40); };
    commands.run([&] { commands.merge(0x41); });
    EXPECT_EQ(refreshed.size(), 1u);
}

TEST_F(CommandRun, RefreshesNothingOfADestroyedWindow)
{
    commands.run([&] {
        commands.merge(0x1);
        gone = true;
    });
    EXPECT_TRUE(refreshed.empty());
    EXPECT_EQ(commands.pending(), 0u);
}

// A refresh whose views send commands while they are served, as filling a text box does.
class ServedView : public testing::TestWithParam<core::View> {
protected:
    using Views = std::vector<core::View>;

    Views served;
    std::function<void(core::View)> work = [](core::View) {};
    app::CommandRun commands{ { [this](RefreshMask& pending) {
                                   core::serve_refresh(pending, [this](core::View view) {
                                       served.push_back(view);
                                       work(view);
                                   });
                               },
        [](const std::exception_ptr&) {}, [] { return false; }, [] { return RefreshMask{ 0 }; } } };

    static RefreshMask bit(core::View view) { return static_cast<RefreshMask>(view); }
    Views all() const { return { core::service_order.begin(), core::service_order.end() }; }
};

TEST_P(ServedView, MaySendCommandsThatRequestNothingAndIsServedOnce)
{
    work = [&](core::View view) {
        if (view == GetParam())
            commands.run([] {});
    };
    commands.run([&] { commands.merge(core::refresh::full); });
    EXPECT_EQ(served, all());
}

TEST_P(ServedView, DoesNotStartAnotherRefreshInsideItsOwn)
{
    bool inside = false;
    work = [&](core::View view) {
        EXPECT_FALSE(inside);
        inside = true;
        if (view == GetParam() && served.size() <= all().size())
            commands.run([&] { commands.merge(core::refresh::full); });
        inside = false;
    };
    commands.run([&] { commands.merge(core::refresh::full); });
    // Views requested in addition are served in a second round, and then the refresh ends.
    EXPECT_LE(served.size(), 2 * all().size());
    EXPECT_EQ(Views(served.begin(), served.begin() + static_cast<std::ptrdiff_t>(all().size())), all());
    EXPECT_EQ(commands.pending(), 0u);
    EXPECT_EQ(commands.depth(), 0);
}

TEST_P(ServedView, IsNotLostWhenALaterViewRequestsIt)
{
    bool asked = false;
    work = [&](core::View view) {
        if (view == core::View::status_bar && !std::exchange(asked, true))
            commands.run([&] { commands.merge(bit(GetParam())); });
    };
    commands.run([&] { commands.merge(bit(core::View::status_bar)); });
    EXPECT_EQ(std::ranges::count(served, GetParam()), GetParam() == core::View::status_bar ? 2 : 1);
    EXPECT_EQ(commands.pending(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Every, ServedView, testing::ValuesIn(core::service_order));

} // namespace
