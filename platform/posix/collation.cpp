#include "platform/collation.hpp"
#include "platform/collation_prefix.hpp"
#include "platform/text.hpp"
#include <algorithm>
#include <clocale>
#include <cwchar>
#include <vector>

namespace platform {

namespace {

// A plain unit has at most two primary weights.
constexpr std::size_t most_weights_of_a_unit = 2;
constexpr std::size_t margin = plain_units_at_cut * most_weights_of_a_unit;
// Ends the primary weights if others follow; every weight is higher.
constexpr wchar_t end_of_level = 1;

// The environment may name a locale that is not installed. The "C" locale is used then.
locale_t users_collation()
{
    static const locale_t locale = [] {
        const int parts = LC_COLLATE_MASK | LC_CTYPE_MASK;
        const locale_t users = newlocale(parts, "", locale_t{});
        return users ? users : newlocale(parts, "C", locale_t{});
    }();
    return locale;
}

bool has_surrogates(std::wstring_view text)
{
    unsigned found = 0;
    for (const wchar_t unit : text)
        found |= is_surrogate(unit);
    return found != 0;
}

// The C library compares code points, so surrogate pairs are joined. A lone surrogate is not a code point and
// is replaced.
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
        } else {
            points += wchar_t{ 0xFFFD };
        }
    }
    return points;
}

bool make_sort_key(std::wstring_view text, std::vector<wchar_t>& key)
{
    const std::wstring points = code_points(text);
    key.resize(std::max<std::size_t>(key.capacity(), 256));
    std::size_t length = wcsxfrm_l(key.data(), points.c_str(), key.size(), users_collation());
    if (length >= key.size()) {
        key.resize(length + 1);
        length = wcsxfrm_l(key.data(), points.c_str(), key.size(), users_collation());
    }
    if (length >= key.size())
        return false;
    key.resize(length);
    return true;
}

// Writes numbers in the form of UTF-8, extended to 31 bits. Its byte order equals the order of the numbers,
// and small numbers need few bytes.
class ByteWriter {
public:
    explicit ByteWriter(std::span<std::uint8_t> bytes)
        : bytes_(bytes)
    {
    }

    void write(std::uint32_t number)
    {
        if (number < 0x80) {
            put(number);
            return;
        }
        unsigned following = 1;
        while (following < 5 && number >> (5 * following + 6) != 0)
            ++following;
        put((0xFFu << (7 - following) & 0xFF) | number >> 6 * following);
        while (following-- > 0)
            put(0x80 | (number >> 6 * following & 0x3F));
    }
    bool is_full() const { return bytes_.empty(); }
    void fill_with_zeros() { std::fill(bytes_.begin(), bytes_.end(), std::uint8_t{ 0 }); }

private:
    void put(std::uint32_t byte)
    {
        if (bytes_.empty())
            return;
        bytes_.front() = static_cast<std::uint8_t>(byte);
        bytes_ = bytes_.subspan(1);
    }

    std::span<std::uint8_t> bytes_;
};

// False if the weights end before the bytes are full.
bool write_weights(std::span<const wchar_t> weights, ByteWriter& writer)
{
    for (const wchar_t weight : weights)
        writer.write(static_cast<std::uint32_t>(weight));
    return writer.is_full();
}

} // namespace

Ordering compare_linguistic(const std::wstring& left, const std::wstring& right)
{
    const bool as_they_are = !has_surrogates(left) && !has_surrogates(right);
    const int result = as_they_are
        ? wcscoll_l(left.c_str(), right.c_str(), users_collation())
        : wcscoll_l(code_points(left).c_str(), code_points(right).c_str(), users_collation());
    if (result == 0)
        return Ordering::equal;
    return result < 0 ? Ordering::less : Ordering::greater;
}

// Like the version for Windows: makes the key of a prefix, drops the weights that the following text may
// change, and takes a longer prefix if too few remain.
bool fill_order_bytes(std::wstring_view text, std::span<std::uint8_t> bytes)
{
    static thread_local std::vector<wchar_t> key;
    for (std::size_t length = bytes.size() / 2 + margin;; length *= 2) {
        const CollationPrefix prefix = collation_prefix(text, length);
        if (!make_sort_key(prefix.text, key))
            return false;
        auto weights = std::span<const wchar_t>(key.begin(), std::find(key.begin(), key.end(), end_of_level));
        if (!prefix.is_whole)
            weights = weights.first(weights.size() - std::min(margin, weights.size()));
        ByteWriter writer(bytes);
        const bool is_full = write_weights(weights, writer);
        if (!is_full && !prefix.is_whole)
            continue;
        writer.write(end_of_level);
        writer.fill_with_zeros();
        return true;
    }
}

} // namespace platform
