#include "session_model.hpp"
#include "tests/support/naive_search.hpp"
#include <algorithm>

namespace session_walk {

namespace {

template <class Value> Value next(std::deque<Value>& values)
{
    if (values.empty())
        return {};
    Value value = values.front();
    values.pop_front();
    return value;
}

} // namespace

std::size_t Model::shown_index() const
{
    const auto found = std::ranges::find(ids, shown);
    return shown == 0 || found == ids.end() ? none : static_cast<std::size_t>(found - ids.begin());
}

book::Page* Model::page()
{
    const std::size_t index = current();
    return index == none ? nullptr : &book.pages[index];
}

Model::Note Model::note()
{
    const std::size_t index = current();
    if (index == none)
        return { book.header.position, 0, revision_, L"" };
    return { book.header.position, ids[index], revision_, book.pages[index].stamp };
}

std::pair<unsigned, std::uint64_t> Model::on_desk() const
{
    return { shown_index() == none ? 0 : shown, revision_ };
}

bool Model::has_edits() const
{
    return list_edit.has_value() || std::ranges::any_of(boxes, &Box::is_edited);
}

void Model::call()
{
    if (const auto hook = std::exchange(while_open, {}))
        hook();
}

void Model::tell(int style, const std::wstring& text)
{
    say(L"tell " + std::to_wstring(style) + L": " + text);
    call();
}

bool Model::ask(int style, const std::wstring& text)
{
    say(L"ask " + std::to_wstring(style) + L": " + text);
    call();
    return next(answers);
}

std::wstring Model::choose(const std::wstring& what)
{
    say(what);
    call();
    return next(paths);
}

void Model::show_title()
{
    if (needs_update)
        title = L"Book needs update";
    else if (path.empty())
        title = L"No Title";
    else
        title = stem_of(path) + (has_edits() ? L" *" : L"");
}

void Model::clean()
{
    list_edit.reset();
    for (Box& box : boxes)
        box.is_edited = false;
    show_title();
}

void Model::type(std::size_t box, const std::wstring& text)
{
    boxes[box] = { text, true };
}

void Model::renew_mark()
{
    show_title();
}

void Model::forget_shown()
{
    shown = 0;
    clean();
}

void Model::show()
{
    book::Page* shown_now = page();
    if (!shown_now || has_edits())
        return;
    const unsigned id = ids[current()];
    if (id == shown) {
        shown_now->scroll_first = scroll[0];
        shown_now->scroll_third = scroll[1];
    }
    for (std::size_t box = 0; box < 3; ++box)
        boxes[box] = { shown_now->text[box], false };
    scroll = { shown_now->scroll_first, shown_now->scroll_third };
    shown = id;
    clean();
}

std::uint32_t Model::settle()
{
    if (is_gone)
        return 0;
    hits.clear();
    book::SearchQuery query = asked;
    query.track_marks = book.header.track_marks != 0;
    query.track_tabs = book.header.track_tabs != 0;
    if (const book::Page* searched = page())
        naive::match_page(*searched, query, hits);
    return shown_index() == current() ? 0 : full;
}

void Model::fail(const Failure& failure)
{
    if (!failure.is_fatal)
        return tell(48, failure.text);
    tell(16, failure.text + L"\r\nアプリケーションを終了します．");
    keeps_file_ = keeps_file_ || is_busy; // pages whose editing nobody has confirmed
    say(L"close");
    close();
}

void Model::run(const std::function<void()>& action, std::uint32_t mask)
{
    if (is_loading)
        return;
    ++depth_;
    try {
        action();
        pending_ |= mask;
    } catch (const Failure& failure) {
        fail(failure);
    }
    if (depth_ == 1) {
        pending_ |= settle();
        for (int round = 0; round < 12 && pending_ != 0 && !is_gone; ++round) {
            refresh_counts();
            pending_ |= settle();
            if (std::exchange(pending_, 0) & 1)
                show();
            const std::uint32_t overdue = settle();
            if (!has_edits())
                pending_ |= overdue;
        }
        pending_ = 0;
    }
    --depth_;
}

} // namespace session_walk
