// Tables ordered by command number: row lookup and accepted notification codes.
#pragma once
#include <cstddef>
#include <limits>
#include <span>

namespace core {

// The range of notification codes that a command accepts.
struct CodeRule {
    int first = 0;
    int last = 0;

    constexpr bool allows(int code) const { return code >= first && code <= last; }
    friend constexpr bool operator==(CodeRule, CodeRule) = default;
};
inline constexpr CodeRule plain_code{};
inline constexpr CodeRule any_code{ 0, std::numeric_limits<int>::max() };
constexpr CodeRule only_code(int code)
{
    return { code, code };
}
// The code is a parameter below `count`.
constexpr CodeRule code_below(int count)
{
    return { 0, count - 1 };
}

struct IdRange {
    int first = 0;
    int last = 0;

    constexpr IdRange(int id)
        : IdRange(id, id)
    {
    }
    constexpr IdRange(int first_id, int last_id)
        : first(first_id)
        , last(last_id)
    {
    }
    constexpr bool contains(int id) const { return id >= first && id <= last; }
    constexpr bool contains(IdRange other) const { return contains(other.first) && contains(other.last); }
};

// A row that binds a handler to commands.
template <class Handler> struct CommandEntry {
    IdRange ids;
    Handler handler;
    CodeRule codes = plain_code;
};

// Whether the table's `ids` are ascending and do not overlap, which find_row requires.
template <class Row> constexpr bool is_ordered(std::span<const Row> table)
{
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (table[i].ids.first > table[i].ids.last)
            return false;
        if (i != 0 && table[i].ids.first <= table[i - 1].ids.last)
            return false;
    }
    return true;
}

// The row whose range contains `id`, or null.
template <class Row> constexpr const Row* find_row(std::span<const Row> table, int id)
{
    std::size_t low = 0;
    std::size_t high = table.size();
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (table[middle].ids.last < id)
            low = middle + 1;
        else
            high = middle;
    }
    return low != table.size() && table[low].ids.contains(id) ? &table[low] : nullptr;
}

// The handler for `id` with this notification code, or null.
template <class Handler>
constexpr const Handler* find_handler(std::span<const CommandEntry<Handler>> table, int id, int code)
{
    const CommandEntry<Handler>* const entry = find_row(table, id);
    return entry && entry->codes.allows(code) ? &entry->handler : nullptr;
}

} // namespace core
