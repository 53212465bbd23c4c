#include "book/sorted_order.hpp"
#include "book/book_header.hpp"
#include "book/linguistic_sort.hpp"
#include <algorithm>
#include <numeric>
#include <string_view>

namespace book {

namespace {

using Order = std::vector<std::uint64_t>;

std::wstring_view creation_time(const Page& page)
{
    return std::wstring_view(page.stamp).substr(0, time_length);
}

std::wstring_view modification_time(const Page& page)
{
    return std::wstring_view(page.stamp).substr(time_length);
}

std::uint64_t data_bytes(const Page& page)
{
    std::uint64_t units = page.reference_folder.size();
    for (const std::wstring& text : page.text)
        units += text.size();
    for (const std::wstring& file : page.files)
        units += file.size();
    return units * 2;
}

Order stored_order(std::size_t count)
{
    Order order(count);
    std::iota(order.begin(), order.end(), std::uint64_t{ 0 });
    return order;
}

template <typename KeyOf> Order sorted_by(const std::vector<Page>& pages, KeyOf key_of)
{
    Order order = stored_order(pages.size());
    if (pages.size() < 2)
        return order; // nothing is compared, so no key is taken
    std::vector<decltype(key_of(pages[0]))> keys;
    keys.reserve(pages.size());
    for (const Page& page : pages)
        keys.push_back(key_of(page));
    // The keys are gathered in one array first: read from the pages, each compare would miss the cache.
    std::sort(
        order.begin(), order.end(), [&](std::uint64_t a, std::uint64_t b) { return keys[a] < keys[b]; });
    return order;
}

Order sorted_by_box(const std::vector<Page>& pages, std::size_t box)
{
    std::vector<const std::wstring*> texts; // pointers, so that no text is copied
    texts.reserve(pages.size());
    for (const Page& page : pages)
        texts.push_back(&page.text[box]);
    return linguistic_order(texts);
}

} // namespace

std::vector<std::uint64_t> sorted_order(const std::vector<Page>& pages, std::int32_t sort_key)
{
    switch (static_cast<SortKey>(sort_key)) {
    case SortKey::box1:
        return sorted_by_box(pages, 0);
    case SortKey::box2:
        return sorted_by_box(pages, 1);
    case SortKey::box3:
        return sorted_by_box(pages, 2);
    case SortKey::created:
        return sorted_by(pages, creation_time);
    case SortKey::modified:
        return sorted_by(pages, modification_time);
    case SortKey::size:
        return sorted_by(pages, data_bytes);
    }
    return stored_order(pages.size());
}

} // namespace book
