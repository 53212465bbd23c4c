// The history as its window shows it.
#pragma once
#include "platform/color.hpp"
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace book {

struct HistoryRow {
    std::wstring name; // under "Book"
    std::wstring folder; // under "場所"; empty for a path without a separator

    friend bool operator==(const HistoryRow&, const HistoryRow&) = default;
};
HistoryRow history_row(std::wstring_view path);

std::wstring history_title(std::size_t count);

// The command of a click on a row; none beside the rows and for rows beyond the commands' range.
std::optional<int> history_command(int row);

// Whether the window takes clicks: another Book would be loaded over edits of the pages' own windows, or
// behind a box.
constexpr bool is_history_enabled(bool is_busy, bool accepts_input)
{
    return !is_busy && accepts_input;
}

// The colour of its rows: `text`, or a grey that stands off from `back` while it is disabled.
ovlib::Color history_text_color(ovlib::Color text, ovlib::Color back, bool enabled);

} // namespace book
