#include "platform/collation.hpp"
#include "platform/collation_prefix.hpp"
#include <algorithm>

namespace platform {

namespace {

// One letter a unit, of one weight at most: ASCII, kana, ideographs of the basic plane, full-width and
// half-width forms.
bool is_plain(wchar_t unit)
{
    return (unit >= 0x20 && unit <= 0x7E) || unit == L'\r' || unit == L'\n' || unit == L'\t'
        || (unit >= 0x3000 && unit <= 0x3029) || (unit >= 0x3041 && unit <= 0x3096)
        || (unit >= 0x30A1 && unit <= 0x30FC) || (unit >= 0x4E00 && unit <= 0x9FA5)
        || (unit >= 0xFF01 && unit <= 0xFF9D);
}

} // namespace

CollationPrefix collation_prefix(std::wstring_view text, std::size_t length)
{
    std::size_t plain = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i >= length && plain >= plain_units_at_cut)
            return { text.substr(0, i), false };
        if (text[i] == 0)
            return { text.substr(0, i), true };
        plain = is_plain(text[i]) ? plain + 1 : 0;
    }
    return { text, true };
}

std::size_t order_bytes_start(std::wstring_view text, std::size_t common)
{
    std::size_t plain = 0;
    for (std::size_t i = std::min(common, text.size()); i > 0; --i) {
        plain = is_plain(text[i - 1]) ? plain + 1 : 0;
        if (plain == plain_units_at_cut)
            return i - 1;
    }
    return 0;
}

} // namespace platform
