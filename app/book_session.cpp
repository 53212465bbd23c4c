// Showing, committing, saving and leaving the page on the desk, and the updates after each command.
#include "app/book_session.hpp"
#include "book/file_list_text.hpp"
#include "book/page_text.hpp"
#include "core/data_root.hpp"
#include "core/titles.hpp"
#include "platform/file.hpp"
#include "platform/process_log.hpp"
#include <utility>

namespace app {

BookSession::BookSession(Seams seams, std::wstring history_file)
    : seams_(std::move(seams))
    , history_(std::move(history_file))
    , commands_({ [this](core::RefreshMask& pending) { refresh_views(pending); },
          [this](const std::exception_ptr& failure) { report(failure); }, [this] { return talk().is_gone(); },
          [this] { return settle(); } })
{
    book_.clear();
}

void BookSession::run(const std::function<void()>& action)
{
    if (!is_loading_)
        commands_.run(action);
}

bool BookSession::save(SaveCode code)
{
    if (talk().is_gone() || !book_.current_page())
        return false;
    const bool changed = desk().has_edits();
    refresh_counts();
    if (book::Page* page = shown_page())
        desk().store_scroll(*page);
    SaveStep step = save_step(code, changed, talk().is_busy());
    if (step == SaveStep::ask)
        step = ask_to_save();
    if (step == SaveStep::give_up)
        mark_clean();
    if (step != SaveStep::write)
        return false;
    if (changed)
        commit_edits();
    return write_to_file();
}

// The user's answer is about the page that was on the desk when the question was shown. If another page
// arrived while the box was open, the answer counts for nothing: nothing is written, and the boxes keep their
// edits.
SaveStep BookSession::ask_to_save()
{
    const Shown asked = on_desk();
    const bool is_wanted = talk().ask(save_question, BoxStyle::question);
    if (talk().is_gone() || on_desk() != asked)
        return SaveStep::skip;
    return is_wanted ? SaveStep::write : SaveStep::give_up;
}

// Everything that can throw comes before the first change of the page. So a page gets its new texts together
// with its new stamp, or neither.
void BookSession::commit_edits()
{
    book::Page* page = shown_page();
    if (!page)
        return;
    std::wstring stamp = page->stamp;
    book::renew_stamp(stamp, book::current_time_text());
    std::optional<std::vector<std::wstring>> files;
    if (std::optional<std::wstring> list = desk().file_list_edit())
        files = book::file_list_entries(*std::move(list));
    app::commit_edits(desk().edits(), *page);
    page->stamp = std::move(stamp);
    note_content_change();
    if (!files)
        return;
    book::set_file_list(*page, *std::move(files));
    ovlib::WinApp::process_log() << L"save_book() → FileListEditor::apply()\r\n";
    talk().file_list_committed(std::vector<std::wstring>(page->files));
}

bool BookSession::write_to_file()
{
    note_content_change(); // writing trims the texts of all pages
    if (!book_.save_to(core::path_from_data_root(book_.path))) {
        tell_save_failure();
        return false;
    }
    remember_book();
    mark_clean();
    return true;
}

void BookSession::tell_save_failure()
{
    const std::uint32_t attributes = platform::file_attributes(core::path_from_data_root(book_.path));
    talk().tell(save_failure_text(book_.path, attributes), BoxStyle::warning);
}

bool BookSession::may_leave_page()
{
    const bool had_edits = desk().has_edits();
    const Shown left = on_desk();
    save(SaveCode::ask);
    // If another page arrived while a box was open, it is not the page that the user wanted to leave.
    if (talk().is_gone() || (had_edits && on_desk() != left))
        return false;
    const Leave decision = leave_decision(had_edits && desk().has_edits(), book_.current_page() != nullptr);
    if (decision == Leave::stay)
        return false;
    if (decision == Leave::drop_edits_and_go_on)
        mark_clean();
    // Discarded edits are still visible in the boxes.
    if (had_edits)
        merge(core::refresh::full);
    return true;
}

// The save rebuilds the order first, which may throw. A failed rebuild is not repeated, so the second round
// gets as far as writing.
void BookSession::save_at_close()
{
    if (keeps_file_)
        return;
    for (int round = 0; round < 2; ++round) {
        try {
            save(SaveCode::always);
            return;
        } catch (...) {
            const FailureNotice notice = failure_notice(std::current_exception(), FailedAt::command);
            talk().tell(notice.text, notice.style);
        }
    }
}

book::Page* BookSession::shown_page()
{
    const std::size_t index = shown_place().index;
    return index < book_.pages.size() ? &book_.pages[index] : nullptr;
}

void BookSession::show_current_page()
{
    const book::Page* page = book_.current_page();
    if (!page || desk().has_edits())
        return;
    // A page that is shown again keeps the scroll position that the user chose.
    const Shown place = current_place();
    const bool is_shown_already = place == shown_;
    if (is_shown_already)
        desk().store_scroll(*book_.current_page());
    // If showing throws halfway, the boxes contain texts of two pages. They belong to no page then.
    shown_ = {};
    desk().show(*page, is_shown_already);
    shown_ = place;
    mark_clean();
}

void BookSession::forget_shown_page()
{
    shown_ = {};
    mark_clean();
}

// The old hits are dropped at once. A box that is open now may cause a paint before the hits are renewed, and
// the paint would look up entries that the list no longer contains.
void BookSession::note_content_change()
{
    hits_of_.reset();
    book_.hits.clear();
}

book::Page* BookSession::step_page(int direction)
{
    book::Page* found = book_.find(direction, search_query());
    hits_of_ = wanted_hits();
    return found;
}

book::SearchQuery BookSession::search_query() const
{
    book::SearchQuery query = seams_.desk.query();
    query.track_marks = book_.header.track_marks != 0;
    query.track_tabs = book_.header.track_tabs != 0;
    return query;
}

void BookSession::box_changed()
{
    if (edited_mark_)
        return;
    edited_mark_ = true;
    update_title();
}

void BookSession::renew_edited_mark()
{
    edited_mark_ = desk().has_edits();
    update_title();
}

void BookSession::mark_clean()
{
    desk().mark_clean();
    edited_mark_ = false;
    update_title();
}

void BookSession::update_title()
{
    const bool is_edited = desk().has_edits();
    desk().show_title(core::title_text(book_.path, { is_edited, book_.needs_update }), is_edited);
}

bool BookSession::ask_about_page(const std::wstring& question)
{
    const std::optional<PageNote> asked = note_page(book_);
    return asked && talk().ask(question, BoxStyle::question) && is_same(*asked, book_);
}

bool BookSession::ask_about_entry(const std::wstring& question)
{
    const std::optional<EntryNote> asked = note_entry(book_);
    return asked && talk().ask(question, BoxStyle::question) && is_same(*asked, book_);
}

// Rebuilding the order drops the hits.
void BookSession::refresh_counts()
{
    if (book_.needs_update)
        note_content_change();
    book_.refresh_counts();
}

void BookSession::refresh_views(core::RefreshMask& pending)
{
    seams_.before_refresh();
    refresh_counts();
    // After a new order another page may be at the current position.
    pending |= settle();
    core::serve_refresh(pending, seams_.serve);
    // A view may have changed the current page itself. If the boxes contain edits, a further round could not
    // show that page, so none is requested.
    const core::RefreshMask overdue = settle();
    if (!talk().is_gone() && !desk().has_edits())
        pending |= overdue;
}

bool BookSession::renew_hits()
{
    if (hits_of_ == wanted_hits())
        return false;
    step_page(0);
    return true;
}

// If another page is about to be shown, its hits are reported when its text is in the boxes, by the page
// view.
core::RefreshMask BookSession::settle()
{
    if (talk().is_gone())
        return 0;
    const bool were_dropped = !hits_of_;
    const bool are_new = renew_hits();
    const core::RefreshMask overdue = core::overdue_views(shown_place().index, book_.current_index());
    if (are_new && were_dropped && overdue == 0 && seams_.hits_renewed)
        seams_.hits_renewed();
    return overdue;
}

void BookSession::report(const std::exception_ptr& failure)
{
    const FailureNotice notice = failure_notice(failure, FailedAt::command);
    talk().tell(notice.text, notice.style);
    if (!notice.ends_program)
        return;
    keeps_file_ = keeps_file_ || talk().is_busy();
    talk().close_program();
}

BookSession::HitsOf BookSession::wanted_hits() const
{
    return { current_place(), search_query() };
}

BookSession::Shown BookSession::current_place() const
{
    return { book_.current_index(), book_.revision };
}

BookSession::Shown BookSession::shown_place() const
{
    return shown_.revision == book_.revision ? shown_ : Shown{};
}

BookSession::Shown BookSession::on_desk() const
{
    return { shown_place().index, book_.revision };
}

} // namespace app
