#include "app/wnd/main_talk.hpp"
#include "app/file_texts.hpp"
#include "app/wnd/shell_folders.hpp"
#include "book/history_view.hpp"
#include "core/data_root.hpp"
#include "core/titles.hpp"
#include "platform/path_text.hpp"
#include <algorithm>
#include <utility>

namespace app {

namespace {

std::wstring extension_without_point(const std::wstring& path)
{
    const std::wstring_view extension = platform::path_extension(path);
    return std::wstring{ extension.substr(extension.empty() ? 0 : 1) };
}

void set_up(ovlib::classic::FileDialog& dialog, DWORD options)
{
    dialog.set_options(OFN_EXPLORER | OFN_HIDEREADONLY | options);
    dialog.set_filters({ { L"Book Files", L"*.bok" } });
    dialog.set_default_extension(L"bok");
}

} // namespace

MainTalk::MainTalk(ovlib::BaseWnd& parent, const std::wstring& book_path, const book::HistoryList& history,
    book::FileListEditor& file_list, Hooks hooks)
    : parent_(parent)
    , book_path_(book_path)
    , file_list_(file_list)
    , hooks_(std::move(hooks))
    , history_window_(&parent, 0, &history)
    , banner_(&parent)
    , book_open_dialog_(&parent)
    , book_save_dialog_(&parent)
{
    set_up(book_open_dialog_, 0);
    set_up(book_save_dialog_, OFN_OVERWRITEPROMPT);
}

bool MainTalk::create()
{
    if (!history_window_.create(L""))
        return false;
    banner_.create(L""); // a failure is ignored: a search without result is only silent then
    return true;
}

int MainTalk::show_message(const std::wstring& text, BoxStyle style)
{
    if (is_gone())
        return 0;
    const InputGate::Hold hold{ input_ };
    ovlib::Wnd& owner = box_owner_ && box_owner_->is_window() ? *box_owner_ : parent_;
    return owner.message_box(text, core::message_caption(book_path_), static_cast<std::uint32_t>(style));
}

bool MainTalk::ask(const std::wstring& text, BoxStyle style)
{
    return show_message(text, style) == answer_yes;
}

Answer MainTalk::ask_or_cancel(const std::wstring& text)
{
    switch (file_list_.ask(text)) {
    case IDYES:
        return Answer::yes;
    case IDNO:
        return Answer::no;
    default:
        return Answer::cancel;
    }
}

bool MainTalk::is_busy() const
{
    return std::ranges::any_of(busy_windows_, [](const BusyWindow* window) { return window->is_open(); });
}

void MainTalk::tell_system_error(std::uint32_t code)
{
    const InputGate::Hold hold{ input_ };
    parent_.error_box(code, core::program_name);
}

void MainTalk::enable_history()
{
    if (history_window_.hwnd())
        history_window_.enable(book::is_history_enabled(is_busy(), input_.is_open()));
}

// Lines that were typed in the list editor during a box would be unknown to the command that shows it.
void MainTalk::show_gate()
{
    enable_history();
    file_list_.set_held(!input_.is_open());
}

std::wstring MainTalk::choose_book_to_open()
{
    const InputGate::Hold hold{ input_ };
    core::set_current_directory(L"");
    book_open_dialog_.set_title(L"Book を開く");
    return book_open_dialog_.show() ? book_open_dialog_.result() : std::wstring{};
}

std::wstring MainTalk::choose_book_path(const wchar_t* title, const std::wstring& start)
{
    core::set_current_directory(L"");
    if (start.empty()) {
        book_save_dialog_.set_folder(desktop_folder());
        book_save_dialog_.set_file_name(L"");
    } else {
        const std::wstring full = core::full_path(start);
        book_save_dialog_.set_folder(platform::parent_path(full));
        book_save_dialog_.set_file_name(std::wstring{ platform::file_name(full) });
    }
    book_save_dialog_.set_title(title);
    const InputGate::Hold hold{ input_ };
    return book_save_dialog_.show() ? book_save_dialog_.result() : std::wstring{};
}

// The dialog may change the current directory, against which relative entries are resolved.
std::vector<std::wstring> MainTalk::choose_paths(ovlib::modern::FileOpenDialog& dialog)
{
    const InputGate::Hold hold{ input_ };
    std::vector<std::wstring> paths;
    if (dialog.show())
        dialog.get_result(paths);
    core::set_current_directory(L"");
    return paths;
}

// A dialog of its own for each question: the name filter and the default extension of the Book's dialog must
// not change.
std::wstring MainTalk::choose_path(const wchar_t* title, const std::wstring& name)
{
    ovlib::classic::FileSaveDialog dialog{ &parent_ };
    dialog.set_options(OFN_EXPLORER | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT);
    dialog.set_title(title);
    dialog.set_file_name(name);
    dialog.set_default_extension(extension_without_point(name));
    const InputGate::Hold hold{ input_ };
    std::wstring chosen = dialog.show() ? dialog.result() : std::wstring{};
    core::set_current_directory(L"");
    return chosen;
}

std::wstring MainTalk::choose_copy(const std::wstring& source)
{
    return choose_path(duplicate_title, std::wstring{ platform::file_name(source) });
}

std::wstring MainTalk::choose_attachment_path(const std::wstring& name)
{
    return choose_path(attachment_title, name);
}

// While a page editor is open the main window refuses WM_CLOSE, and the program would run on with a damaged
// Book. So the editors are closed first.
void MainTalk::close_program()
{
    for (BusyWindow* window : busy_windows_)
        window->close();
    parent_.send(WM_CLOSE, 0, 0);
}

} // namespace app
