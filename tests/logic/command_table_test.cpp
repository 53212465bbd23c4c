// Finding a row by command number, and the codes that a row accepts.
#include "core/command_ids.hpp"
#include "core/command_table.hpp"
#include <array>
#include <gtest/gtest.h>

namespace {

using Row = core::CommandEntry<char>;

constexpr std::array table{
    Row{ 1002, 'n' },
    Row{ { 1045, 1047 }, 'e', core::only_code(core::command::edit_changed) },
    Row{ { 10000, 14999 }, 'h' },
};

char found(int id)
{
    const Row* row = core::find_row(std::span<const Row>{ table }, id);
    return row ? row->handler : '-';
}

TEST(CommandTable, FindsEveryIdentifierOfARangeAndNoOther)
{
    EXPECT_EQ(found(1002), 'n');
    EXPECT_EQ(found(1045), 'e');
    EXPECT_EQ(found(1046), 'e');
    EXPECT_EQ(found(10000), 'h');
    EXPECT_EQ(found(14999), 'h');
    for (const int id : { -1, 0, 1, 1001, 1003, 1044, 1048, 9999, 15000, 65535 })
        EXPECT_EQ(found(id), '-') << id;
    EXPECT_EQ(core::find_row(std::span<const Row>{}, 1002), nullptr);
}

TEST(CommandTable, BindsAHandlerToItsCodes)
{
    const auto handler = [](int id, int code) {
        const char* found = core::find_handler(std::span<const Row>{ table }, id, code);
        return found ? *found : '-';
    };
    EXPECT_EQ(handler(1002, 0), 'n');
    EXPECT_EQ(handler(1002, 1), '-');
    EXPECT_EQ(handler(1046, 768), 'e');
    EXPECT_EQ(handler(1046, 0), '-');
    EXPECT_EQ(handler(1003, 0), '-');
}

TEST(CommandTable, DetectsWhetherItCanBeSearched)
{
    EXPECT_TRUE(core::is_ordered(std::span<const Row>{ table }));
    constexpr std::array overlapping{ Row{ { 1, 5 }, 'a' }, Row{ { 5, 6 }, 'b' } };
    EXPECT_FALSE(core::is_ordered(std::span<const Row>{ overlapping }));
    constexpr std::array falling{ Row{ 2, 'a' }, Row{ 1, 'b' } };
    EXPECT_FALSE(core::is_ordered(std::span<const Row>{ falling }));
    constexpr std::array turned{ Row{ { 6, 5 }, 'a' } };
    EXPECT_FALSE(core::is_ordered(std::span<const Row>{ turned }));
}

TEST(CodeRule, AcceptsOnlyZeroByDefault)
{
    EXPECT_TRUE(core::plain_code.allows(0));
    EXPECT_FALSE(core::plain_code.allows(1));
    EXPECT_FALSE(core::plain_code.allows(core::command::edit_changed));
}

TEST(CodeRule, AcceptsANotificationByItsCode)
{
    constexpr core::CodeRule changed = core::only_code(core::command::edit_changed);
    EXPECT_TRUE(changed.allows(768));
    EXPECT_FALSE(changed.allows(0));
    EXPECT_FALSE(changed.allows(256));
}

TEST(CodeRule, AcceptsANumberBelowACount)
{
    constexpr core::CodeRule number = core::code_below(3);
    EXPECT_TRUE(number.allows(0));
    EXPECT_TRUE(number.allows(2));
    EXPECT_FALSE(number.allows(3));
    EXPECT_FALSE(number.allows(-1));
}

TEST(CodeRule, AcceptsAnyCodeIfItAllowsAny)
{
    EXPECT_TRUE(core::any_code.allows(0));
    EXPECT_TRUE(core::any_code.allows(1)); // as accelerators send it
    EXPECT_TRUE(core::any_code.allows(65535));
}

} // namespace
