// Commands on the current page's file list and its reference folder.
#include "app/command_ids.hpp"
#include "app/file_commands.hpp"
#include "app/page_note.hpp"
#include "app/wnd/appwnd.hpp"

namespace app {

namespace {

Outcome outcome_of(bool done)
{
    return done ? Outcome::done : Outcome::failed;
}

} // namespace

Outcome AppWnd::on_select_file(const CommandInput& input)
{
    book::Page* page = book_.current_page();
    if (!page || !select_file_by(*page, input.id))
        return Outcome::failed;
    // The mask of a choice leaves out the combo box, which needs not be filled anew.
    controls_.file_combo().select(static_cast<int>(page->current_file));
    return Outcome::done;
}

Outcome AppWnd::on_move_file(const CommandInput& input)
{
    book::Page* page = book_.current_page();
    return outcome_of(page && move_file(*page, input.id));
}

Outcome AppWnd::on_sort_files(const CommandInput& input)
{
    book::Page* page = book_.current_page();
    const FileOrder order =
        input.id == command::sort_files_ascending ? FileOrder::ascending : FileOrder::descending;
    return outcome_of(page && sort_files(*page, order));
}

Outcome AppWnd::on_remove_file(const CommandInput&)
{
    const std::optional<EntryNote> asked = note_entry(book_);
    if (!asked)
        return Outcome::failed;
    const std::wstring question = L"リストからこのファイルを削除しますか？\r\n" + asked->text;
    if (show_message(question, BoxStyle::question) != answer_yes || !still_stands(*asked, book_))
        return Outcome::failed;
    return outcome_of(remove_file(*book_.current_page()));
}

Outcome AppWnd::on_remove_all_files(const CommandInput&)
{
    const std::optional<PageNote> asked = note_page(book_);
    if (!asked)
        return Outcome::failed;
    const int answer = show_message(L"リストから全てのファイルを削除しますか？", BoxStyle::question);
    if (answer != answer_yes || !still_stands(*asked, book_))
        return Outcome::failed;
    return outcome_of(remove_all_files(*book_.current_page()));
}

Outcome AppWnd::on_clear_folder(const CommandInput&)
{
    const std::optional<PageNote> asked = note_page(book_);
    if (!asked)
        return Outcome::failed;
    const std::wstring question =
        L"フォルダの選択を取消しますか？\r\n" + book_.current_page()->reference_folder;
    if (show_message(question, BoxStyle::question) != answer_yes || !still_stands(*asked, book_))
        return Outcome::failed;
    book_.current_page()->reference_folder.clear();
    save_book(SaveCode::always);
    return Outcome::done;
}

} // namespace app
