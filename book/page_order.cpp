#include "book/page_order.hpp"
#include "book/sorted_order.hpp"
#include <algorithm>
#include <limits>
#include <numeric>
#include <random>

namespace book {

namespace {

using Order = std::vector<std::uint64_t>;

constexpr std::int64_t value_of(OrderMode mode)
{
    return static_cast<std::int64_t>(mode);
}

Order stored_order(std::size_t count)
{
    Order order(count);
    std::iota(order.begin(), order.end(), std::uint64_t{ 0 });
    return order;
}

// A uniform number below `n` from as many 32-bit draws as n - 1 needs. Our own, and the shuffle below too:
// the seed is stored in the Book and must give the same order everywhere, but std::shuffle and
// std::uniform_int_distribution differ between standard libraries. Only the generator itself is fixed by the
// standard.
std::uint64_t draw_below(std::uint64_t n, std::mt19937& generator)
{
    for (;;) {
        std::uint64_t ret = 0;
        for (std::uint64_t mask = 0;;) {
            ret = ret << 32 | generator();
            mask = mask << 32 | 0xFFFFFFFF;
            if (mask < n - 1)
                continue;
            // Draws above the last full multiple of n would favour small remainders: draw again.
            if (ret / n < mask / n || mask % n == n - 1)
                return ret % n;
            break;
        }
    }
}

Order shuffled_order(std::size_t count, std::uint32_t seed)
{
    Order order = stored_order(count);
    std::mt19937 generator(seed);
    for (std::size_t k = 1; k < count; ++k)
        std::swap(order[k], order[draw_below(k + 1, generator)]);
    return order;
}

void set_mode(BookHeader& header, OrderMode mode)
{
    const auto value = static_cast<std::int32_t>(mode);
    header.order_mode = is_reversed(header) ? -value : value;
}

} // namespace

std::size_t Book::position_to_index(std::uint64_t position) const
{
    const std::size_t count = pages.size();
    if (position >= count)
        return npos;
    const std::uint64_t i = is_reversed(header) ? count - 1 - position : position;
    return static_cast<std::size_t>(order.size() == count ? order[i] : i);
}

Page* Book::step(int direction)
{
    std::uint64_t target = header.position;
    if (direction < 0 && target > 0)
        --target;
    else if (direction > 0 && target < pages.size())
        ++target;
    else
        return nullptr;
    const std::size_t index = position_to_index(target);
    if (index == npos)
        return nullptr;
    header.position = target;
    return &pages[index];
}

void Book::rebuild_order()
{
    order.clear();
    const std::int64_t mode = order_magnitude(header);
    if (mode == value_of(OrderMode::sorted))
        order = sorted_order(pages, header.sort_key);
    else if (mode == value_of(OrderMode::random))
        order = shuffled_order(pages.size(), header.seed);
}

bool is_sorted(const BookHeader& header)
{
    return order_magnitude(header) == value_of(OrderMode::sorted);
}

bool is_random(const BookHeader& header)
{
    return order_magnitude(header) == value_of(OrderMode::random);
}

void toggle_sorted(Book& book)
{
    set_mode(book.header, is_sorted(book.header) ? OrderMode::stored : OrderMode::sorted);
    book.rebuild_order();
}

void toggle_random(Book& book)
{
    toggle_random(book, std::random_device{}());
}

void toggle_random(Book& book, std::uint32_t fresh_seed)
{
    const bool was_random = is_random(book.header);
    if (!was_random)
        book.header.seed = fresh_seed;
    set_mode(book.header, was_random ? OrderMode::stored : OrderMode::random);
    book.rebuild_order();
}

void toggle_reversed(BookHeader& header)
{
    // -2^31 cannot be negated. It is raised by one first, which like every unknown mode means the stored
    // order.
    header.order_mode =
        -std::max(header.order_mode, std::int32_t{ -std::numeric_limits<std::int32_t>::max() });
}

bool go_to(Book& book, std::uint64_t position)
{
    if (position >= book.pages.size())
        return false;
    book.header.position = position;
    return true;
}

bool go_to_first(Book& book)
{
    return go_to(book, 0);
}

bool go_to_last(Book& book)
{
    return go_to(book, std::uint64_t{ book.pages.size() } - 1);
}

bool go_to_tab(Book& book, std::uint64_t tab_number)
{
    for (std::uint64_t position = 0; tab_number != 0 && position < book.pages.size(); ++position)
        if (book.pages[book.position_to_index(position)].tab_number == tab_number)
            return go_to(book, position);
    return false;
}

std::wstring delete_page_question(std::uint64_t position)
{
    return L"このページを削除しますか？\r\n[ p." + std::to_wstring(position + 1) + L" ]";
}

} // namespace book
