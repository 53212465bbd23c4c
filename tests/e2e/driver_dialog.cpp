#include "driver_dialog.hpp"
#include "driver_screen.hpp"
#include "driver_wait.hpp"
#include <array>

namespace e2e {

namespace {

constexpr int message_text_id = 65535;
constexpr int file_name_id = 1148;
constexpr int shell_file_name_id = 1152; // in the shell's dialogs, where it is not inside a combo box
constexpr auto dialog_class = L"#32770";

Window find_descendant(Window parent, int id, const wchar_t* class_name)
{
    struct Search {
        int id;
        const wchar_t* class_name;
        Window found;
    } search{ id, class_name, {} };
    EnumChildWindows(
        parent.handle(),
        [](HWND handle, LPARAM argument) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(argument);
            const Window window(handle);
            if ((wanted.id && (GetDlgCtrlID(handle) & 0xFFFF) != wanted.id)
                || lstrcmpiW(window.class_name().c_str(), wanted.class_name) != 0)
                return TRUE;
            wanted.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

Window message_text(Window box)
{
    return find_descendant(box, message_text_id, L"Static");
}

// The edit control is inside the combo box that has the id.
Window file_name_edit(Window dialog)
{
    for (const auto* combo : { L"ComboBoxEx32", L"ComboBox" }) {
        if (const Window found = find_descendant(dialog, file_name_id, combo); found.exists())
            return find_descendant(found, 0, L"Edit");
    }
    for (const int id : { file_name_id, shell_file_name_id }) {
        if (const Window found = find_descendant(dialog, id, L"Edit"); found.exists())
            return found;
    }
    return {};
}

} // namespace

bool MessageDialog::is_one(Window window)
{
    return window.class_name() == dialog_class && message_text(window).exists()
        && !file_name_edit(window).exists();
}

MessageDialog::MessageDialog(Window window)
    : window_(window)
    , caption_(window.text())
    , text_(message_text(window).text())
{
}

bool MessageDialog::has_button(int id) const
{
    const HWND button = GetDlgItem(window_.handle(), id);
    return button && IsWindowVisible(button);
}

Icon MessageDialog::icon() const
{
    return icon_on_screen(window_);
}

void MessageDialog::answer(int button) const
{
    if (!has_button(button))
        throw DriverError("the box has no button " + std::to_string(button));
    window_.post_command(button);
    wait_until_gone();
}

void MessageDialog::wait_until_gone() const
{
    require("a message box closes", [&] { return !window_.exists(); });
}

bool FileDialog::is_one(Window window)
{
    return window.class_name() == dialog_class && file_name_edit(window).exists();
}

FileDialog::FileDialog(Window window)
    : window_(window)
    , edit_(file_name_edit(window))
{
}

std::wstring FileDialog::file_name() const
{
    return edit_.text();
}

void FileDialog::choose(const std::wstring& path) const
{
    edit_.set_text(path);
    window_.post_command(IDOK);
    require("a file dialog takes " + std::to_string(path.size()) + " characters",
        [&] { return !window_.exists() || !window_.is_enabled(); });
}

void FileDialog::cancel() const
{
    window_.post_command(IDCANCEL);
    require("a file dialog closes", [&] { return !window_.exists(); });
}

} // namespace e2e
