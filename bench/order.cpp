// Sorting the big Book by each key, and shuffling it.
#include "bench/harness.hpp"
#include "platform/collation.hpp"
#include <algorithm>
#include <numeric>
#include <random>
#include <stdexcept>

namespace bench {

namespace {

constexpr int slow_rounds = 3;

Work rebuilding(book::Book& book, book::OrderMode mode, book::SortKey key)
{
    return [&book, mode, key] {
        book.header.order_mode = static_cast<std::int32_t>(mode);
        book.header.sort_key = static_cast<std::int32_t>(key);
        book.rebuild_order();
    };
}

// The straightforward sort: one call of the system per comparison.
Work sorting_by_comparisons(const book::Book& book, std::size_t box)
{
    return [&book, box] {
        std::vector<std::uint64_t> order(book.pages.size());
        std::iota(order.begin(), order.end(), std::uint64_t{ 0 });
        std::sort(order.begin(), order.end(), [&](std::uint64_t a, std::uint64_t b) {
            return platform::compare_linguistic(book.pages[a].text[box], book.pages[b].text[box])
                == platform::Ordering::less;
        });
        keep(order);
    };
}

// Gives the pages random stamps: they were all imported at the same time, unlike those of a Book written by
// hand.
void spread_stamps(book::Book& book)
{
    std::mt19937 generator(1);
    for (book::Page& page : book.pages)
        for (wchar_t& digit : page.stamp)
            digit = static_cast<wchar_t>(L'0' + generator() % 10);
}

// Throws unless the measured sort is correct: a permutation in which no page compares greater than the next.
void check_order(const book::Book& book, std::size_t box)
{
    std::vector<bool> seen(book.pages.size());
    for (const std::uint64_t index : book.order)
        seen[index] = true;
    bool is_right =
        book.order.size() == book.pages.size() && std::find(seen.begin(), seen.end(), false) == seen.end();
    for (std::size_t i = 1; is_right && i < book.order.size(); ++i)
        is_right = platform::compare_linguistic(
                       book.pages[book.order[i - 1]].text[box], book.pages[book.order[i]].text[box])
            != platform::Ordering::greater;
    if (!is_right)
        throw std::runtime_error("the order by box " + std::to_string(box + 1) + " is not that of comparing");
}

} // namespace

void run_order(Bench& bench)
{
    using book::OrderMode;
    using book::SortKey;
    book::Book& book = bench.big_book();
    const book::BookHeader header = book.header;
    std::vector<std::wstring> stamps;
    for (const book::Page& page : book.pages)
        stamps.push_back(page.stamp);
    bench.run({ "shuffle", rebuilding(book, OrderMode::random, SortKey::box1), "", nullptr, 0, 1 });
    for (std::size_t box = 0; box < book::box_count; ++box) {
        const auto key =
            static_cast<SortKey>(static_cast<std::int32_t>(SortKey::box1) + static_cast<int>(box));
        bench.run({ "sort by box " + std::to_string(box + 1), rebuilding(book, OrderMode::sorted, key),
            "one comparison call a compare", sorting_by_comparisons(book, box), 1.0 / 3, 0, slow_rounds });
        check_order(book, box);
    }
    spread_stamps(book);
    bench.run({ "sort by creation time", rebuilding(book, OrderMode::sorted, SortKey::created) });
    bench.run({ "sort by modification time", rebuilding(book, OrderMode::sorted, SortKey::modified) });
    bench.run({ "sort by size", rebuilding(book, OrderMode::sorted, SortKey::size) });
    for (std::size_t i = 0; i < stamps.size(); ++i)
        book.pages[i].stamp = std::move(stamps[i]);
    book.header = header;
    book.rebuild_order();
}

} // namespace bench
