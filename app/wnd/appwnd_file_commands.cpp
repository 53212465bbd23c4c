// Commands on the current page's file list.
#include "app/file_actions.hpp"
#include "app/file_texts.hpp"
#include "app/page_note.hpp"
#include "app/wnd/appwnd.hpp"
#include "core/command_ids.hpp"
#include "core/data_root.hpp"
#include "media/system_paths.hpp"
#include "media/wnd/shell_open.hpp"
#include "platform/file.hpp"
#include "platform/path_text.hpp"
#include "platform/text.hpp"

namespace app {

namespace command = core::command;

namespace {

core::Outcome outcome_of(bool done)
{
    return done ? core::Outcome::done : core::Outcome::failed;
}

std::wstring extension_without_point(const std::wstring& path)
{
    const std::wstring_view extension = platform::path_extension(path);
    return std::wstring{ extension.substr(extension.empty() ? 0 : 1) };
}

} // namespace

core::Outcome AppWnd::on_select_file(const CommandInput& input)
{
    book::Page* page = book_.current_page();
    if (!page || !select_file_by(*page, input.id))
        return core::Outcome::failed;
    // The mask of a choice leaves out the combo box, which needs not be filled anew.
    controls_.file_combo().select(static_cast<int>(page->current_file));
    return core::Outcome::done;
}

core::Outcome AppWnd::on_move_file(const CommandInput& input)
{
    book::Page* page = book_.current_page();
    return outcome_of(page && move_file(*page, input.id));
}

core::Outcome AppWnd::on_sort_files(const CommandInput& input)
{
    book::Page* page = book_.current_page();
    const FileOrder order =
        input.id == command::sort_files_ascending ? FileOrder::ascending : FileOrder::descending;
    return outcome_of(page && sort_files(*page, order));
}

core::Outcome AppWnd::on_remove_file(const CommandInput&)
{
    const std::optional<EntryNote> asked = note_entry(book_);
    if (!asked)
        return core::Outcome::failed;
    const std::wstring question = L"リストからこのファイルを削除しますか？\r\n" + asked->text;
    if (show_message(question, BoxStyle::question) != answer_yes || !still_stands(*asked, book_))
        return core::Outcome::failed;
    return outcome_of(remove_file(*book_.current_page()));
}

core::Outcome AppWnd::on_remove_all_files(const CommandInput&)
{
    const std::optional<PageNote> asked = note_page(book_);
    if (!asked)
        return core::Outcome::failed;
    const int answer = show_message(L"リストから全てのファイルを削除しますか？", BoxStyle::question);
    if (answer != answer_yes || !still_stands(*asked, book_))
        return core::Outcome::failed;
    return outcome_of(remove_all_files(*book_.current_page()));
}

core::Outcome AppWnd::on_add_files(const CommandInput&)
{
    const std::optional<PageNote> asked = note_page(book_);
    if (!asked)
        return core::Outcome::failed;
    ovlib::modern::FileOpenDialog dialog{ this };
    dialog.set_title(add_files_title);
    dialog.allow_multiple(true);
    const std::vector<std::wstring> chosen = paths_chosen_in(dialog);
    if (chosen.empty() || !still_stands(*asked, book_))
        return core::Outcome::failed;
    append_files(*book_.current_page(), chosen);
    start_shortcut_creation_async(chosen);
    return core::Outcome::done;
}

// Full paths; none when the dialog was left. The dialog may move the current directory, from which relative
// entries count.
std::vector<std::wstring> AppWnd::paths_chosen_in(ovlib::modern::FileOpenDialog& dialog)
{
    const InputGate::Hold hold{ input_ };
    std::vector<std::wstring> paths;
    if (dialog.show())
        dialog.get_result(paths);
    core::set_current_directory(L"");
    return paths;
}

core::Outcome AppWnd::on_duplicate_file(const CommandInput&)
{
    const std::optional<EntryNote> asked = note_entry(book_);
    if (!asked)
        return core::Outcome::failed;
    core::set_current_directory(L"");
    const std::wstring source = core::full_path(asked->text);
    const std::wstring copy = ask_for_copy_of(source);
    if (copy.empty() || !still_stands(*asked, book_))
        return core::Outcome::failed;
    // Onto itself nothing is copied, and that is told as done all the same.
    if (!platform::same_text_ignoring_case(copy, source) && !CopyFileW(source.c_str(), copy.c_str(), FALSE)) {
        tell_system_error(GetLastError());
        return core::Outcome::failed;
    }
    show_message(duplicated_text(source, copy), BoxStyle::plain);
    return core::Outcome::done;
}

std::wstring AppWnd::ask_for_copy_of(const std::wstring& source)
{
    ovlib::classic::FileSaveDialog dialog{ this };
    dialog.set_options(OFN_EXPLORER | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT);
    dialog.set_title(duplicate_title);
    dialog.set_file_name(std::wstring{ platform::file_name(source) });
    dialog.set_default_extension(extension_without_point(source));
    const InputGate::Hold hold{ input_ };
    std::wstring chosen = dialog.show() ? dialog.result() : std::wstring{};
    core::set_current_directory(L"");
    return chosen;
}

core::Outcome AppWnd::on_open_file(const CommandInput&)
{
    const std::optional<EntryNote> asked = note_entry(book_);
    if (!asked)
        return core::Outcome::failed;
    core::set_current_directory(L"");
    // In full, or the shell would look for a bare name among the system's programs too.
    const bool is_there = platform::exists(asked->text);
    if (media::open_by_shell(hwnd(), is_there ? core::full_path(asked->text) : asked->text))
        return core::Outcome::done;
    show_message(open_file_failure(asked->text), BoxStyle::warning);
    return core::Outcome::failed;
}

core::Outcome AppWnd::on_show_file_in_folder(const CommandInput&)
{
    const std::optional<EntryNote> asked = note_entry(book_);
    if (!asked)
        return core::Outcome::failed;
    core::set_current_directory(L"");
    const std::wstring path = media::full_entry(asked->text);
    if (media::show_in_folder(hwnd(), path))
        return core::Outcome::done;
    show_message(show_in_folder_failure(path), BoxStyle::warning);
    return core::Outcome::failed;
}

} // namespace app
