// Answers the file dialogs of the system.
#pragma once
#include "tests/support/gui_driver.hpp"
#include <initializer_list>
#include <string>

namespace gui {

// The field for the name, or the edit inside it. The older dialogs and the shell's number it differently.
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

// False when the dialog did not take the name; it is then cancelled.
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

} // namespace gui
