#include "platform/text.hpp"

namespace platform {

bool is_white_space(wchar_t unit)
{
    switch (unit) {
    case 0x20:
    case 0x85:
    case 0xA0:
    case 0x1680:
    case 0x2028:
    case 0x2029:
    case 0x202F:
    case 0x205F:
    case 0x3000:
        return true;
    default:
        return (unit >= 0x9 && unit <= 0xD) || (unit >= 0x2000 && unit <= 0x200A);
    }
}

} // namespace platform
