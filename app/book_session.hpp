// The open Book and the page on the desk. Every way in which text gets from the boxes into the Book, and from
// the Book into a file, is here: leaving a page, save, new, open, load, save as, restore, backup and close.
//
// The worst failure of this program would be to save the text of one page into another. So the page whose
// text is in the boxes is identified by its stored index and the Book's revision. Every insertion, removal or
// reordering of stored pages raises the revision. Edits whose page can no longer be identified are never
// saved.
#pragma once
#include "app/command_run.hpp"
#include "app/failures.hpp"
#include "app/page_note.hpp"
#include "app/save_rules.hpp"
#include "book/book.hpp"
#include "book/history_list.hpp"
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace app {

// The boxes in which a page is edited, with the title, the theme and the search fields around them.
class PageDesk {
public:
    virtual ~PageDesk() = default;

    virtual bool has_edits() const = 0;
    // The texts of the edited boxes; nullopt for a box without edits.
    virtual BoxEdits edits() const = 0;
    // The text in the editor of the file list if it was edited. It belongs to the page in the boxes.
    virtual std::optional<std::wstring> file_list_edit() const { return std::nullopt; }
    // Marks only that editor unedited; the next refresh fills it from the page.
    virtual void drop_file_list_edit() { }
    // Puts a page into the boxes and marks them unedited. If `is_shown_already`, the selection is kept.
    virtual void show(const book::Page& page, bool is_shown_already) = 0;
    // Stores the scroll positions of the boxes in `page`.
    virtual void store_scroll(book::Page& page) const = 0;
    // Marks the boxes unedited.
    virtual void mark_clean() = 0;
    virtual void show_title(const std::wstring& title, bool is_edited) = 0;

    // Apply theme, divider and fonts of a Book. Values that cannot be applied are corrected in `header`.
    virtual void apply_theme(book::BookHeader& header) = 0;
    virtual void apply_divider_and_fonts(book::BookHeader& header) = 0;

    // What the user searches for, without the Book's own two tracking flags.
    virtual book::SearchQuery query() const = 0;
};

enum class Answer { yes, no, cancel };

// Boxes, dialogs and notifications. Each call that shows something dispatches messages: afterwards the page
// and the Book may be others, and the window may be destroyed.
class Talk {
public:
    virtual ~Talk() = default;

    // The window was destroyed.
    virtual bool is_gone() const = 0;
    // A window that edits the Book's pages itself is open.
    virtual bool is_busy() const = 0;

    virtual void tell(const std::wstring& text, BoxStyle style) = 0;
    // True if the user chose yes.
    virtual bool ask(const std::wstring& text, BoxStyle style) = 0;
    virtual Answer ask_or_cancel(const std::wstring& /*text*/) { return Answer::cancel; }
    // Shows the system's message for an error code.
    virtual void tell_system_error(std::uint32_t code) = 0;
    // Shows that a search found nothing; an empty text hides the banner.
    virtual void show_banner(const std::wstring& text) = 0;

    // Both return an empty path if the user cancelled. With an empty `start` the dialog opens in the user's
    // desktop folder.
    virtual std::wstring choose_book_to_open() = 0;
    virtual std::wstring choose_book_path(const wchar_t* title, const std::wstring& start) = 0;

    virtual void history_changed() = 0;
    // A Book was loaded completely.
    virtual void book_loaded() = 0;
    // A save committed the edited file list of a page.
    virtual void file_list_committed(const std::vector<std::wstring>& /*files*/) { }
    // For a failure that the program cannot survive.
    virtual void close_program() = 0;
};

// Used on one thread only.
class BookSession {
public:
    // All must outlive the session. `serve` refreshes one view; `before_refresh` is called before the first
    // view of a refresh.
    struct Seams {
        PageDesk& desk;
        Talk& talk;
        std::function<void(core::View)> serve;
        std::function<void()> before_refresh;
        // The hits were found again because the text, the files or the wrapping of the shown page changed.
        std::function<void()> hits_renewed = {};
    };

    BookSession(Seams seams, std::wstring history_file);
    BookSession(const BookSession&) = delete;
    BookSession& operator=(const BookSession&) = delete;

    book::Book& book() { return book_; }
    const book::Book& book() const { return book_; }
    book::HistoryList& history() { return history_; }
    const book::HistoryList& history() const { return history_; }
    PageDesk& desk() { return seams_.desk; }
    Talk& talk() { return seams_.talk; }

    // During a load the Book is neither the old nor the new one, so commands must wait.
    bool is_loading() const { return is_loading_; }

    // Runs an action of the user, unless a Book is being loaded. Exceptions of the action are reported, not
    // passed on. When the outermost action ends, the hits are renewed if necessary and the views are
    // refreshed once.
    void run(const std::function<void()>& action);
    // Requests a refresh of these views.
    void merge(core::RefreshMask mask) { commands_.merge(mask); }

    // Saves by one of the three codes. True if the file was written.
    bool save(SaveCode code);
    // Lets the user save or discard the edits of the page on the desk before something else is shown. False
    // if the caller must cancel its action.
    bool may_leave_page();
    // For the end of the program. Writes nothing if a failure ends it while another window edits the pages:
    // the file is the only way back from changes that the user has not confirmed.
    void save_at_close();

    // Each returns true if a Book is open afterwards. They throw MyException if the program cannot go on.
    bool create_book();
    // Asks for the path if it is empty.
    bool open_book(std::wstring path);
    bool load_book(std::wstring path);
    void open_last_book();
    void save_book_as();
    // If `result` is null, no question is asked, and only the system's message about a failed copy is shown.
    bool back_up_book(std::wstring* result);

    // The page whose text is in the boxes; null if it no longer exists.
    book::Page* shown_page();
    // Identifies the page on the desk.
    struct Shown {
        std::size_t index = book::npos;
        std::uint64_t revision = 0;

        friend bool operator==(const Shown&, const Shown&) = default;
    };
    // Identifies the subject of a question about the edits. It also differs if the Book's pages changed
    // meanwhile.
    Shown on_desk() const;
    // For the view of the boxes: puts the current page into the boxes, unless they contain edits.
    void show_current_page();
    // To be called after pages were inserted, removed or moved. Discards the edits in the boxes.
    void forget_shown_page();
    // To be called after the stored text or the file list of a page changed.
    void note_content_change();

    // Goes to the next page in that direction that matches the search. Returns the current page if there is
    // no other.
    book::Page* step_page(int direction);
    book::SearchQuery search_query() const;
    // Brings the hits up to date with the current page, its text and files, the order and the query. False if
    // they were up to date.
    bool renew_hits();

    // For the title and the edited mark in it.
    void box_changed();
    void renew_edited_mark();
    void update_title();

    // Ask about the current page or its selected entry. True if the user chose yes and the page or entry is
    // still the same.
    bool ask_about_page(const std::wstring& question);
    bool ask_about_entry(const std::wstring& question);

private:
    // The page and the query for which the Book's hits were found.
    struct HitsOf {
        Shown page;
        book::SearchQuery query;

        friend bool operator==(const HitsOf&, const HitsOf&) = default;
    };

    SaveStep ask_to_save();
    bool write_to_file();
    void tell_save_failure();
    bool start_new_book(const std::wstring& path);
    bool read_book(const std::wstring& path, std::wstring& error);
    void take_book_settings(const std::wstring& path);
    void apply_book_settings();
    void remember_book();
    void forget_book(const std::wstring& path);

    void commit_edits();
    void mark_clean();
    void refresh_counts();
    void refresh_views(core::RefreshMask& pending);
    core::RefreshMask settle();
    void report(const std::exception_ptr& failure);
    HitsOf wanted_hits() const;
    Shown current_place() const;
    Shown shown_place() const;

    Seams seams_;
    book::Book book_;
    book::HistoryList history_;
    CommandRun commands_;
    Shown shown_;
    std::optional<HitsOf> hits_of_;
    bool edited_mark_ = false; // the title shows the edited mark
    bool is_unusable_ = false; // the Book's settings could not be applied, so it must not enter the history
    bool is_loading_ = false;
    bool keeps_file_ = false; // nothing is written when the program ends
};

} // namespace app
