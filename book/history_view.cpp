#include "book/history_view.hpp"
#include <algorithm>

namespace book {

namespace {

constexpr int above_cursor = 64;

} // namespace

platform::Rect history_list_rect(platform::Size client)
{
    return { history_margin, history_margin, std::max(client.width - history_margin, history_margin),
        std::max(client.height - history_margin, history_margin) };
}

platform::Point history_corner(platform::Point cursor, int width)
{
    return { cursor.x - width / 2, cursor.y - above_cursor };
}

} // namespace book
