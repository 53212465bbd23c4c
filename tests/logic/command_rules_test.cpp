// The rule of every command: its notification codes, its requirements and the views to refresh.
#include "app/command_run.hpp"
#include "core/command_ids.hpp"
#include "core/command_rules.hpp"
#include <gtest/gtest.h>
#include <ostream>
#include <vector>

namespace {

namespace command = core::command;
using core::Needs;
using core::Outcome;
using core::RefreshMask;
using enum core::Needs;

constexpr RefreshMask full = 0xF47F;
constexpr RefreshMask full_but_page = 0xF47E;
constexpr RefreshMask controls = 0xF400;
constexpr RefreshMask tabs = 0x8410;
constexpr RefreshMask file_list = 0xE;
constexpr RefreshMask file_choice = 0xA;

struct Codes {
    int first = 0;
    int last = 0;
};
constexpr Codes every_code{ 0, 65535 };

struct Row {
    int first;
    int last;
    RefreshMask done = 0;
    RefreshMask failed = 0;
    Needs needs = nothing;
    Codes codes = {};
};

std::ostream& operator<<(std::ostream& out, const Row& row)
{
    return out << row.first << " to " << row.last;
}

const std::vector<Row> rows{
    { 1001, 1001, 0, 0, free_book },
    { 1002, 1003, full, controls, free_book },
    { 1004, 1004, full_but_page },
    { 1005, 1005, full, full, free_book },
    { 1006, 1007, full_but_page },
    { 1008, 1008, full, full },
    { 1009, 1009 },
    { 1010, 1011, full, 0, input },
    { 1012, 1013, full, 0, input | pages },
    { 1014, 1014, controls, 0, free_book | page },
    { 1015, 1016, full, 0, free_book },
    { 1018, 1020, full, 0, free_book },
    { 1021, 1027 },
    { 1028, 1028, 0, 0, page },
    { 1039, 1041 },
    { 1044, 1044, full },
    { 1045, 1048, 0, 0, nothing, { 768, 768 } },
    { 1051, 1051, 0, 0, nothing, { 768, 768 } },
    { 1052, 1052 },
    { 1053, 1053, file_choice, 0, page, { 1, 1 } },
    { 1057, 1057 },
    { 1058, 1058, 0x6, 0, nothing, every_code },
    { 1064, 1064, full, 0, free_book | page },
    { 1066, 1066 },
    { 2500, 2500, 0, 0, page | folder },
    { 2501, 2501, 0x2000, 0, page },
    { 2502, 2502, 0x2000, 0, page | folder },
    { 2505, 2506, 0, 0, nothing, { 0, 2 } },
    { 2507, 2507, tabs, 0, free_book | page },
    { 2508, 2508, tabs },
    { 2509, 2510, 0xF440, 0, free_book },
    { 2519, 2519 },
    { 2521, 2521, 0, 0, free_book | page },
    { 2522, 2522, 0, 0, free_book },
    { 2523, 2524, file_list, 0, page },
    { 2526, 2526, file_list, 0, page | entry },
    { 2527, 2527, file_list, 0, page },
    { 2528, 2528, full, 0, free_book },
    { 2529, 2529, file_list, 0, free_book },
    { 2530, 2530, full, 0, free_book },
    { 2531, 2531, 0, 0, input | page | entry },
    { 2532, 2535, file_choice, 0, page },
    { 2536, 2539, file_list, 0, page },
    { 2541, 2542, file_list, 0, page },
    { 2543, 2543, file_choice, 0, page },
    { 2546, 2548, 0, 0, page | entry },
    { 3000, 3000, 0, 0, nothing, every_code },
    { 5000, 5005 },
    { 5500, 5500 },
    { 6000, 6006 },
    { 6501, 6501 },
    { 7000, 7000, full_but_page, 0, input | free_book },
    { 10000, 14999, full, controls, free_book },
    { 15001, 15001, 0, 0, free_book },
    { 34000, 34049 },
};

class CommandRow : public testing::TestWithParam<Row> {
protected:
    std::vector<int> identifiers() const
    {
        std::vector<int> all;
        for (int id = GetParam().first; id <= GetParam().last; ++id)
            all.push_back(id);
        return all;
    }
};

TEST_P(CommandRow, AcceptsItsCodesOnly)
{
    const Codes codes = GetParam().codes;
    for (const int id : identifiers()) {
        for (const int code : { 0, 1, 2, 3, 100, 200, 256, 768, 769, 65535 })
            EXPECT_EQ(core::find_command(id, code) != nullptr, code >= codes.first && code <= codes.last)
                << id << " with " << code;
    }
}

TEST_P(CommandRow, RequestsTheRefreshOfItsViews)
{
    for (const int id : identifiers()) {
        const core::CommandRule* rule = core::find_command(id, GetParam().codes.first);
        ASSERT_NE(rule, nullptr) << id;
        EXPECT_EQ(rule->mask(Outcome::done), GetParam().done) << id;
        EXPECT_EQ(rule->mask(Outcome::failed), GetParam().failed) << id;
    }
}

TEST_P(CommandRow, IsRefusedWhenAnythingItNeedsIsMissing)
{
    const Needs everything = input | free_book | pages | page | entry | folder;
    for (const int id : identifiers()) {
        const core::CommandRule& rule = *core::find_command(id, GetParam().codes.first);
        EXPECT_FALSE(core::is_refused(rule, everything));
        for (const Needs need : { input, free_book, pages, page, entry, folder }) {
            const auto rest = static_cast<Needs>(
                static_cast<std::uint32_t>(everything) & ~static_cast<std::uint32_t>(need));
            EXPECT_EQ(core::is_refused(rule, rest), core::covers(GetParam().needs, need))
                << id << " without " << static_cast<std::uint32_t>(need);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Every, CommandRow, testing::ValuesIn(rows));

TEST(CommandRules, KnowNoOtherCommand)
{
    auto row = rows.begin();
    for (int id = -1; id < 0x10000; ++id) {
        while (row != rows.end() && row->last < id)
            ++row;
        const bool is_known = row != rows.end() && id >= row->first;
        EXPECT_EQ(core::find_row(std::span<const core::CommandRule>{ core::command_rules }, id) != nullptr,
            is_known)
            << id;
    }
}

book::Book book_with_file()
{
    book::Book book;
    book.pages.resize(2);
    book.pages[1].files = { L"a.png", L"" };
    book.pages[1].reference_folder = L"C:\\資料";
    return book;
}

TEST(MetNeeds, FollowTheWindows)
{
    const book::Book none;
    EXPECT_EQ(app::met_needs({ true, false }, none), input | free_book);
    EXPECT_EQ(app::met_needs({ false, false }, none), free_book);
    EXPECT_EQ(app::met_needs({ true, true }, none), input);
}

TEST(MetNeeds, FollowTheCurrentPage)
{
    book::Book book = book_with_file();
    const app::WindowState closed{ false, true };
    EXPECT_EQ(app::met_needs(closed, book), pages | page);
    book.header.position = 1;
    EXPECT_EQ(app::met_needs(closed, book), pages | page | entry | folder);
    book.pages[1].current_file = 1; // an empty entry
    EXPECT_EQ(app::met_needs(closed, book), pages | page | folder);
    book.header.position = 2;
    EXPECT_EQ(app::met_needs(closed, book), pages);
}

} // namespace
