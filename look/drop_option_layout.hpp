// Where the buttons of the question about dropped files are placed.
#pragma once
#include "platform/geometry.hpp"

namespace look {

inline constexpr platform::Size drop_option_size{ 266, 90 }; // with its frame

struct DropOptionLayout {
    platform::Rect files_button;
    platform::Rect pages_button;
};

// Centred side to side, and one pixel above and below the middle of the client area.
constexpr DropOptionLayout drop_option_layout(platform::Size client)
{
    constexpr platform::Size button{ 230, 26 };
    const int left = (client.width - button.width) / 2;
    const int right = left + button.width;
    const int middle = client.height / 2;
    return { { left, middle - 1 - button.height, right, middle - 1 },
        { left, middle + 1, right, middle + 1 + button.height } };
}

} // namespace look
