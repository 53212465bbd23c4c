#include "platform/screen.hpp"

namespace platform {

int pixels_per_inch()
{
    return 96;
}

} // namespace platform
