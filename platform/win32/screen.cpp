#include "platform/screen.hpp"
#include "platform/unique_handle.hpp"
#include <windows.h>

namespace platform {

int pixels_per_inch()
{
    constexpr int usual = 96;
    const unique_handle<GivenBackBy<HDC, &DeleteDC>> context{ CreateCompatibleDC(nullptr) };
    if (!context)
        return usual;
    const int pixels = GetDeviceCaps(context.get(), LOGPIXELSY);
    return pixels > 0 ? pixels : usual;
}

} // namespace platform
