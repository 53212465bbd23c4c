// How a box is scrolled to a stored position.
#pragma once
#include <cstdint>

namespace look {

enum class ScrollWay {
    none, // the box stands there already
    thumb, // one scroll message takes it there
    lines, // a scroll message has 16 bits for the position and an edit control reads them as signed
};

constexpr ScrollWay scroll_way(std::int32_t position)
{
    constexpr std::int32_t thumb_limit = 0x7FFF;
    if (position <= 0)
        return ScrollWay::none;
    return position <= thumb_limit ? ScrollWay::thumb : ScrollWay::lines;
}

} // namespace look
