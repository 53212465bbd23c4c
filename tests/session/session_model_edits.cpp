// The model of the windows that edit pages: replacing, pasting, deleting, and their beginning and end.
#include "session_model.hpp"
#include "tests/support/naive_replace.hpp"
#include "walk_clock.hpp"
#include <algorithm>
#include <utility>

namespace session_walk {

namespace {

bool is_selected(const book::Page& page)
{
    return page.selected == book::PageSelection::selected;
}

} // namespace

void Model::prepare_editing()
{
    if (is_busy || !page())
        return;
    if (has_edits()) {
        if (save(Code::ask) || is_gone || has_edits())
            return;
        pending_ |= full;
    }
    save(Code::always);
}

void Model::replace(const book::ReplaceRequest& request, bool in_all)
{
    pending_ |= full;
    const std::size_t first = in_all ? 0 : current();
    if (first == none)
        return;
    const std::size_t last = in_all ? book.pages.size() : first + 1;
    for (std::size_t i = first; i < last; ++i) {
        book::Page& replaced = book.pages[i];
        book::ReplaceRequest in_boxes = request;
        in_boxes.targets &= 1;
        if (naive::replace_in_page(replaced, in_boxes) != 0)
            replaced.stamp = replaced.stamp.substr(0, 14) + clock_text();
        book::ReplaceRequest elsewhere = request;
        elsewhere.targets &= ~1U;
        naive::replace_in_page(replaced, elsewhere);
    }
}

void Model::set_clip(book::ClipMode mode)
{
    if (std::ranges::any_of(book.pages, is_selected))
        clip = mode;
}

void Model::clear_selection()
{
    for (book::Page& page : book.pages)
        page.selected = book::PageSelection::none;
    clip = book::ClipMode::none;
}

void Model::paste(bool at_end)
{
    if (clip == book::ClipMode::none)
        return;
    const bool cut = clip == book::ClipMode::cut;
    const std::size_t index = at_end ? book.pages.size() : static_cast<std::size_t>(book.header.position);
    std::vector<book::Page> taken;
    std::vector<unsigned> taken_ids;
    std::size_t place = index;
    for (std::size_t i = 0; i < book.pages.size(); ++i) {
        if (!is_selected(book.pages[i]))
            continue;
        taken.push_back(book.pages[i]);
        taken_ids.push_back(cut ? ids[i] : next_id_++);
        if (!cut)
            taken.back().selected = book::PageSelection::pasted;
        else if (i < index)
            --place;
    }
    if (taken.empty())
        return;
    clip = book::ClipMode::none;
    if (cut)
        erase_selected();
    book.pages.insert(book.pages.begin() + static_cast<std::ptrdiff_t>(place), taken.begin(), taken.end());
    ids.insert(ids.begin() + static_cast<std::ptrdiff_t>(place), taken_ids.begin(), taken_ids.end());
    book.header.position = place + taken.size() - 1;
    pages_moved();
}

void Model::remove_selected()
{
    if (!std::ranges::any_of(book.pages, is_selected))
        return;
    clip = book::ClipMode::none;
    erase_selected();
    if (book.pages.empty())
        insert_under(0, fresh_page());
    book.header.position = std::min<std::uint64_t>(book.header.position, book.pages.size() - 1);
    pages_moved();
}

void Model::erase_selected()
{
    for (std::size_t i = book.pages.size(); i-- > 0;) {
        if (!is_selected(book.pages[i]))
            continue;
        book.pages.erase(book.pages.begin() + static_cast<std::ptrdiff_t>(i));
        ids.erase(ids.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

void Model::pages_moved()
{
    needs_update = true;
    ++revision_;
    follow();
    pending_ |= full;
}

} // namespace session_walk
