// What holds for each command before and after its handler: which notification codes it takes, in which state
// it is refused, and which views it leaves to be refreshed.
#pragma once
#include "core/command_table.hpp"
#include "core/refresh.hpp"
#include <cstdint>
#include <span>

namespace core {

// What a command asks of the program's state; combined by |.
enum class Needs : std::uint32_t {
    nothing = 0,
    input = 1, // no box or dialog stands, and no window holds the input
    free_book = 2, // neither the page editor nor the replace window is open
    page = 4, // there is a current page
    entry = 8, // its selected file entry is not empty
    folder = 16, // it has a reference folder
    pages = 32, // the Book has pages, though the position may lie beyond them
};
constexpr Needs operator|(Needs a, Needs b)
{
    return static_cast<Needs>(static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b));
}
constexpr bool covers(Needs met, Needs asked)
{
    return (static_cast<std::uint32_t>(asked) & ~static_cast<std::uint32_t>(met)) == 0;
}

enum class Outcome { done, failed };

struct CommandRule {
    IdRange ids;
    RefreshMask done = 0; // at least these views, when the handler did its work
    RefreshMask failed = 0; // and when it did not
    Needs needs = Needs::nothing;
    CodeRule codes = plain_code;

    constexpr RefreshMask mask(Outcome outcome) const { return outcome == Outcome::done ? done : failed; }
};

// Every command of the main window, in ascending order.
std::span<const CommandRule> command_rules();

// The rule of a command that acts with this notification code; null when there is none.
const CommandRule* find_command(int id, int code);

// Whether the command does nothing in a state where only `met` holds.
constexpr bool is_refused(const CommandRule& rule, Needs met)
{
    return !covers(met, rule.needs);
}

} // namespace core
