// Sizes, positions and icons of the history window. Its texts are in history_rows.hpp.
#pragma once
#include "platform/geometry.hpp"
#include <cstddef>

namespace book {

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
