#include "book/book.hpp"
#include "book/page_text.hpp"
#include "platform/text.hpp"
#include <algorithm>
#include <utility>

namespace book {

namespace {

constexpr std::uint32_t not_fatal = 0;

} // namespace

Page empty_page(const PageColors& colors)
{
    Page page;
    page.stamp = current_time_text();
    page.stamp += page.stamp;
    page.text_color = colors.text;
    page.back_color = colors.back;
    return page;
}

Book::PageCountOver::PageCountOver()
    : MyException(L"ページ数の上限 [" + platform::grouped_number(page_limit) + L"] を超えます", not_fatal)
{
}

// The revision is never reset: an index recorded for the old pages must not match the new ones.
void Book::clear()
{
    const std::uint64_t next_revision = revision + 1;
    *this = Book();
    revision = next_revision;
}

Page* Book::current_page()
{
    const std::size_t index = current_index();
    return index == npos ? nullptr : &pages[index];
}

const Page* Book::current_page() const
{
    const std::size_t index = current_index();
    return index == npos ? nullptr : &pages[index];
}

Page* Book::insert_page(std::size_t index, Page page)
{
    if (pages.size() >= page_limit)
        throw PageCountOver();
    if (index > pages.size())
        return nullptr;
    ++revision;
    const auto place = pages.begin() + static_cast<std::ptrdiff_t>(index);
    const auto inserted = pages.insert(place, std::move(page));
    header.position = index;
    needs_update = true;
    return &*inserted;
}

void Book::new_page(std::size_t index, const PageColors& colors)
{
    insert_page(index, empty_page(colors));
}

bool Book::remove_selected()
{
    const auto is_selected = [](const Page& page) { return page.selected == PageSelection::selected; };
    const bool removed = std::erase_if(pages, is_selected) > 0;
    if (removed) {
        ++revision;
        needs_update = true;
    }
    return removed;
}

bool Book::remove_page_at(std::uint64_t position, const PageColors& colors)
{
    const std::size_t index = position_to_index(position);
    if (index == npos)
        return false;
    ++revision;
    pages.erase(pages.begin() + static_cast<std::ptrdiff_t>(index));
    needs_update = true;
    if (pages.empty())
        new_page(0, colors);
    header.position = std::min<std::uint64_t>(header.position, pages.size() - 1);
    return true;
}

void Book::swap_pages(std::size_t first, std::size_t second)
{
    ++revision;
    std::swap(pages[first], pages[second]);
    needs_update = true;
}

// Numbers the tabs from 1 in stored order. Pages beyond the maximum number of tabs lose theirs.
void Book::recount()
{
    constexpr auto limit = static_cast<std::size_t>(tab_limit);
    tab_indices.clear();
    mark_count = 0;
    for (std::size_t index = 0; index < pages.size(); ++index) {
        Page& page = pages[index];
        if (page.tab_number != 0) {
            const bool has_room = tab_indices.size() < limit;
            if (has_room)
                tab_indices.push_back(index);
            page.tab_number = has_room ? tab_indices.size() : 0;
        }
        if (page.mark != 0)
            ++mark_count;
    }
    tab_count = static_cast<std::int32_t>(tab_indices.size());
}

// Pages may have been inserted, removed or changed since the recount. So an index from the list is used only
// if its page really has the number.
Page* Book::page_of_tab(std::uint64_t number)
{
    if (number == 0)
        return nullptr;
    if (number <= tab_indices.size()) {
        const std::size_t index = tab_indices[static_cast<std::size_t>(number - 1)];
        if (index < pages.size() && pages[index].tab_number == number)
            return &pages[index];
    }
    const auto found = std::ranges::find(pages, number, &Page::tab_number);
    return found == pages.end() ? nullptr : &*found;
}

void Book::refresh_counts()
{
    if (!needs_update)
        return;
    needs_update = false;
    hits.clear();
    recount();
    rebuild_order();
}

} // namespace book
