// The system's older file dialogs. They may change the current directory of the process.
#pragma once
#include "controls/file_dialog_text.hpp"
#include <windows.h>
#include <array>
#include <commdlg.h>
#include <string>
#include <vector>

namespace ovlib {

class Wnd;

namespace classic {

using ovlib::FileFilter;

// Set it up, show it, read the results. Texts and options stay for the next call of show.
class FileDialog {
public:
    FileDialog(const FileDialog&) = delete;
    FileDialog& operator=(const FileDialog&) = delete;
    virtual ~FileDialog();
    // False on cancel and on failure; the results are empty then.
    virtual bool show() = 0;

    void set_title(const std::wstring& title) { title_ = title; }
    void set_filters(const std::vector<FileFilter>& filters);
    // The initial folder; empty lets the system choose.
    void set_folder(const std::wstring& folder) { folder_ = folder; }
    // The initial text of the name field; truncated if it does not fit.
    void set_file_name(const std::wstring& name) { file_name_ = name; }
    // Without the dot. The system adds it to a name without extension.
    void set_default_extension(const std::wstring& extension) { extension_ = extension; }
    // OFN_ flags. OFN_ALLOWMULTISELECT requires OFN_EXPLORER: the oldest dialog separates names in another
    // way.
    DWORD options() const { return record_.Flags; }
    void set_options(DWORD flags) { record_.Flags = flags; }

    // Full paths.
    const std::vector<std::wstring>& results() const { return results_; }
    // The first of them; empty if there is none.
    std::wstring result() const;

protected:
    explicit FileDialog(const Wnd* owner);
    using Ask = BOOL(WINAPI*)(OPENFILENAMEW*);
    bool show_with(Ask ask);

private:
    void fill_record();
    void read_results();

    static constexpr std::size_t buffer_size = 2080;

    const Wnd* owner_;
    OPENFILENAMEW record_{};
    std::array<wchar_t, buffer_size> buffer_{};
    std::wstring title_;
    std::wstring filters_;
    std::wstring folder_;
    std::wstring file_name_;
    std::wstring extension_;
    std::vector<std::wstring> results_;
};

class FileOpenDialog : public FileDialog {
public:
    explicit FileOpenDialog(const Wnd* owner);
    bool show() override;
};

class FileSaveDialog : public FileDialog {
public:
    explicit FileSaveDialog(const Wnd* owner);
    bool show() override;
};

} // namespace classic
} // namespace ovlib
