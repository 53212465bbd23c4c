// Answers the file dialogs of the system.
#pragma once
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_driver.hpp"
#include <algorithm>
#include <array>
#include <commdlg.h>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

// The import addresses, which the linker names after the functions.
extern "C" void* __imp_GetOpenFileNameW; // NOLINT(bugprone-reserved-identifier)
extern "C" void* __imp_GetSaveFileNameW; // NOLINT(bugprone-reserved-identifier)

namespace gui {

// The file name field, or the edit control inside it. Its id differs between the older dialogs and the
// shell's.
inline HWND name_field(HWND dialog)
{
    HWND field = nullptr;
    for (const int id : { 1148, 1152 }) {
        if (field == nullptr)
            field = GetDlgItem(dialog, id);
    }
    while (HWND inner = field != nullptr ? GetWindow(field, GW_CHILD) : nullptr)
        field = inner;
    return field;
}

inline void cancel_dialog(HWND dialog)
{
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
}

// Enters a name and confirms. If the dialog does not accept it, cancels the dialog and returns false.
inline bool answer_with_name(HWND dialog, const std::wstring& name)
{
    if (!poll_until([&] { return name_field(dialog) != nullptr; }))
        return false;
    SendMessageW(name_field(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    const bool taken = poll_until([&] { return !IsWindowVisible(dialog); });
    if (!taken)
        cancel_dialog(dialog);
    return taken;
}

inline std::wstring current_directory()
{
    std::array<wchar_t, MAX_PATH> path{};
    GetCurrentDirectoryW(MAX_PATH, path.data());
    return path.data();
}

// Replaces the file dialogs and records how the program calls them. Returns a path, or as if cancelled.
class FileDialogSpy {
public:
    struct Shown {
        std::wstring title;
        std::wstring folder;
        std::wstring name;
        std::wstring extension;
        DWORD flags = 0;
        std::wstring directory; // the current one
    };

    explicit FileDialogSpy(std::wstring answer = L"")
    {
        shown.clear();
        chosen = std::move(answer);
        meanwhile = [] {};
    }

    static inline std::vector<Shown> shown;
    static inline std::wstring chosen;
    static inline std::function<void()> meanwhile;

private:
    static std::wstring text_or_none(const wchar_t* text) { return text ? text : L""; }
    static BOOL WINAPI note(OPENFILENAMEW* record)
    {
        shown.push_back({ text_or_none(record->lpstrTitle), text_or_none(record->lpstrInitialDir),
            record->lpstrFile, text_or_none(record->lpstrDefExt), record->Flags, current_directory() });
        meanwhile();
        std::copy_n(chosen.c_str(), chosen.size() + 1, record->lpstrFile);
        return chosen.empty() ? FALSE : TRUE;
    }

    ReplacedImport<decltype(GetOpenFileNameW)> open_{ &__imp_GetOpenFileNameW, &note };
    ReplacedImport<decltype(GetSaveFileNameW)> save_{ &__imp_GetSaveFileNameW, &note };
};

} // namespace gui
