#include "app/edit_actions.hpp"
#include "app/page_actions.hpp"
#include "book/page_editor_view.hpp"
#include <new>
#include <span>
#include <stdexcept>

namespace app {

namespace {

using book::EditResult;

constexpr std::uint32_t not_fatal = 0;

// Runs an operation that leaves the Book as it was when it throws, and has all views refreshed after it. Any
// other program error would end the program; a text that is too large for the memory need not.
template <class Operation> void run_edit(BookSession& session, Operation operation)
{
    session.run([&] {
        session.merge(core::refresh::full);
        try {
            operation();
        } catch (const std::bad_alloc&) {
            throw MyException(book::page_edit_failure, not_fatal);
        } catch (const std::length_error&) {
            throw MyException(book::page_edit_failure, not_fatal);
        }
    });
}

std::optional<std::size_t> replace_in(
    BookSession& session, std::span<book::Page> pages, const book::ReplaceRequest& request)
{
    const std::size_t count = book::replace_in_pages(pages, request);
    session.note_content_change();
    return count;
}

template <class Operation> EditResult move_pages(BookSession& session, Operation operation)
{
    EditResult result = EditResult::none;
    run_edit(session, [&] {
        result = operation();
        if (result == EditResult::done)
            follow_pages(session);
    });
    return result;
}

bool load_again(BookSession& session)
{
    session.merge(core::refresh::full);
    return session.load_book(session.book().path);
}

} // namespace

bool prepare_editing(BookSession& session)
{
    bool is_ready = false;
    session.run([&] {
        if (session.talk().is_busy() || !session.book().current_page())
            return;
        if (session.desk().has_edits()) {
            is_ready = session.save(SaveCode::ask);
            // Edits that are left could not be written, or came with another page while the question was
            // open.
            if (is_ready || session.talk().is_gone() || session.desk().has_edits())
                return;
            session.merge(core::refresh::full); // the boxes still show what was dropped
        }
        is_ready = session.save(SaveCode::always);
    });
    return is_ready;
}

bool restore_pages(BookSession& session)
{
    bool is_loaded = false;
    session.run([&] { is_loaded = load_again(session); });
    return is_loaded;
}

bool restore_pages(BookSession& session, book::PageEditor& editor)
{
    bool is_loaded = false;
    session.run([&] {
        is_loaded = load_again(session);
        if (is_loaded)
            editor.reset();
    });
    return is_loaded;
}

bool end_editing(BookSession& session, EditEnd end)
{
    bool has_ended = end != EditEnd::restore;
    session.run([&] {
        session.merge(core::refresh::full);
        if (end == EditEnd::save)
            session.save(SaveCode::always);
        if (end == EditEnd::restore)
            has_ended = load_again(session);
    });
    return has_ended;
}

std::optional<std::size_t> replace_in_all_pages(BookSession& session, const book::ReplaceRequest& request)
{
    std::optional<std::size_t> count;
    run_edit(session, [&] { count = replace_in(session, session.book().pages, request); });
    return count;
}

std::optional<std::size_t> replace_in_current_page(BookSession& session, const book::ReplaceRequest& request)
{
    std::optional<std::size_t> count;
    run_edit(session, [&] {
        if (book::Page* page = session.book().current_page())
            count = replace_in(session, { page, 1 }, request);
    });
    return count;
}

EditResult paste_pages(BookSession& session, book::PageEditor& editor, const book::PasteRequest& request)
{
    return move_pages(session, [&] { return editor.paste(request); });
}

EditResult delete_pages(BookSession& session, book::PageEditor& editor, const book::DeleteRequest& request)
{
    return move_pages(session, [&] { return editor.remove(request, new_page_colors()); });
}

void show_position(BookSession& session, std::optional<std::uint64_t> position)
{
    if (position)
        session.run([&] { go_to_position(session, *position); });
}

std::optional<std::size_t> EditSession::replace_in_all_pages(const book::ReplaceRequest& request)
{
    return app::replace_in_all_pages(session_, request);
}

std::optional<std::size_t> EditSession::replace_in_current_page(const book::ReplaceRequest& request)
{
    return app::replace_in_current_page(session_, request);
}

EditResult EditSession::paste_pages(book::PageEditor& editor, const book::PasteRequest& request)
{
    return app::paste_pages(session_, editor, request);
}

EditResult EditSession::delete_pages(book::PageEditor& editor, const book::DeleteRequest& request)
{
    return app::delete_pages(session_, editor, request);
}

void EditSession::show_position(std::optional<std::uint64_t> position)
{
    app::show_position(session_, position);
}

bool EditSession::restore_pages()
{
    return app::restore_pages(session_);
}

bool EditSession::restore_pages(book::PageEditor& editor)
{
    return app::restore_pages(session_, editor);
}

bool EditSession::end_editing(EditEnd end)
{
    return app::end_editing(session_, end);
}

} // namespace app
