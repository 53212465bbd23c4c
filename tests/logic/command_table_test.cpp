// Finding the handler of a command by identifier and notification code.
#include "app/command_ids.hpp"
#include "app/command_table.hpp"
#include <array>
#include <gtest/gtest.h>

namespace {

using Entry = app::CommandEntry<char>;

constexpr std::array table{
    Entry{ 1002, 'n' },
    Entry{ { 1045, 1047 }, 'e', app::only_code(app::command::edit_changed) },
    Entry{ 3000, 's', app::any_code },
    Entry{ { 10000, 14999 }, 'h' },
};

char found(int id, int code)
{
    const char* handler = app::find_handler(std::span<const Entry>{ table }, id, code);
    return handler ? *handler : '-';
}

TEST(CommandTable, FindsAnIdentifierWithCodeZeroOnly)
{
    EXPECT_EQ(found(1002, 0), 'n');
    EXPECT_EQ(found(1002, 1), '-');
    EXPECT_EQ(found(1002, app::command::edit_changed), '-');
}

TEST(CommandTable, FindsEveryIdentifierOfARangeAndNoneBeside)
{
    EXPECT_EQ(found(10000, 0), 'h');
    EXPECT_EQ(found(14999, 0), 'h');
    EXPECT_EQ(found(9999, 0), '-');
    EXPECT_EQ(found(15000, 0), '-');
}

TEST(CommandTable, TellsAnEditByItsCode)
{
    EXPECT_EQ(found(1046, 768), 'e');
    EXPECT_EQ(found(1046, 0), '-');
    EXPECT_EQ(found(1046, 256), '-');
}

TEST(CommandTable, TakesAnyCodeWhereTheRuleSaysSo)
{
    EXPECT_EQ(found(3000, 0), 's');
    EXPECT_EQ(found(3000, 1), 's'); // as accelerators send it
}

TEST(CommandTable, FindsNothingForUnknownIdentifiers)
{
    for (const int id : { -1, 0, 1, 1001, 1003, 1048, 65535 })
        EXPECT_EQ(found(id, 0), '-') << id;
    EXPECT_EQ(app::find_handler(std::span<const Entry>{}, 1002, 0), nullptr);
}

TEST(CommandTable, KnowsWhetherItCanBeSearched)
{
    EXPECT_TRUE(app::is_ordered(std::span<const Entry>{ table }));
    constexpr std::array overlapping{ Entry{ { 1, 5 }, 'a' }, Entry{ { 5, 6 }, 'b' } };
    EXPECT_FALSE(app::is_ordered(std::span<const Entry>{ overlapping }));
    constexpr std::array falling{ Entry{ 2, 'a' }, Entry{ 1, 'b' } };
    EXPECT_FALSE(app::is_ordered(std::span<const Entry>{ falling }));
    constexpr std::array turned{ Entry{ { 6, 5 }, 'a' } };
    EXPECT_FALSE(app::is_ordered(std::span<const Entry>{ turned }));
}

} // namespace
