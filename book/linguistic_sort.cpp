#include "book/linguistic_sort.hpp"
#include "platform/collation.hpp"
#include <algorithm>
#include <array>
#include <numeric>
#include <span>
#include <string_view>

// Sorts by key first. The system gives a sort key per text, and the first 16 bytes of its primary weights,
// held as two integers, decide nearly every pair. Texts that share those bytes are sorted again by 64 bytes
// taken after the units they all have in common; small groups, and texts for which the system gives no usable
// key, are sorted by comparing.
//
// The result is the order of platform::compare_linguistic, because order bytes that differ are ordered as
// that function orders the texts (see platform/collation.hpp), and everything they leave undecided is
// compared. It is fast because it takes one key per text where sorting by comparison takes about log2(n)
// comparisons per text.

namespace book {

namespace {

using Texts = std::vector<const std::wstring*>;
using Indices = std::span<std::uint64_t>;

// The beginning of a text's order bytes, as big-endian integers. The index breaks ties, so std::sort gives
// one result.
template <std::size_t words> struct Place {
    std::array<std::uint64_t, words> key;
    std::uint64_t index;

    bool operator<(const Place& other) const
    {
        return key != other.key ? key < other.key : index < other.index;
    }
};

constexpr std::size_t first_words = 2;
constexpr std::size_t more_words = 8;
// Fewer texts are sorted faster by comparing than by making another key for each.
constexpr std::size_t fewest_for_more_places = 4;
// Hostile texts can separate one per level: cap the depth.
constexpr int deepest_level = 16;
constexpr std::size_t everything = static_cast<std::size_t>(-1);

bool is_less(const Texts& texts, std::uint64_t a, std::uint64_t b)
{
    // Many pages hold the same text, and the system would read both to their ends to find that out.
    return *texts[a] != *texts[b]
        && platform::compare_linguistic(*texts[a], *texts[b]) == platform::Ordering::less;
}

// Merges two adjacent sorted ranges. A merge sort of our own here and below: the system's comparison may be
// inconsistent, which is undefined behaviour in std::sort and std::merge. These loops always end with a
// permutation.
void merge(const Texts& texts, Indices indices, std::size_t middle)
{
    const Indices right = indices.subspan(middle);
    if (middle == 0 || right.empty() || !is_less(texts, right.front(), indices[middle - 1]))
        return;
    const std::vector<std::uint64_t> left(
        indices.begin(), indices.begin() + static_cast<std::ptrdiff_t>(middle));
    auto from_left = left.begin();
    auto from_right = right.begin();
    for (auto target = indices.begin(); from_left != left.end(); ++target) {
        const bool takes_right = from_right != right.end() && is_less(texts, *from_right, *from_left);
        *target = takes_right ? *from_right++ : *from_left++;
    }
}

void sort_by_comparing(const Texts& texts, Indices indices)
{
    if (indices.size() < 2)
        return;
    const std::size_t middle = indices.size() / 2;
    sort_by_comparing(texts, indices.first(middle));
    sort_by_comparing(texts, indices.subspan(middle));
    merge(texts, indices, middle);
}

// The number of leading units that all texts share; `everything` if the texts are equal.
std::size_t common_length(const Texts& texts, Indices indices)
{
    const std::wstring_view first = *texts[indices.front()];
    std::size_t common = first.size();
    bool are_equal = true;
    for (const std::uint64_t index : indices) {
        const std::wstring_view text = *texts[index];
        are_equal = are_equal && text == first;
        const std::size_t limit = std::min(common, text.size());
        common = static_cast<std::size_t>(
            std::mismatch(first.begin(), first.begin() + static_cast<std::ptrdiff_t>(limit), text.begin())
                .first
            - first.begin());
    }
    return are_equal ? everything : common;
}

// False if the system has no usable key for the text.
template <std::size_t words>
bool make_place(const Texts& texts, std::uint64_t index, std::size_t start, Place<words>& place)
{
    std::array<std::uint8_t, words * 8> bytes;
    if (!platform::fill_order_bytes(std::wstring_view(*texts[index]).substr(start), bytes))
        return false;
    for (std::size_t word = 0; word < words; ++word)
        place.key[word] = std::accumulate(bytes.begin() + static_cast<std::ptrdiff_t>(word * 8),
            bytes.begin() + static_cast<std::ptrdiff_t>(word * 8 + 8), std::uint64_t{ 0 },
            [](std::uint64_t sum, std::uint8_t byte) { return sum << 8 | byte; });
    place.index = index;
    return true;
}

// Order bytes of a level are taken from `start` on; all texts of the group share the units before it.
struct Level {
    std::size_t start = 0;
    int depth = 0;
};

void sort_equals(const Texts& texts, Indices indices, Level level);

template <std::size_t words> void sort_by_places(const Texts& texts, Indices indices, Level level)
{
    std::vector<Place<words>> places;
    std::vector<std::uint64_t> without_place;
    places.reserve(indices.size());
    for (const std::uint64_t index : indices) {
        Place<words> place;
        if (make_place(texts, index, level.start, place))
            places.push_back(place);
        else
            without_place.push_back(index);
    }
    std::sort(places.begin(), places.end());
    const auto rest = std::transform(
        places.begin(), places.end(), indices.begin(), [](const auto& place) { return place.index; });
    for (std::size_t begin = 0, end = 0; begin < places.size(); begin = end) {
        while (end < places.size() && places[end].key == places[begin].key)
            ++end;
        sort_equals(texts, indices.subspan(begin, end - begin), level);
    }
    std::copy(without_place.begin(), without_place.end(), rest);
    sort_by_comparing(texts, indices.subspan(places.size()));
    merge(texts, indices, places.size());
}

// Sorts texts whose keys are equal so far: by keys taken after their common beginning if that starts further
// on, otherwise by comparing. The first level always gets a second pass, because its keys were shorter.
void sort_equals(const Texts& texts, Indices indices, Level level)
{
    if (indices.size() < fewest_for_more_places || level.depth == deepest_level)
        return sort_by_comparing(texts, indices);
    const std::size_t common = common_length(texts, indices);
    const std::wstring& first = *texts[indices.front()];
    // Texts count up to their first U+0000, so texts that share it are equal.
    if (common == everything || first.find(L'\0') < common)
        return;
    const Level next{ platform::order_bytes_start(first, common), level.depth + 1 };
    if (next.start > level.start || level.depth == 0)
        sort_by_places<more_words>(texts, indices, next);
    else
        sort_by_comparing(texts, indices);
}

} // namespace

std::vector<std::uint64_t> linguistic_order(const std::vector<const std::wstring*>& texts)
{
    std::vector<std::uint64_t> order(texts.size());
    std::iota(order.begin(), order.end(), std::uint64_t{ 0 });
    if (order.size() > 1)
        sort_by_places<first_words>(texts, order, {});
    return order;
}

} // namespace book
