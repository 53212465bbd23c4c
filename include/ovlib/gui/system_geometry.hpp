// Conversions of points, rectangles and wheel turns between the system and the portable code.
#pragma once
#include "controls/wheel_steps.hpp"
#include "ovlib/gui/wnd_message.hpp"
#include "platform/geometry.hpp"
#include <windows.h>
#include <windowsx.h>

namespace ovlib {

constexpr RECT to_rect(const platform::Rect& rect)
{
    return { rect.left, rect.top, rect.right, rect.bottom };
}

constexpr platform::Rect from_rect(const RECT& rect)
{
    return { static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
        static_cast<int>(rect.bottom) };
}

constexpr platform::Point to_point(const POINT& point)
{
    return { static_cast<int>(point.x), static_cast<int>(point.y) };
}

constexpr platform::Size to_size(const SIZE& size)
{
    return { static_cast<int>(size.cx), static_cast<int>(size.cy) };
}

inline POINT mouse_on_screen()
{
    POINT point{};
    GetCursorPos(&point);
    return point;
}

// The mouse position in a mouse message, in the window's client coordinates.
inline platform::Point mouse_point(const WndMessage& message)
{
    const auto lparam = static_cast<LPARAM>(message.lparam);
    return { GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam) };
}

// The step that the current WM_MOUSEWHEEL completes: 1 up, -1 down, 0 if none is complete yet.
inline int wheel_step(WheelSteps& wheel, const WndMessage& message)
{
    return wheel.turn(GET_WHEEL_DELTA_WPARAM(message.wparam), static_cast<std::uint32_t>(GetMessageTime()));
}

} // namespace ovlib
