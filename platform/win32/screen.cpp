#include "platform/screen.hpp"
#include <windows.h>

namespace platform {

int pixels_per_inch()
{
    constexpr int usual = 96;
    const HDC context = CreateCompatibleDC(nullptr);
    if (!context)
        return usual;
    const int pixels = GetDeviceCaps(context, LOGPIXELSY);
    DeleteDC(context);
    return pixels > 0 ? pixels : usual;
}

} // namespace platform
