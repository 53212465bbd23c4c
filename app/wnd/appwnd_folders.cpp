// The page's reference folder.
#include "app/file_texts.hpp"
#include "app/page_note.hpp"
#include "app/wnd/appwnd.hpp"
#include "app/wnd/shell_folders.hpp"
#include "core/data_root.hpp"
#include "media/wnd/shell_open.hpp"

namespace app {

core::Outcome AppWnd::on_open_folder(const CommandInput&)
{
    const book::Page* page = book_.current_page();
    if (!page)
        return core::Outcome::failed;
    const std::wstring folder = page->reference_folder;
    core::set_current_directory(L"");
    if (media::open_by_shell(hwnd(), folder))
        return core::Outcome::done;
    show_message(open_folder_failure(folder), BoxStyle::plain);
    return core::Outcome::failed;
}

core::Outcome AppWnd::on_choose_folder(const CommandInput&)
{
    const std::optional<PageNote> asked = note_page(book_);
    if (!asked)
        return core::Outcome::failed;
    const std::wstring& folder = book_.current_page()->reference_folder;
    ovlib::modern::FolderOpenDialog dialog{ this };
    dialog.set_title(choose_folder_title);
    dialog.set_folder(folder.empty() ? desktop_folder() : folder);
    const std::vector<std::wstring> chosen = paths_chosen_in(dialog);
    if (chosen.empty() || !still_stands(*asked, book_))
        return core::Outcome::failed;
    book_.current_page()->reference_folder = chosen.front();
    save_book(SaveCode::always);
    return core::Outcome::done;
}

core::Outcome AppWnd::on_clear_folder(const CommandInput&)
{
    const std::optional<PageNote> asked = note_page(book_);
    if (!asked)
        return core::Outcome::failed;
    const std::wstring question =
        L"フォルダの選択を取消しますか？\r\n" + book_.current_page()->reference_folder;
    if (show_message(question, BoxStyle::question) != answer_yes || !still_stands(*asked, book_))
        return core::Outcome::failed;
    book_.current_page()->reference_folder.clear();
    save_book(SaveCode::always);
    return core::Outcome::done;
}

} // namespace app
