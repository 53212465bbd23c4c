// New, open, load, save, save as and backup.
#include "app/last_book.hpp"
#include "app/page_actions.hpp"
#include "app/wnd/appwnd.hpp"
#include "book/history_rows.hpp"
#include "book/my_exception.hpp"
#include "core/command_ids.hpp"
#include "core/data_root.hpp"
#include "core/settings.hpp"
#include "core/titles.hpp"
#include "look/theme.hpp"
#include "platform/file.hpp"

namespace app {

namespace command = core::command;
namespace refresh = core::refresh;

bool AppWnd::save_book(SaveCode code)
{
    if (is_gone() || current_index(book_) == book::npos)
        return false;
    const bool changed = has_edits();
    book_.refresh_counts();
    store_scroll();
    SaveStep step = save_step(code, changed, is_busy());
    if (step == SaveStep::ask)
        step = show_message(save_question, BoxStyle::question) == answer_yes ? SaveStep::write
                                                                             : SaveStep::give_up;
    if (step == SaveStep::give_up)
        mark_clean();
    if (step != SaveStep::write)
        return false;
    if (changed) {
        take_edits_back();
        step_page(0); // the hits were those of the old text
    }
    return write_book();
}

bool AppWnd::write_book()
{
    if (!book_.save_to(core::path_from_data_root(book_.path))) {
        tell_save_failure();
        return false;
    }
    remember_book();
    mark_clean();
    return true;
}

void AppWnd::tell_save_failure()
{
    const DWORD attributes = GetFileAttributesW(core::path_from_data_root(book_.path).c_str());
    show_message(save_failure_text(book_.path, attributes), BoxStyle::warning);
}

bool AppWnd::new_book()
{
    save_book(SaveCode::always);
    const std::wstring path = choose_book_path(L"Book の新規作成", L"");
    if (path.empty() || is_gone())
        return false;
    const std::int32_t old_theme = look::palette().current_theme;
    look::load_theme(look::theme_standard); // the first page takes standard colours
    if (start_new_book(path)) {
        take_book_settings(path);
        remember_book();
        return true;
    }
    show_message(L"Book の作成に失敗", BoxStyle::warning);
    look::load_theme(old_theme);
    // The Book was replaced all the same: what the boxes hold belongs to none.
    commands_.merge(refresh::full);
    return false;
}

bool AppWnd::start_new_book(const std::wstring& path)
{
    book_.clear();
    forget_shown_page();
    book_.new_page(0, look::page_colors(look::palette()));
    book_.path = path;
    return book_.save_to(core::path_from_data_root(path));
}

bool AppWnd::open_book(std::wstring& path)
{
    if (path.empty())
        path = ask_for_book();
    if (path.empty() || is_gone())
        return false;
    save_book(SaveCode::always);
    return load_book(path);
}

// The path is the caller's own copy: it may have been the Book's, which loading clears, or an entry of the
// history, which forgetting erases.
// NOLINTNEXTLINE(performance-unnecessary-value-param): the copy is what is wanted
bool AppWnd::load_book(std::wstring path)
{
    core::set_current_directory(L"");
    if (!platform::exists(core::path_from_data_root(path))) {
        show_message(L"ファイル [" + path + L"] が見つかりませんでした．", BoxStyle::warning);
        forget_book(path);
        return false;
    }
    std::wstring error;
    const bool loaded = read_book(path, error);
    forget_shown_page();
    if (!loaded) {
        forget_book(path);
        throw MyException(error, fatal_code);
    }
    take_book_settings(path);
    remember_book();
    if (core::settings().auto_backup && !backup_book(nullptr))
        show_message(L"バックアップファイルの作成に失敗\r\n" + book_.path, BoxStyle::warning);
    start_shortcut_creation_async();
    return true;
}

bool AppWnd::read_book(const std::wstring& path, std::wstring& error)
{
    is_loading_ = true;
    const bool loaded = book_.load(path, error, [this](const std::wstring& question) {
        return show_message(question, BoxStyle::warning_question) == answer_yes;
    });
    is_loading_ = false;
    return loaded;
}

void AppWnd::open_last_book()
{
    const LastBookSteps steps{ [this](std::wstring path) { return open_book(path); },
        [this] { return new_book(); }, [this] { history_.remove_first(); } };
    if (!app::open_last_book(history_.entries(), steps))
        throw MyException(L"Book を開けませんでした", fatal_code);
}

void AppWnd::save_book_as()
{
    const std::wstring old_path = book_.path;
    const std::wstring path = choose_book_path(L"Book に名前を付けて保存する", old_path);
    if (path.empty() || book_.path != old_path)
        return;
    book_.path = path;
    if (save_book(SaveCode::always))
        remember_book();
    else
        book_.path = old_path;
}

void AppWnd::remember_book()
{
    if (!is_unusable_)
        history_.add(book_.path);
    history_window_.refill();
}

void AppWnd::forget_book(const std::wstring& path)
{
    history_.remove(path);
    history_window_.refill();
}

// A click in it would load another Book over what is being edited, or behind a box.
void AppWnd::enable_history()
{
    if (history_window_.hwnd())
        history_window_.enable(book::is_history_enabled(is_busy(), is_accepting_input()));
}

// A Book whose settings cannot be applied must not be the first one that the next start tries.
void AppWnd::take_book_settings(const std::wstring& path)
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

core::Outcome AppWnd::on_new_book(const CommandInput&)
{
    return new_book() ? core::Outcome::done : core::Outcome::failed;
}

core::Outcome AppWnd::on_open_book(const CommandInput&)
{
    std::wstring path;
    return open_book(path) ? core::Outcome::done : core::Outcome::failed;
}

core::Outcome AppWnd::on_history_entry(const CommandInput& input)
{
    const auto place = static_cast<std::size_t>(input.id - command::first_history_entry);
    std::wstring path = place < history_.entries().size() ? history_.entries()[place] : std::wstring{};
    return open_book(path) ? core::Outcome::done : core::Outcome::failed;
}

core::Outcome AppWnd::on_show_history(const CommandInput&)
{
    history_window_.show(true);
    return core::Outcome::done;
}

core::Outcome AppWnd::on_save(const CommandInput& input)
{
    return save_book(static_cast<SaveCode>(input.id)) ? core::Outcome::done : core::Outcome::failed;
}

core::Outcome AppWnd::on_save_as(const CommandInput&)
{
    save_book_as();
    return core::Outcome::done;
}

core::Outcome AppWnd::on_restore(const CommandInput&)
{
    return load_book(book_.path) ? core::Outcome::done : core::Outcome::failed;
}

core::Outcome AppWnd::on_backup(const CommandInput&)
{
    std::wstring result;
    backup_book(&result);
    if (!result.empty())
        show_message(result, BoxStyle::plain);
    return core::Outcome::done;
}

} // namespace app
