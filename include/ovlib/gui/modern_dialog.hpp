// The shell's file dialogs. COM must be initialised on the thread.
//
// Failures go to the process's log; nothing is shown to the user.
#pragma once
#include <string>
#include <vector>
#include <windows.h>

#include <shobjidl.h>
#include <wrl/client.h>

#include "controls/file_dialog_text.hpp"

namespace ovlib {

class Wnd;

namespace modern {

using ovlib::FileFilter;

// Without a dialog of the system, which is then in the log, every operation does nothing.
class FileDialog {
public:
    FileDialog(const FileDialog&) = delete;
    FileDialog& operator=(const FileDialog&) = delete;
    virtual ~FileDialog();
    virtual void set_title(const std::wstring& title);
    // FOS_ flags; 0 when they cannot be had.
    virtual DWORD options() const;
    virtual void set_options(DWORD flags);
    // Where the dialog starts. An empty path and one that is no place leave the choice to the system.
    virtual void set_folder(const std::wstring& path);
    // Once for a dialog: the system refuses a second list.
    virtual void set_filters(const std::vector<FileFilter>& filters);
    virtual void set_file_name(const std::wstring& name);
    // Without its dot.
    virtual void set_default_extension(const std::wstring& extension);
    // False on cancel and on failure.
    virtual bool show();

    bool has_dialog() const { return dialog_ != nullptr; }

protected:
    FileDialog(const Wnd* owner, Microsoft::WRL::ComPtr<IFileDialog> dialog);

    Microsoft::WRL::ComPtr<IFileDialog> dialog_;

private:
    const Wnd* owner_;
};

class FileOpenDialog : public FileDialog {
public:
    explicit FileOpenDialog(const Wnd* owner);
    // A dialog that was made elsewhere; null for none.
    FileOpenDialog(const Wnd* owner, Microsoft::WRL::ComPtr<IFileDialog> dialog);
    virtual void allow_multiple(bool multiple);
    // After a show that was not cancelled: the full paths chosen, in place of what `paths` held. What lies
    // outside the file system is left out. False, with `paths` as it was, on failure.
    virtual bool get_result(std::vector<std::wstring>& paths);
};

// Picks folders of the file system.
class FolderOpenDialog : public FileOpenDialog {
public:
    explicit FolderOpenDialog(const Wnd* owner);
};

} // namespace modern
} // namespace ovlib
