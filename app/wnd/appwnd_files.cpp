// The file dialogs of the Book commands, and the backup.
#include "app/wnd/appwnd.hpp"
#include "app/wnd/shell_folders.hpp"
#include "core/data_root.hpp"
#include "core/folders.hpp"
#include "core/settings.hpp"
#include "core/titles.hpp"
#include "platform/file.hpp"
#include "platform/path_text.hpp"

namespace app {

void AppWnd::make_book_dialogs()
{
    book_open_dialog_.set_options(OFN_EXPLORER | OFN_HIDEREADONLY);
    book_save_dialog_.set_options(OFN_EXPLORER | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT);
    const auto set_up = [](ovlib::classic::FileDialog& dialog) {
        dialog.set_filters({ { L"Book Files", L"*.bok" } });
        dialog.set_default_extension(L"bok");
    };
    set_up(book_open_dialog_);
    set_up(book_save_dialog_);
}

std::wstring AppWnd::ask_for_book()
{
    const InputGate::Hold hold{ input_ };
    core::set_current_directory(L"");
    book_open_dialog_.set_title(L"Book を開く");
    return book_open_dialog_.show() ? book_open_dialog_.result() : std::wstring{};
}

std::wstring AppWnd::choose_book_path(const wchar_t* title, const std::wstring& start)
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

// A null `result`: no question, and nothing told but what the system says of a copy that failed.
bool AppWnd::backup_book(std::wstring* result)
{
    const auto tell = [result](const std::wstring& text) {
        if (result)
            *result = text;
    };
    tell(L"");
    const std::wstring& folder = core::folders().book_backup;
    if (!platform::is_folder(folder) && !platform::create_folder(folder)) {
        tell(L"Error: バックアップフォルダの作成に失敗しました．\r\n" + folder);
        return false;
    }
    core::set_current_directory(L"");
    const std::wstring source = book_.path;
    if (source.empty() || book_.pages.empty()) {
        tell(L"Error: この Book は無効です．\r\n" + source);
        return false;
    }
    const std::wstring name{ platform::file_name(source) };
    const std::wstring target = folder + L"\\" + name;
    if (result && platform::exists(target) && !may_overwrite_backup(name))
        return false;
    if (!CopyFileW(core::path_from_data_root(source).c_str(), target.c_str(), FALSE)) {
        tell_system_error(GetLastError());
        return false;
    }
    tell(L"バックアップしました:\r\n" + target);
    return true;
}

void AppWnd::tell_system_error(std::uint32_t code)
{
    const InputGate::Hold hold{ input_ };
    error_box(code, core::program_name);
}

bool AppWnd::may_overwrite_backup(const std::wstring& name)
{
    const std::wstring question = name + L" はすでにバックアップフォルダに存在します．上書きしますか？";
    return show_message(question, BoxStyle::question) == answer_yes;
}

} // namespace app
