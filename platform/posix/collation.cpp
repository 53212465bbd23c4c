#include "platform/collation.hpp"
#include "platform/text.hpp"
#include <cwchar>
#include <locale.h>
#include <string>

namespace platform {

namespace {

// The environment may name a locale that is not installed.
locale_t users_collation()
{
    static const locale_t locale = [] {
        const int parts = LC_COLLATE_MASK | LC_CTYPE_MASK;
        const locale_t users = newlocale(parts, "", locale_t{});
        return users ? users : newlocale(parts, "C", locale_t{});
    }();
    return locale;
}

// The C library compares code points: pairs are joined, and a lone surrogate, which is none, is replaced.
std::wstring code_points(std::wstring_view text)
{
    std::wstring points;
    points.reserve(text.size());
    for (std::size_t i = 0; i < text.size() && text[i]; ++i) {
        if (!is_surrogate(text[i]))
            points += text[i];
        else if (is_high_surrogate(text[i]) && i + 1 < text.size() && is_low_surrogate(text[i + 1])) {
            points += static_cast<wchar_t>(0x10000 + ((text[i] - 0xD800) << 10) + (text[i + 1] - 0xDC00));
            ++i;
        } else
            points += wchar_t{ 0xFFFD };
    }
    return points;
}

} // namespace

Ordering compare_linguistic(std::wstring_view left, std::wstring_view right)
{
    const int result = wcscoll_l(code_points(left).c_str(), code_points(right).c_str(), users_collation());
    if (result == 0)
        return Ordering::equal;
    return result < 0 ? Ordering::less : Ordering::greater;
}

} // namespace platform
