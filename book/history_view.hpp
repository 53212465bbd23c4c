// Sizes, places and pictures of the window of the history. What its rows say is the application's.
#pragma once
#include "platform/geometry.hpp"
#include <cstddef>

namespace book {

inline constexpr platform::Size history_client_size{ 350, 400 };
inline constexpr int history_margin = 8;

// The newest Book has a picture of its own; the numbers count in the image list.
constexpr int history_image(std::size_t row)
{
    return row == 0 ? 0 : 1;
}

// The list in a client area of this size.
platform::Rect history_list_rect(platform::Size client);
// The upper left corner of a window of this width that is called by the cursor.
platform::Point history_corner(platform::Point cursor, int width);

} // namespace book
