// A command table: which handler an identifier and its notification code belong to.
#pragma once
#include <cstddef>
#include <span>

namespace app {

// Which notification codes a command acts on.
struct CodeRule {
    bool any = false;
    int only = 0;

    constexpr bool allows(int code) const { return any || code == only; }
};
inline constexpr CodeRule plain_code{};
inline constexpr CodeRule any_code{ true, 0 };
constexpr CodeRule only_code(int code)
{
    return { false, code };
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
};

template <class Handler> struct CommandEntry {
    IdRange ids;
    Handler handler;
    CodeRule codes = plain_code;
};

// Ascending and without overlap, which a table must be to be searched.
template <class Handler> constexpr bool is_ordered(std::span<const CommandEntry<Handler>> table)
{
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (table[i].ids.first > table[i].ids.last)
            return false;
        if (i != 0 && table[i].ids.first <= table[i - 1].ids.last)
            return false;
    }
    return true;
}

// The handler for `id` with this notification code; null when there is none.
template <class Handler>
constexpr const Handler* find_handler(std::span<const CommandEntry<Handler>> table, int id, int code)
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
    if (low == table.size() || !table[low].ids.contains(id) || !table[low].codes.allows(code))
        return nullptr;
    return &table[low].handler;
}

} // namespace app
