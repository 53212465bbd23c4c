// What the history window shows: its rows, title, colours, sizes and positions.
#pragma once
#include "platform/color.hpp"
#include "platform/geometry.hpp"
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

// The command that a click on `row` sends; nullopt for a click outside the rows (negative) and for rows past
// the command range.
std::optional<int> history_command(int row);

// Whether the window accepts clicks. A click loads another Book, which must not happen while a page window
// holds edits (`is_busy`) or a modal box is open (not `accepts_input`).
constexpr bool is_history_enabled(bool is_busy, bool accepts_input)
{
    return !is_busy && accepts_input;
}

// The text colour of the rows: `text`, or while disabled a grey that contrasts with `back`.
ovlib::Color history_text_color(ovlib::Color text, ovlib::Color back, bool enabled);

inline constexpr platform::Size history_client_size{ 350, 400 };
inline constexpr int history_margin = 8;

// Index into the window's image list: the newest Book has an icon of its own.
constexpr int history_image(std::size_t row)
{
    return row == 0 ? 0 : 1;
}

// The rectangle of the list in a client area of this size.
platform::Rect history_list_rect(platform::Size client);
// The upper left corner of a window of this width that opens at the cursor.
platform::Point history_corner(platform::Point cursor, int width);

} // namespace book
