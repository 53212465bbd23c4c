#include "app/file_actions.hpp"
#include "app/file_texts.hpp"
#include "book/file_list_text.hpp"
#include "book/linguistic_sort.hpp"
#include "core/command_ids.hpp"
#include "core/data_root.hpp"
#include "platform/file.hpp"
#include "platform/text.hpp"
#include <algorithm>
#include <utility>

namespace app {

namespace command = core::command;

namespace {

using core::Outcome;
using core::outcome_of;

// Changes the current page's list and drops the hits, which refer to its entries.
template <class Change> Outcome change_list(BookSession& session, Change change)
{
    book::Page* page = session.book().current_page();
    if (!page || !change(*page))
        return Outcome::failed;
    session.note_content_change();
    return Outcome::done;
}

// The index of the entry at `place` after a step of `by`, which may reach beyond either end. `count` must not
// be 0.
std::uint64_t clamped(std::uint64_t place, std::int64_t by, std::size_t count)
{
    const auto last = static_cast<std::int64_t>(count) - 1;
    const auto from = static_cast<std::int64_t>(std::min<std::uint64_t>(place, count - 1));
    return static_cast<std::uint64_t>(std::clamp<std::int64_t>(from + by, 0, last));
}

std::int64_t step_of(int command, std::size_t count)
{
    const auto whole = static_cast<std::int64_t>(count);
    switch (command) {
    case command::first_file:
    case command::move_file_to_top:
        return -whole;
    case command::previous_file:
    case command::move_file_up:
        return -1;
    case command::next_file:
    case command::move_file_down:
        return 1;
    case command::last_file:
    case command::move_file_to_end:
        return whole;
    default:
        return 0;
    }
}

} // namespace

bool select_file(book::Page& page, std::uint64_t place)
{
    if (place >= page.files.size())
        return false;
    page.current_file = place;
    return true;
}

bool select_file_by(book::Page& page, int command)
{
    const std::size_t count = page.files.size();
    return count != 0 && select_file(page, clamped(page.current_file, step_of(command, count), count));
}

// A rotation moves one entry over the entries in between, which keep their order.
bool move_file(book::Page& page, int command)
{
    const std::size_t count = page.files.size();
    if (!book::selected_entry(page))
        return false;
    const auto from = page.files.begin() + static_cast<std::ptrdiff_t>(page.current_file);
    page.current_file = clamped(page.current_file, step_of(command, count), count);
    const auto to = page.files.begin() + static_cast<std::ptrdiff_t>(page.current_file);
    if (to < from)
        std::rotate(to, from, from + 1);
    else
        std::rotate(from, from + 1, to + 1);
    return true;
}

bool remove_file(book::Page& page)
{
    if (!book::selected_entry(page))
        return false;
    page.files.erase(page.files.begin() + static_cast<std::ptrdiff_t>(page.current_file));
    const std::uint64_t last = page.files.empty() ? 0 : page.files.size() - 1;
    page.current_file = std::min(page.current_file, last);
    return true;
}

bool remove_all_files(book::Page& page)
{
    if (page.files.empty())
        return false;
    page.files.clear();
    page.current_file = 0;
    return true;
}

bool append_files(book::Page& page, const std::vector<std::wstring>& entries)
{
    if (entries.empty())
        return false;
    page.current_file = page.files.size();
    page.files.insert(page.files.end(), entries.begin(), entries.end());
    return true;
}

bool sort_files(book::Page& page, FileOrder order)
{
    if (page.files.empty())
        return false;
    std::vector<const std::wstring*> keys;
    for (const std::wstring& entry : page.files)
        keys.push_back(&entry);
    std::vector<std::wstring> sorted;
    for (const std::uint64_t place : book::linguistic_order(keys))
        sorted.push_back(page.files[place]);
    if (order == FileOrder::descending)
        std::reverse(sorted.begin(), sorted.end());
    page.files = std::move(sorted);
    return true;
}

bool may_change_list(BookSession& session)
{
    if (!session.desk().file_list_edit())
        return true;
    const BookSession::Shown asked = session.on_desk();
    const std::optional<PageNote> current = note_page(session.book());
    const Answer answer = session.talk().ask_or_cancel(book::apply_file_list_question);
    if (answer == Answer::cancel || session.talk().is_gone() || session.on_desk() != asked)
        return false;
    // The command would change the list of the page that is current now.
    if (current && !is_same(*current, session.book()))
        return false;
    const bool is_wanted = answer == Answer::yes && session.desk().file_list_edit();
    if (is_wanted && apply_file_list(session, *session.desk().file_list_edit()) == Outcome::failed)
        return false;
    session.desk().drop_file_list_edit();
    session.renew_edited_mark();
    session.merge(core::refresh::file_list);
    return true;
}

// The hits stay: they do not depend on the selected entry.
Outcome select_file_by(BookSession& session, int command)
{
    book::Page* page = session.book().current_page();
    return outcome_of(page && select_file_by(*page, command));
}

Outcome select_file(BookSession& session, std::int64_t row)
{
    book::Page* page = session.book().current_page();
    return outcome_of(page && row >= 0 && select_file(*page, static_cast<std::uint64_t>(row)));
}

Outcome move_file(BookSession& session, int command)
{
    if (!may_change_list(session))
        return Outcome::failed;
    return change_list(session, [command](book::Page& page) { return move_file(page, command); });
}

Outcome sort_files(BookSession& session, int command)
{
    if (!may_change_list(session))
        return Outcome::failed;
    const FileOrder order =
        command == command::sort_files_ascending ? FileOrder::ascending : FileOrder::descending;
    return change_list(session, [order](book::Page& page) { return sort_files(page, order); });
}

Outcome remove_file(BookSession& session)
{
    if (!may_change_list(session))
        return Outcome::failed;
    const std::optional<EntryNote> asked = note_entry(session.book());
    if (!asked || !session.ask_about_entry(L"リストからこのファイルを削除しますか？\r\n" + asked->text))
        return Outcome::failed;
    return change_list(session, [](book::Page& page) { return remove_file(page); });
}

Outcome remove_all_files(BookSession& session)
{
    if (!may_change_list(session))
        return Outcome::failed;
    const book::Page* current = session.book().current_page();
    if (!current)
        return Outcome::failed;
    const std::vector<std::wstring> asked = current->files;
    if (!session.ask_about_page(L"リストから全てのファイルを削除しますか？")
        || session.book().current_page()->files != asked)
        return Outcome::failed;
    return change_list(session, [](book::Page& page) { return remove_all_files(page); });
}

std::vector<std::wstring> add_files(BookSession& session, const ChoosePaths& choose)
{
    if (!may_change_list(session))
        return {};
    const std::optional<PageNote> asked = note_page(session.book());
    if (!asked)
        return {};
    std::vector<std::wstring> chosen = choose();
    if (chosen.empty() || !is_same(*asked, session.book()))
        return {};
    change_list(session, [&chosen](book::Page& page) { return append_files(page, chosen); });
    return chosen;
}

std::vector<std::wstring> add_dropped_files(BookSession& session, std::vector<std::wstring> files)
{
    if (files.empty())
        return {};
    return add_files(session, [&files] { return std::move(files); });
}

Outcome duplicate_file(BookSession& session, const ChooseCopy& choose)
{
    const std::optional<EntryNote> asked = note_entry(session.book());
    if (!asked)
        return Outcome::failed;
    core::set_current_directory(L"");
    const std::wstring source = core::full_path(asked->text);
    const std::wstring copy = choose(source);
    if (copy.empty() || !is_same(*asked, session.book()))
        return Outcome::failed;
    // A copy onto the file itself is skipped but reported as done.
    const bool is_itself = platform::same_text_ignoring_case(copy, source);
    if (const std::uint32_t code = is_itself ? 0 : platform::copy_file(source, copy)) {
        session.talk().tell_system_error(code);
        return Outcome::failed;
    }
    session.talk().tell(duplicated_text(source, copy), BoxStyle::plain);
    return Outcome::done;
}

Outcome apply_typed_list(BookSession& session)
{
    std::optional<std::wstring> text = session.desk().file_list_edit();
    if (!text || apply_file_list(session, *std::move(text)) == Outcome::failed)
        return Outcome::failed;
    session.desk().drop_file_list_edit();
    session.renew_edited_mark();
    return Outcome::done;
}

Outcome apply_file_list(BookSession& session, std::wstring text)
{
    book::Page* page = session.shown_page();
    if (!page)
        return Outcome::failed;
    book::set_file_list(*page, book::file_list_entries(std::move(text)));
    session.note_content_change();
    session.merge(core::refresh::applied_file_list);
    return Outcome::done;
}

// The hits stay: they do not depend on the selected entry.
Outcome select_file_of_hit(BookSession& session, const book::SearchHit& hit)
{
    book::Page* page = session.book().current_page();
    if (!page || hit.place < book::file_place)
        return Outcome::failed;
    const std::uint64_t place = hit.place - book::file_place;
    return outcome_of(place != page->current_file && select_file(*page, place));
}

Outcome choose_folder(BookSession& session, const ChoosePaths& choose)
{
    const std::optional<PageNote> asked = note_page(session.book());
    if (!asked)
        return Outcome::failed;
    const std::vector<std::wstring> chosen = choose();
    if (chosen.empty() || !is_same(*asked, session.book()))
        return Outcome::failed;
    session.book().current_page()->reference_folder = chosen.front();
    session.save(SaveCode::always);
    return Outcome::done;
}

Outcome clear_folder(BookSession& session)
{
    book::Book& book = session.book();
    if (!book.current_page())
        return Outcome::failed;
    const std::wstring asked = book.current_page()->reference_folder;
    if (!session.ask_about_page(L"フォルダの選択を取消しますか？\r\n" + asked)
        || book.current_page()->reference_folder != asked)
        return Outcome::failed;
    book.current_page()->reference_folder.clear();
    session.save(SaveCode::always);
    return Outcome::done;
}

} // namespace app
