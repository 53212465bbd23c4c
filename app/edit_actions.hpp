// What the replace window and the page editor do to the Book. Each function is one operation of the session:
// it may be called from any window's message, nothing that it throws gets out, and when it ends the page is
// shown anew, with its hits and all views.
//
// An operation that lacks memory changes nothing and reports that it failed; the program goes on.
#pragma once
#include "app/book_session.hpp"
#include "book/edit_host.hpp"
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

namespace app {

// Before one of these windows opens: brings memory and file into agreement, because the file is what a
// restore returns to. The user is asked about edits; edits that are not wanted are dropped. Writes the Book
// once. False if it could not be written, which was reported, or if there is no page: the window must stay
// closed then.
bool prepare_editing(BookSession& session);

// Loads the Book's file again. False if that was not done: memory still has the changes.
bool restore_pages(BookSession& session);
// The same for the page editor, which is reset then.
bool restore_pages(BookSession& session, book::PageEditor& editor);

using book::EditEnd;
// After the window was closed. False if the changes should be dropped and could not be: the window must be
// shown again, unless the program ends.
bool end_editing(BookSession& session, EditEnd end);

// The number of replacements; nullopt if nothing was done.
std::optional<std::size_t> replace_in_all_pages(BookSession& session, const book::ReplaceRequest& request);
// In the page at the current position.
std::optional<std::size_t> replace_in_current_page(BookSession& session, const book::ReplaceRequest& request);

// After the user said yes to the request.
book::EditResult paste_pages(
    BookSession& session, book::PageEditor& editor, const book::PasteRequest& request);
book::EditResult delete_pages(
    BookSession& session, book::PageEditor& editor, const book::DeleteRequest& request);

// Shows the page at a position that a button or the strip of the editor leads to; nullopt leads nowhere.
void show_position(BookSession& session, std::optional<std::uint64_t> position);

// These operations for the windows.
class EditSession : public book::EditHost {
public:
    // `session` must outlive it. `accepts_input`: see EditHost.
    EditSession(BookSession& session, std::function<bool()> accepts_input)
        : session_(session)
        , accepts_input_(std::move(accepts_input))
    {
    }

    bool accepts_input() const override { return accepts_input_(); }
    std::optional<std::size_t> replace_in_all_pages(const book::ReplaceRequest& request) override;
    std::optional<std::size_t> replace_in_current_page(const book::ReplaceRequest& request) override;
    book::EditResult paste_pages(book::PageEditor& editor, const book::PasteRequest& request) override;
    book::EditResult delete_pages(book::PageEditor& editor, const book::DeleteRequest& request) override;
    void show_position(std::optional<std::uint64_t> position) override;
    bool restore_pages() override;
    bool restore_pages(book::PageEditor& editor) override;
    bool end_editing(EditEnd end) override;

private:
    BookSession& session_;
    std::function<bool()> accepts_input_;
};

} // namespace app
