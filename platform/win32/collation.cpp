#include "platform/collation.hpp"
#include <limits>
#include <windows.h>

namespace platform {

namespace {

std::wstring_view up_to_zero(std::wstring_view text)
{
    return text.substr(0, text.find(L'\0'));
}

bool has_countable_length(std::wstring_view text)
{
    return text.size() <= static_cast<std::size_t>(std::numeric_limits<int>::max());
}

// The system refuses a null pointer even for no characters.
const wchar_t* characters(std::wstring_view text)
{
    return text.empty() ? L"" : text.data();
}

} // namespace

Ordering compare_linguistic(std::wstring_view left, std::wstring_view right)
{
    left = up_to_zero(left);
    right = up_to_zero(right);
    if (!has_countable_length(left) || !has_countable_length(right))
        return Ordering::unknown;
    switch (CompareStringEx(LOCALE_NAME_USER_DEFAULT, 0, characters(left), static_cast<int>(left.size()),
        characters(right), static_cast<int>(right.size()), nullptr, nullptr, 0)) {
    case CSTR_LESS_THAN:
        return Ordering::less;
    case CSTR_EQUAL:
        return Ordering::equal;
    case CSTR_GREATER_THAN:
        return Ordering::greater;
    default:
        return Ordering::unknown;
    }
}

} // namespace platform
