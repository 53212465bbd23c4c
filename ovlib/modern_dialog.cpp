#include "ovlib/gui/modern_dialog.hpp"
#include "ovlib/gui/wnd.hpp"
#include "ovlib/handles.hpp"
#include "platform/process_log.hpp"
#include <utility>

namespace ovlib::modern {

namespace {

using Microsoft::WRL::ComPtr;
using WinApp::process_log;

ComPtr<IFileDialog> make_open_dialog()
{
    ComPtr<IFileDialog> dialog;
    const HRESULT result =
        CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&dialog));
    if (FAILED(result)) {
        process_log().append(L"FileOpenDialog::FileOpenDialog: CoCreateInstance に失敗\r\n");
        process_log().append_error(static_cast<std::uint32_t>(result));
    }
    return dialog;
}

// Logs `failure` if `result` is a failure.
bool succeeded(HRESULT result, const wchar_t* failure)
{
    if (FAILED(result))
        process_log().append(failure);
    return SUCCEEDED(result);
}

// Items without a path are skipped.
void append_path(IShellItemArray& items, DWORD index, std::vector<std::wstring>& paths)
{
    ComPtr<IShellItem> item;
    UniqueTaskMemory<wchar_t*> name;
    if (FAILED(items.GetItemAt(index, &item)) || FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, name.put())))
        return;
    paths.emplace_back(name.get());
}

} // namespace

FileDialog::FileDialog(const Wnd* owner, ComPtr<IFileDialog> dialog)
    : dialog_(std::move(dialog))
    , owner_(owner)
{
}

FileDialog::~FileDialog() = default;

void FileDialog::set_title(const std::wstring& title)
{
    if (dialog_)
        dialog_->SetTitle(title.c_str());
}

DWORD FileDialog::options() const
{
    DWORD flags = 0;
    if (dialog_)
        dialog_->GetOptions(&flags);
    return flags;
}

void FileDialog::set_options(DWORD flags)
{
    if (dialog_)
        dialog_->SetOptions(flags);
}

void FileDialog::set_folder(const std::wstring& path)
{
    ComPtr<IShellItem> item;
    // An empty path is the name of the desktop itself, so some systems would accept it.
    if (!path.empty() && dialog_
        && SUCCEEDED(SHCreateItemFromParsingName(path.c_str(), nullptr, IID_PPV_ARGS(&item))))
        dialog_->SetFolder(item.Get());
}

void FileDialog::set_filters(const std::vector<FileFilter>& filters)
{
    std::vector<COMDLG_FILTERSPEC> list;
    list.reserve(filters.size());
    for (const FileFilter& filter : filters)
        list.push_back({ filter.name.c_str(), filter.pattern.c_str() });
    if (dialog_ && !list.empty())
        dialog_->SetFileTypes(static_cast<UINT>(list.size()), list.data());
}

void FileDialog::set_file_name(const std::wstring& name)
{
    if (dialog_)
        dialog_->SetFileName(name.c_str());
}

void FileDialog::set_default_extension(const std::wstring& extension)
{
    if (dialog_)
        dialog_->SetDefaultExtension(extension.c_str());
}

bool FileDialog::show()
{
    if (!dialog_)
        return false;
    const HRESULT result = dialog_->Show(owner_ != nullptr ? owner_->hwnd() : nullptr);
    if (FAILED(result) && result != HRESULT_FROM_WIN32(ERROR_CANCELLED)) {
        process_log()
            .append(L"FileDialog::show: ")
            .append_error(static_cast<std::uint32_t>(result))
            .append(L"\r\n");
    }
    return SUCCEEDED(result);
}

FileOpenDialog::FileOpenDialog(const Wnd* owner)
    : FileDialog(owner, make_open_dialog())
{
}

FileOpenDialog::FileOpenDialog(const Wnd* owner, ComPtr<IFileDialog> dialog)
    : FileDialog(owner, std::move(dialog))
{
}

void FileOpenDialog::allow_multiple(bool multiple)
{
    const DWORD others = options() & ~DWORD{ FOS_ALLOWMULTISELECT };
    set_options(multiple ? others | FOS_ALLOWMULTISELECT : others);
}

bool FileOpenDialog::get_result(std::vector<std::wstring>& paths)
{
    ComPtr<IFileOpenDialog> dialog;
    ComPtr<IShellItemArray> items;
    DWORD count = 0;
    if (!succeeded(
            dialog_ ? dialog_.As(&dialog) : E_POINTER, L"FileOpenDialog::get_result: dialog_.As に失敗\r\n")
        || !succeeded(dialog->GetResults(&items), L"FileOpenDialog::get_result: GetResults に失敗\r\n")
        || !succeeded(items->GetCount(&count), L"FileOpenDialog::get_result: GetCount に失敗\r\n"))
        return false;
    std::vector<std::wstring> chosen;
    for (DWORD index = 0; index < count; ++index)
        append_path(*items.Get(), index, chosen);
    paths = std::move(chosen);
    return true;
}

FolderOpenDialog::FolderOpenDialog(const Wnd* owner)
    : FileOpenDialog(owner)
{
    set_options(options() | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM);
}

} // namespace ovlib::modern
