// The keys that turn the page in the main window and in the search results, whichever control has the focus.
#pragma once
#include "core/command_ids.hpp"
#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace app {

struct ChordKeys {
    bool shift = false;
    bool control = false;
    bool alt = false;

    friend bool operator==(const ChordKeys&, const ChordKeys&) = default;
};

struct KeyCommand {
    std::uint64_t key = 0; // virtual-key code
    ChordKeys with;
    int command = 0;
};

inline constexpr std::uint64_t find_next_key = 0x72; // F3
inline constexpr std::array key_commands{
    KeyCommand{ find_next_key, {}, core::command::next_page },
    KeyCommand{ find_next_key, { .shift = true }, core::command::previous_page },
};

// The command of a key; nullopt if the key belongs to the focused control.
constexpr std::optional<int> command_of_key(std::uint64_t key, ChordKeys with)
{
    const auto* const row = std::ranges::find_if(
        key_commands, [&](const KeyCommand& known) { return known.key == key && known.with == with; });
    return row == key_commands.end() ? std::nullopt : std::optional{ row->command };
}

} // namespace app
