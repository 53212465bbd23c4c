// The open Book and the page on the desk. Every way by which text gets from the boxes into the Book, and from
// the Book into a file, is here: leave a page, save, new, open, load, save as, restore, back up, close.
//
// The worst that this program could do is to save the text of one page into another. So the page whose text
// is in the boxes is known by its stored index and the Book's revision: whatever inserts, removes or reorders
// stored pages raises the revision, and edits whose page can no longer be named are saved nowhere.
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

namespace app {

// The boxes in which a page is edited, and what surrounds them: the title, the look and the search.
class PageDesk {
public:
    virtual ~PageDesk() = default;

    virtual bool has_edits() const = 0;
    // The text of each edited box.
    virtual BoxEdits edits() const = 0;
    // Puts a page into the boxes, which count as unedited then. `is_shown_already`: the selection stays.
    virtual void show(const book::Page& page, bool is_shown_already) = 0;
    // Stores the places to which the boxes are scrolled.
    virtual void store_scroll(book::Page& page) const = 0;
    // The boxes count as unedited.
    virtual void mark_clean() = 0;
    virtual void show_title(const std::wstring& title, bool is_edited) = 0;

    // Applies theme, divider and fonts of a Book, and corrects what cannot be applied.
    virtual void apply_theme(book::BookHeader& header) = 0;
    virtual void apply_divider_and_fonts(book::BookHeader& header) = 0;

    // What the user searches for. The Book's own two flags are not in it.
    virtual book::SearchQuery query() const = 0;
};

// Questions, answers and news. Each call that shows something lets messages through: afterwards another page,
// another Book or no window may be there.
class Talk {
public:
    virtual ~Talk() = default;

    // The window has ended.
    virtual bool is_gone() const = 0;
    // A window that edits the Book's pages itself is open.
    virtual bool is_busy() const = 0;

    virtual void tell(const std::wstring& text, BoxStyle style) = 0;
    // True for yes.
    virtual bool ask(const std::wstring& text, BoxStyle style) = 0;
    // The system's own words for an error code.
    virtual void tell_system_error(std::uint32_t code) = 0;
    // A search that found nothing; an empty text clears it.
    virtual void show_banner(const std::wstring& text) = 0;

    // Each empty when nothing was chosen. An empty `start` begins on the user's desktop.
    virtual std::wstring choose_book_to_open() = 0;
    virtual std::wstring choose_book_path(const wchar_t* title, const std::wstring& start) = 0;

    virtual void history_changed() = 0;
    // A Book was loaded whole.
    virtual void book_loaded() = 0;
    // After a failure that the program cannot survive.
    virtual void close_program() = 0;
};

// Used on one thread.
class BookSession {
public:
    // All must outlive the session. `serve` brings one view up to date; `before_refresh` is called before the
    // first of them.
    struct Seams {
        PageDesk& desk;
        Talk& talk;
        std::function<void(core::View)> serve;
        std::function<void()> before_refresh;
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

    // The Book is neither the old nor the new one: commands must wait.
    bool is_loading() const { return is_loading_; }

    // Runs an action of the user, unless a Book is being loaded. Nothing that it throws gets out. When the
    // outermost action ends the hits are renewed if need be and the views refreshed once.
    void run(const std::function<void()>& action);
    // Asks for a refresh of these views.
    void merge(core::RefreshMask mask) { commands_.merge(mask); }

    // Saves with one of the three codes. True when the file was written.
    bool save(SaveCode code);
    // Has the page on the desk saved, or its edits given up, before something else is shown. False when the
    // action is to be given up.
    bool may_leave_page();
    // At the end of the program.
    void save_at_close();

    // Each true when a Book is open then. They throw MyException when the program cannot go on.
    bool create_book();
    // Asks for the path when it is empty.
    bool open_book(std::wstring path);
    bool load_book(std::wstring path);
    void open_last_book();
    void save_book_as();
    // A null `result` asks nothing and reports only what the system says of a copy that failed.
    bool back_up_book(std::wstring* result);

    // The page whose text is in the boxes; null when it is no more.
    book::Page* shown_page();
    // For the boxes' view: puts the current page into the boxes, unless they hold edits.
    void show_current_page();
    // After pages came, went or moved. Drops what the boxes hold.
    void forget_shown_page();
    // After the stored text or the file list of a page changed.
    void note_content_change();

    // The page in that direction that matches the search; the current one when there is none.
    book::Page* step_page(int direction);
    book::SearchQuery search_query() const;

    // Title and edited mark.
    void box_changed();
    void renew_edited_mark();
    void update_title();

    // Asks about the current page or its selected entry. True for yes, while that is still the same.
    bool ask_about_page(const std::wstring& question);
    bool ask_about_entry(const std::wstring& question);

private:
    // The page on the desk.
    struct Shown {
        std::size_t index = book::npos;
        std::uint64_t revision = 0;

        friend bool operator==(const Shown&, const Shown&) = default;
    };
    // What the Book's hits were found for.
    struct HitsOf {
        Shown page;
        book::SearchQuery query;

        friend bool operator==(const HitsOf&, const HitsOf&) = default;
    };

    SaveStep ask_to_save();
    bool write_book();
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
    // What a question about the edits is about: the same in a Book whose pages changed is not the same.
    Shown on_desk() const;

    Seams seams_;
    book::Book book_;
    book::HistoryList history_;
    CommandRun commands_;
    Shown shown_;
    std::optional<HitsOf> hits_of_;
    bool edited_mark_ = false; // the title shows that a box was edited
    bool is_unusable_ = false; // the Book's settings could not be applied: it stays out of the history
    bool is_loading_ = false;
};

} // namespace app
