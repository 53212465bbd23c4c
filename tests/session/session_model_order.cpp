#include "book/linguistic_sort.hpp"
#include "session_model.hpp"
#include <algorithm>
#include <numeric>
#include <random>
#include <utility>

namespace session_walk {

namespace {

std::vector<std::uint64_t> shuffled(std::size_t count, std::uint32_t seed)
{
    std::vector<std::uint64_t> order(count);
    std::iota(order.begin(), order.end(), std::uint64_t{ 0 });
    std::mt19937 generator(seed);
    for (std::uint64_t k = 1; k < count; ++k) {
        const std::uint64_t n = k + 1;
        const std::uint64_t most = 0xFFFFFFFF;
        std::uint64_t drawn = generator();
        while (drawn / n >= most / n && most % n != n - 1)
            drawn = generator();
        std::swap(order[k], order[drawn % n]);
    }
    return order;
}

std::uint64_t size_of(const book::Page& page)
{
    std::uint64_t units = page.reference_folder.size();
    for (const std::wstring& text : page.text)
        units += text.size();
    for (const std::wstring& entry : page.files)
        units += entry.size();
    return units;
}

} // namespace

std::size_t Model::index_at(std::uint64_t position) const
{
    const std::size_t count = book.pages.size();
    if (position >= count)
        return none;
    const std::uint64_t i = book.header.order_mode < 0 ? count - 1 - position : position;
    return static_cast<std::size_t>(order.size() == count ? order[i] : i);
}

void Model::recount()
{
    std::uint64_t tabs = 0;
    for (book::Page& counted : book.pages)
        if (counted.tab_number != 0)
            counted.tab_number = tabs < 256 ? ++tabs : 0;
}

void Model::rebuild()
{
    order.clear();
    const int mode = std::abs(book.header.order_mode);
    if (mode == 2702)
        order = shuffled(book.pages.size(), book.header.seed);
    if (mode != 2701)
        return;
    order.resize(book.pages.size());
    std::iota(order.begin(), order.end(), std::uint64_t{ 0 });
    const auto sort_by = [this](auto key) {
        std::sort(order.begin(), order.end(),
            [&](std::uint64_t a, std::uint64_t b) { return key(book.pages[a]) < key(book.pages[b]); });
    };
    const int key = book.header.sort_key;
    if (key >= 3000 && key <= 3002) {
        std::vector<const std::wstring*> texts;
        for (const book::Page& sorted : book.pages)
            texts.push_back(&sorted.text[static_cast<std::size_t>(key - 3000)]);
        order = book::linguistic_order(texts);
    } else if (key == 3003) {
        sort_by([](const book::Page& sorted) { return sorted.stamp.substr(0, 14); });
    } else if (key == 3004) {
        sort_by([](const book::Page& sorted) { return sorted.stamp.substr(14); });
    } else if (key == 3005) {
        sort_by(size_of);
    }
}

void Model::refresh_counts()
{
    if (!std::exchange(needs_update, false))
        return;
    hits.clear();
    recount();
    rebuild();
}

void Model::change_order(Order kind, std::uint32_t fresh_seed)
{
    if (!leave())
        return;
    std::int32_t& mode = book.header.order_mode;
    if (kind == Order::reversed) {
        mode = -mode;
        return;
    }
    const std::int32_t wanted = kind == Order::sorted ? 2701 : 2702;
    const std::int32_t now = std::abs(mode) == wanted ? 2700 : wanted;
    mode = mode < 0 ? -now : now;
    if (now == 2702)
        book.header.seed = fresh_seed;
    rebuild();
}

// A sorted Book gets its new order only if the edits could be saved or discarded.
void Model::apply_settings(const BookSettings& chosen)
{
    const std::pair before{ path, revision_ };
    const bool is_new = chosen.sort_key != book.header.sort_key;
    const bool is_sorted = std::abs(book.header.order_mode) == 2701;
    const bool takes_key = !is_new || !is_sorted || leave();
    if (is_gone || std::pair{ path, revision_ } != before)
        return;
    book.header.wrap_text = chosen.wraps ? 1 : 0;
    book.header.gif_autoplay = chosen.plays_gifs ? 1 : 0;
    book.header.auto_file_search = chosen.searches_files ? 1 : 0;
    book.header.tab_label_box = chosen.tab_label_box;
    if (!is_new || !takes_key)
        return;
    book.header.sort_key = chosen.sort_key;
    if (is_sorted)
        rebuild();
    else
        needs_update = true;
}

} // namespace session_walk
