// Operations on the Book as a whole: new, open, load, save as, backup, and its entry in the history.
#include "app/book_session.hpp"
#include "app/last_book.hpp"
#include "core/data_root.hpp"
#include "core/folders.hpp"
#include "core/settings.hpp"
#include "look/theme.hpp"
#include "platform/file.hpp"
#include "platform/path_text.hpp"
#include "platform/scoped_flag.hpp"

namespace app {

bool BookSession::create_book()
{
    if (is_loading_)
        return false;
    const bool is_saved = save(SaveCode::always);
    const std::wstring path = talk().choose_book_path(L"Book の新規作成", L"");
    if (path.empty() || talk().is_gone())
        return false;
    // Saves what was edited while the dialog was open. If the first save failed, the user has seen it
    // already.
    if (is_saved)
        save(SaveCode::if_changed);
    const std::int32_t old_theme = look::palette().current_theme;
    look::load_theme(look::theme_standard); // the first page gets the standard colours
    if (start_new_book(path)) {
        take_book_settings(path);
        remember_book();
        return true;
    }
    talk().tell(L"Book の作成に失敗", BoxStyle::warning);
    look::load_theme(old_theme);
    // The Book was replaced although the save failed, so the boxes contain the text of none of its pages.
    merge(core::refresh::full);
    return false;
}

bool BookSession::start_new_book(const std::wstring& path)
{
    book_.clear();
    forget_shown_page();
    book_.new_page(0, look::page_colors(look::palette()));
    book_.path = path;
    return book_.save_to(core::path_from_data_root(path));
}

bool BookSession::open_book(std::wstring path)
{
    if (path.empty())
        path = talk().choose_book_to_open();
    if (path.empty() || talk().is_gone())
        return false;
    save(SaveCode::always);
    return load_book(std::move(path));
}

// The path is a copy on purpose: the caller's string may be the Book's path, which loading clears, or an
// entry of the history, which is erased after a failure.
// NOLINTNEXTLINE(performance-unnecessary-value-param): the copy is wanted
bool BookSession::load_book(std::wstring path)
{
    // A nested load would put the pages of both files into one Book.
    if (is_loading_)
        return false;
    core::set_current_directory(L"");
    if (!platform::exists(core::path_from_data_root(path))) {
        talk().tell(L"ファイル [" + path + L"] が見つかりませんでした．", BoxStyle::warning);
        forget_book(path);
        return false;
    }
    std::wstring error;
    if (!read_book(path, error)) {
        forget_book(path);
        throw MyException(error, fatal_code);
    }
    take_book_settings(path);
    remember_book();
    if (core::settings().auto_backup && !back_up_book(nullptr))
        talk().tell(L"バックアップファイルの作成に失敗\r\n" + book_.path, BoxStyle::warning);
    talk().book_loaded();
    return true;
}

// A load that throws leaves no Book. Otherwise closing would overwrite the file with the part that was read.
bool BookSession::read_book(const std::wstring& path, std::wstring& error)
{
    bool is_loaded = false;
    try {
        const platform::ScopedFlag loading{ is_loading_ };
        is_loaded = book_.load(path, error, [this](const std::wstring& question) {
            return talk().ask(question, BoxStyle::warning_question);
        });
    } catch (...) {
        book_.clear();
        forget_shown_page();
        throw;
    }
    forget_shown_page();
    return is_loaded;
}

void BookSession::open_last_book()
{
    const LastBookSteps steps{ [this](std::wstring path) { return open_book(std::move(path)); },
        [this] { return create_book(); }, [this] { history_.remove_first(); } };
    if (!app::open_last_book(history_.entries(), steps))
        throw MyException(L"Book を開けませんでした", fatal_code);
}

void BookSession::save_book_as()
{
    const std::wstring old_path = book_.path;
    const std::wstring path = talk().choose_book_path(L"Book に名前を付けて保存する", old_path);
    if (path.empty() || book_.path != old_path)
        return;
    book_.path = path;
    if (save(SaveCode::always))
        remember_book();
    else if (book_.path == path) // another Book may have been opened while the failure was shown
        book_.path = old_path;
}

bool BookSession::back_up_book(std::wstring* result)
{
    const auto say = [result](const std::wstring& text) {
        if (result)
            *result = text;
    };
    say(L"");
    const std::wstring& folder = core::folders().book_backup;
    if (!platform::is_folder(folder) && !platform::create_folder(folder)) {
        say(L"Error: バックアップフォルダの作成に失敗しました．\r\n" + folder);
        return false;
    }
    core::set_current_directory(L"");
    const std::wstring source = book_.path;
    if (source.empty() || book_.pages.empty()) {
        say(L"Error: この Book は無効です．\r\n" + source);
        return false;
    }
    const std::wstring name{ platform::file_name(source) };
    const std::wstring target = folder + L"\\" + name;
    const std::wstring question = name + L" はすでにバックアップフォルダに存在します．上書きしますか？";
    if (result && platform::exists(target) && !talk().ask(question, BoxStyle::question))
        return false;
    if (const std::uint32_t code = platform::copy_file(core::path_from_data_root(source), target)) {
        talk().tell_system_error(code);
        return false;
    }
    say(L"バックアップしました:\r\n" + target);
    return true;
}

// A Book whose settings cannot be applied is removed from the history. Otherwise the next start would try it
// first.
void BookSession::take_book_settings(const std::wstring& path)
{
    try {
        is_unusable_ = false;
        apply_book_settings();
    } catch (...) {
        is_unusable_ = true;
        forget_book(path);
        throw;
    }
}

void BookSession::apply_book_settings()
{
    desk().apply_theme(book_.header);
    book_.rebuild_order();
    desk().apply_divider_and_fonts(book_.header);
    note_content_change();
    run([this] { merge(core::refresh::full); });
    update_title();
}

void BookSession::remember_book()
{
    if (!is_unusable_)
        history_.add(book_.path);
    talk().history_changed();
}

void BookSession::forget_book(const std::wstring& path)
{
    history_.remove(path);
    talk().history_changed();
}

} // namespace app
