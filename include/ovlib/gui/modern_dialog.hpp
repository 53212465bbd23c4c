// The shell's file dialogs. COM must be initialised on the thread.
//
// Failures are logged in the process's log; the user sees nothing.
#pragma once
#include "controls/file_dialog_text.hpp"
#include <windows.h>
#include <shobjidl.h>
#include <string>
#include <vector>
#include <wrl/client.h>

namespace ovlib {

class Wnd;

namespace modern {

using ovlib::FileFilter;

// If the system's dialog cannot be created, that is logged, and every operation does nothing.
class FileDialog {
public:
    FileDialog(const FileDialog&) = delete;
    FileDialog& operator=(const FileDialog&) = delete;
    virtual ~FileDialog();
    virtual void set_title(const std::wstring& title);
    // FOS_ flags; 0 if they cannot be queried.
    virtual DWORD options() const;
    virtual void set_options(DWORD flags);
    // The initial folder. If the path is empty or is not a folder, the system chooses.
    virtual void set_folder(const std::wstring& path);
    // To be called once per dialog: the system refuses a second list.
    virtual void set_filters(const std::vector<FileFilter>& filters);
    virtual void set_file_name(const std::wstring& name);
    // Without the dot.
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
    // Uses an existing dialog; null for none.
    FileOpenDialog(const Wnd* owner, Microsoft::WRL::ComPtr<IFileDialog> dialog);
    virtual void allow_multiple(bool multiple);
    // To be called after a successful show. Replaces `paths` by the full paths that were chosen, without
    // items outside the file system. False, with `paths` unchanged, on failure.
    virtual bool get_result(std::vector<std::wstring>& paths);
};

// Chooses folders of the file system.
class FolderOpenDialog : public FileOpenDialog {
public:
    explicit FolderOpenDialog(const Wnd* owner);
};

} // namespace modern
} // namespace ovlib
