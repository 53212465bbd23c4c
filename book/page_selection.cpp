#include "book/page_selection.hpp"
#include <algorithm>
#include <iterator>
#include <utility>

// Whatever may fail - counting, copying, making room - comes before the first change. After that pages are
// only moved, and moving them neither allocates nor throws.

namespace book {

static_assert(std::is_nothrow_move_constructible_v<Page> && std::is_nothrow_move_assignable_v<Page>);

namespace {

bool is_selected(const Page& page)
{
    return page.selected == PageSelection::selected;
}

std::vector<Page> copies_of_selected(const std::vector<Page>& pages, std::size_t count)
{
    std::vector<Page> copies;
    copies.reserve(count);
    std::ranges::copy_if(pages, std::back_inserter(copies), is_selected);
    for (Page& copy : copies)
        copy.selected = PageSelection::pasted;
    return copies;
}

// `taken` has room for all of them.
void take_selected(std::vector<Page>& pages, std::vector<Page>& taken) noexcept
{
    for (Page& page : pages)
        if (is_selected(page))
            taken.push_back(std::move(page));
    // A page that was moved from keeps its state.
    std::erase_if(pages, is_selected);
}

} // namespace

std::size_t count_selected(const std::vector<Page>& pages)
{
    return static_cast<std::size_t>(std::ranges::count_if(pages, is_selected));
}

void select_pages(std::vector<Page>& pages, std::size_t first, std::size_t last, bool on)
{
    for (std::size_t index = first; index <= last && index < pages.size(); ++index)
        pages[index].selected = on ? PageSelection::selected : PageSelection::none;
}

void clear_selection(std::vector<Page>& pages)
{
    for (Page& page : pages)
        page.selected = PageSelection::none;
}

bool Book::paste_selected(std::size_t index, ClipMode mode)
{
    const std::size_t count = count_selected(pages);
    if (index > pages.size() || count == 0 || mode == ClipMode::none)
        return false;
    if (pages.size() + count >= page_limit)
        throw PageCountOver();
    std::vector<Page> pasted;
    std::size_t place = index;
    if (mode == ClipMode::copy) {
        pasted = copies_of_selected(pages, count);
        pages.reserve(pages.size() + count);
    } else {
        pasted.reserve(count);
        const auto before = pages.begin() + static_cast<std::ptrdiff_t>(index);
        place -= static_cast<std::size_t>(std::count_if(pages.begin(), before, is_selected));
        take_selected(pages, pasted);
    }
    ++revision;
    pages.insert(pages.begin() + static_cast<std::ptrdiff_t>(place), std::make_move_iterator(pasted.begin()),
        std::make_move_iterator(pasted.end()));
    header.position = place + count - 1;
    needs_update = true;
    return true;
}

bool Book::delete_selected(const PageColors& colors)
{
    const std::size_t count = count_selected(pages);
    if (count == 0)
        return false;
    Page rest = count == pages.size() ? empty_page(colors) : Page{};
    remove_selected();
    if (pages.empty())
        pages.push_back(std::move(rest)); // into room that the old pages left
    header.position = std::min<std::uint64_t>(header.position, pages.size() - 1);
    return true;
}

} // namespace book
