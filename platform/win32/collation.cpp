#include "platform/collation.hpp"
#include "platform/collation_prefix.hpp"
#include <windows.h>
#include <algorithm>
#include <limits>
#include <vector>

namespace platform {

namespace {

// A plain unit has a primary weight of two bytes, or of four if the locale's own order does not contain it.
constexpr std::size_t most_bytes_of_a_weight = 4;
constexpr std::size_t usual_bytes_of_a_weight = 2;
constexpr std::size_t margin = plain_units_at_cut * most_bytes_of_a_weight;
constexpr std::uint8_t end_of_level = 1;

bool has_countable_length(std::wstring_view text)
{
    return text.size() <= static_cast<std::size_t>(std::numeric_limits<int>::max());
}

// The system's sort key: the primary weights of the whole text, then finer differences.
bool make_sort_key(std::wstring_view text, std::vector<std::uint8_t>& key)
{
    if (text.empty()) { // LCMapStringEx refuses an empty text
        key.assign(1, end_of_level);
        return true;
    }
    if (!has_countable_length(text))
        return false;
    const auto map = [&](wchar_t* target, int size) {
        return LCMapStringEx(LOCALE_NAME_USER_DEFAULT, LCMAP_SORTKEY, text.data(),
            static_cast<int>(text.size()), target, size, nullptr, nullptr, 0);
    };
    key.resize(std::max<std::size_t>(key.capacity(), 256));
    int length = map(reinterpret_cast<wchar_t*>(key.data()), static_cast<int>(key.size()));
    if (length == 0 && GetLastError() == ERROR_INSUFFICIENT_BUFFER) {
        key.resize(static_cast<std::size_t>(std::max(map(nullptr, 0), 0)));
        length = map(reinterpret_cast<wchar_t*>(key.data()), static_cast<int>(key.size()));
    }
    key.resize(static_cast<std::size_t>(std::max(length, 0)));
    return length > 0;
}

struct PrimaryWeights {
    std::size_t length = 0; // bytes before the first end of a level
    bool is_sound = false;
};

// Wine's keys contain zeros for ligatures that contain a mark, but its comparison ignores them. Such a key
// does not give the order of the comparison, so it is not used.
PrimaryWeights primary_weights(std::span<const std::uint8_t> key)
{
    const auto end = std::find(key.begin(), key.end(), end_of_level);
    const bool zero_follows = key.end() - end > 2 && end[1] == 0;
    const bool is_sound = !zero_follows && std::find(key.begin(), end, std::uint8_t{ 0 }) == end;
    return { static_cast<std::size_t>(end - key.begin()), is_sound };
}

} // namespace

Ordering compare_linguistic(const std::wstring& left, const std::wstring& right)
{
    switch (CompareStringEx(
        LOCALE_NAME_USER_DEFAULT, 0, left.c_str(), -1, right.c_str(), -1, nullptr, nullptr, 0)) {
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

// Makes the key of a prefix that is expected to be long enough, and of a longer one while it is too short. Of
// a prefix, the weights of the last units may change with the text that follows, so `margin` bytes more than
// needed must be there; collation_prefix cuts after plain units. If the whole text was used, the end of the
// level is part of the bytes: it is less than any weight, so a shorter text comes first.
bool fill_order_bytes(std::wstring_view text, std::span<std::uint8_t> bytes)
{
    static thread_local std::vector<std::uint8_t> key;
    for (std::size_t length = (bytes.size() + margin) / usual_bytes_of_a_weight + 1;; length *= 2) {
        const CollationPrefix prefix = collation_prefix(text, length);
        if (!make_sort_key(prefix.text, key))
            return false;
        const auto [weights, is_sound] = primary_weights(key);
        if (!is_sound)
            return false;
        if (!prefix.is_whole && weights < bytes.size() + margin)
            continue;
        const std::size_t known = std::min(prefix.is_whole ? weights + 1 : weights, bytes.size());
        std::fill(std::copy_n(key.begin(), known, bytes.begin()), bytes.end(), std::uint8_t{ 0 });
        return true;
    }
}

} // namespace platform
