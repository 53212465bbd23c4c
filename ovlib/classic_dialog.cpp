#include "ovlib/gui/classic_dialog.hpp"
#include "ovlib/gui/wnd.hpp"
#include <algorithm>

namespace ovlib::classic {

namespace {

const wchar_t* or_null(const std::wstring& text)
{
    return text.empty() ? nullptr : text.c_str();
}

} // namespace

FileDialog::FileDialog(const Wnd* owner)
    : owner_(owner)
{
}

FileDialog::~FileDialog() = default;

void FileDialog::set_filters(const std::vector<FileFilter>& filters)
{
    filters_ = filter_text(filters);
}

std::wstring FileDialog::result() const
{
    return results_.empty() ? std::wstring() : results_.front();
}

bool FileDialog::show_with(Ask ask)
{
    fill_record();
    results_.clear();
    if (!ask(&record_))
        return false;
    read_results();
    return true;
}

void FileDialog::fill_record()
{
    buffer_.fill(L'\0');
    // Two null characters must remain, because they end a list of names.
    std::copy_n(file_name_.c_str(), std::min(file_name_.size(), buffer_size - 2), buffer_.begin());
    record_.lStructSize = sizeof record_;
    record_.hwndOwner = owner_ != nullptr ? owner_->hwnd() : nullptr;
    record_.lpstrFile = buffer_.data();
    record_.nMaxFile = buffer_size;
    record_.lpstrFilter = or_null(filters_);
    record_.nFilterIndex = 1;
    record_.lpstrTitle = or_null(title_);
    record_.lpstrInitialDir = or_null(folder_);
    record_.lpstrDefExt = or_null(extension_);
}

void FileDialog::read_results()
{
    results_ = chosen_paths({ buffer_.data(), buffer_.size() }, (record_.Flags & OFN_ALLOWMULTISELECT) != 0);
}

FileOpenDialog::FileOpenDialog(const Wnd* owner)
    : FileDialog(owner)
{
}

bool FileOpenDialog::show()
{
    return show_with(&GetOpenFileNameW);
}

FileSaveDialog::FileSaveDialog(const Wnd* owner)
    : FileDialog(owner)
{
}

bool FileSaveDialog::show()
{
    return show_with(&GetSaveFileNameW);
}

} // namespace ovlib::classic
