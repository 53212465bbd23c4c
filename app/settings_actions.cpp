#include "app/settings_actions.hpp"
#include "book/page_order.hpp"
#include <utility>

namespace app {

namespace {

using core::Outcome;

// Any other value than 0 is on. A flag that does not change keeps its value.
template <class Flag> void set_flag(Flag& flag, bool is_on)
{
    if ((flag != 0) != is_on)
        flag = is_on ? 1 : 0;
}

// False if the pages cannot be ordered by the key. The Book is unchanged then.
bool sort_by(book::Book& book, std::int32_t key)
{
    const std::int32_t old_key = std::exchange(book.header.sort_key, key);
    std::vector<std::uint64_t> old_order = std::exchange(book.order, {});
    try {
        book.rebuild_order();
        return true;
    } catch (...) {
        book.header.sort_key = old_key;
        book.order = std::move(old_order);
        return false;
    }
}

void store(book::BookHeader& header, const look::SettingsChoice& choice)
{
    header.tab_label_box = look::clamped_value(look::tab_items(), choice.tab_label_box);
    set_flag(header.gif_autoplay, choice.gif_autoplay);
    set_flag(header.auto_file_search, choice.file_search);
    set_flag(header.wrap_text, choice.wrap_text);
}

void store(core::Settings& settings, const look::SettingsChoice& choice)
{
    settings.clear_cache_at_exit = choice.clear_cache;
    settings.auto_backup = choice.auto_backup;
    settings.auto_imm = choice.auto_imm;
}

} // namespace

BookNote note_book(const book::Book& book)
{
    return { book.path, book.revision };
}

Outcome apply_settings(
    BookSession& session, core::Settings& settings, const BookNote& asked, const look::SettingsChoice& choice)
{
    book::Book& book = session.book();
    const auto is_other = [&] { return session.talk().is_gone() || note_book(book) != asked; };
    if (is_other())
        return Outcome::failed;
    const std::int32_t key = look::clamped_value(look::sort_items(), choice.sort_key);
    const bool is_new_key = key != book.header.sort_key;
    const bool is_new_order = is_new_key && book::is_sorted(book.header);
    const bool may_sort = !is_new_order || session.may_leave_page();
    if (is_other())
        return Outcome::failed;
    store(settings, choice);
    store(book.header, choice);
    if (is_new_order && may_sort) {
        // The position stays, so another page may be shown there afterwards. The session follows it.
        if (!sort_by(book, key))
            session.talk().tell(sort_failure, BoxStyle::warning);
    } else if (is_new_key && !is_new_order) {
        book.header.sort_key = key;
        book.needs_update = true;
    }
    return Outcome::done;
}

} // namespace app
