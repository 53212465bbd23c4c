#include "book/query.hpp"
#include "look/theme.hpp"
#include "session_model.hpp"
#include "tests/support/naive_search.hpp"
#include "walk_clock.hpp"
#include <algorithm>
#include <utility>

namespace session_walk {

void Model::turn(int direction)
{
    if (!leave())
        return;
    book::SearchQuery query = asked;
    query.track_marks = book.header.track_marks != 0;
    query.track_tabs = book.header.track_tabs != 0;
    const std::uint64_t from = book.header.position;
    std::vector<book::SearchHit> ignored;
    if (page()) {
        for (std::uint64_t to = from + static_cast<std::uint64_t>(direction); index_at(to) != none;
             to += static_cast<std::uint64_t>(direction)) {
            if (!naive::match_page(book.pages[index_at(to)], query, ignored))
                continue;
            book.header.position = to;
            break;
        }
    }
    say(L"banner: " + (book.header.position == from ? book::failed_search_text(query) : std::wstring{}));
}

bool Model::go_to(std::uint64_t position)
{
    if (!leave() || position >= book.pages.size())
        return false;
    book.header.position = position;
    return true;
}

void Model::go_to_last()
{
    if (leave() && !book.pages.empty())
        book.header.position = book.pages.size() - 1;
}

void Model::slide_to(std::uint64_t position)
{
    if (go_to(position))
        pending_ |= full;
}

void Model::go_to_tab(std::uint64_t number)
{
    if (!leave() || number == 0)
        return;
    for (std::uint64_t position = 0; position < book.pages.size(); ++position) {
        if (book.pages[index_at(position)].tab_number == number) {
            book.header.position = position;
            return;
        }
    }
}

book::Page Model::fresh_page() const
{
    book::Page fresh;
    fresh.stamp = clock_text() + clock_text();
    const look::ThemePalette colors = look::theme_colors(theme);
    fresh.text_color = { colors.box1_text.value, colors.box2_text.value, colors.box3_text.value };
    fresh.back_color = { colors.box_back.value, colors.box_back.value, colors.box_back.value };
    return fresh;
}

void Model::insert_under(std::size_t index, book::Page inserted)
{
    if (index > book.pages.size())
        return;
    book.pages.insert(book.pages.begin() + static_cast<std::ptrdiff_t>(index), std::move(inserted));
    ids.insert(ids.begin() + static_cast<std::ptrdiff_t>(index), next_id_++);
    book.header.position = index;
    needs_update = true;
    shown = 0;
    ++revision_;
}

void Model::remove_under(std::uint64_t position)
{
    const std::size_t index = index_at(position);
    if (index == none)
        return;
    book.pages.erase(book.pages.begin() + static_cast<std::ptrdiff_t>(index));
    ids.erase(ids.begin() + static_cast<std::ptrdiff_t>(index));
    needs_update = true;
    shown = 0;
    ++revision_;
    if (book.pages.empty())
        insert_under(0, fresh_page());
    book.header.position = std::min<std::uint64_t>(book.header.position, book.pages.size() - 1);
}

void Model::swap_under(std::size_t first, std::size_t second)
{
    std::swap(book.pages[first], book.pages[second]);
    std::swap(ids[first], ids[second]);
    needs_update = true;
    shown = 0;
    ++revision_;
}

void Model::follow()
{
    forget_shown();
    refresh_counts();
}

void Model::add(bool at_end)
{
    if (!leave())
        return;
    insert_under(at_end ? book.pages.size() : static_cast<std::size_t>(book.header.position), fresh_page());
    follow();
    save(Code::always);
}

void Model::swap(int direction)
{
    if (!leave())
        return;
    const std::size_t index = current();
    const std::uint64_t target = book.header.position + static_cast<std::uint64_t>(direction);
    const std::size_t neighbour = index_at(target);
    if (index == none || neighbour == none)
        return;
    const unsigned id = ids[index];
    swap_under(index, neighbour);
    book.header.position = target;
    refresh_counts();
    if (ids[current()] != id) {
        std::uint64_t position = 0;
        while (ids[index_at(position)] != id)
            ++position;
        book.header.position = position;
    }
    follow();
    pending_ |= full;
}

void Model::remove()
{
    const Note asked_about = note();
    if (asked_about.id == 0)
        return;
    const std::wstring number = std::to_wstring(book.header.position + 1);
    if (!ask(36, L"このページを削除しますか？\r\n[ p." + number + L" ]") || note() != asked_about)
        return;
    remove_under(asked_about.position);
    follow();
    save(Code::always);
}

void Model::toggle_mark()
{
    if (book::Page* marked = page()) {
        marked->mark = marked->mark == 0 ? 1 : 0;
        recount();
    }
}

void Model::toggle_tab(std::uint32_t color)
{
    if (book::Page* tabbed = page()) {
        tabbed->tab_number = tabbed->tab_number == 0 ? 1 : 0;
        tabbed->tab_color = color;
        recount();
    }
}

void Model::remove_tab(std::size_t index, std::uint32_t color)
{
    if (index >= book.pages.size())
        return;
    const std::uint64_t revision = revision_;
    const std::uint64_t number = book.pages[index].tab_number;
    if (!ask(36, L"このページのタブを削除しますか？") || revision != revision_
        || book.pages[index].tab_number != number)
        return;
    book.pages[index].tab_number = 0;
    book.pages[index].tab_color = color;
    recount();
}

} // namespace session_walk
