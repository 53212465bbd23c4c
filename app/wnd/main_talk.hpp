// The program's dialogue with its user: boxes, file dialogs, the banner and the history window.
#pragma once
#include "app/book_session.hpp"
#include "app/input_gate.hpp"
#include "book/wnd/filelist_editor.hpp"
#include "book/wnd/historywnd.hpp"
#include "look/wnd/warningwnd.hpp"
#include "ovlib/gui/basewnd.hpp"
#include "ovlib/gui/classic_dialog.hpp"
#include "ovlib/gui/modern_dialog.hpp"
#include <functional>
#include <string>
#include <vector>

namespace app {

// A window that edits the Book's pages itself. While it is open the main window edits none. Open is not the
// same as visible: the system hides the windows of a minimised owner.
class BusyWindow {
public:
    virtual ~BusyWindow() = default;
    virtual bool is_open() const = 0;
    // Closes without a question.
    virtual void close() = 0;
};

class MainTalk : public Talk {
public:
    struct Hooks {
        std::function<void()> book_loaded; // after each complete load
        std::function<void(const std::vector<std::wstring>&)> file_list_committed;
    };

    // All must outlive the talk. The Book's path is part of the captions. `file_list` shows the questions
    // about its text.
    MainTalk(ovlib::BaseWnd& parent, const std::wstring& book_path, const book::HistoryList& history,
        book::FileListEditor& file_list, Hooks hooks);

    // False if the history window cannot be created.
    bool create();
    book::HistoryWnd& history_window() { return history_window_; }
    InputGate& input() { return input_; }
    bool is_accepting_input() const { return input_.is_open(); }
    void add_busy_window(BusyWindow& window) { busy_windows_.push_back(&window); }
    // Message boxes belong to this window from here on: a modal window, which must not accept input under
    // them. Null for the main window.
    void set_box_owner(ovlib::Wnd* owner) { box_owner_ = owner; }
    // Disables the history window while pages are edited or a box is open. A click in it would load another
    // Book over the edited one, or under the box.
    void enable_history();

    // Returns the number of the chosen button; 0 without a window.
    int show_message(const std::wstring& text, BoxStyle style);
    // Full paths; empty if the user cancelled.
    std::vector<std::wstring> choose_paths(ovlib::modern::FileOpenDialog& dialog);
    // The path for a copy of `source`; empty if the user cancelled.
    std::wstring choose_copy(const std::wstring& source);
    // The path for an attachment of this name, with the same result.
    std::wstring choose_attachment_path(const std::wstring& name);

    bool is_gone() const override { return !parent_.is_window(); }
    bool is_busy() const override;
    void tell(const std::wstring& text, BoxStyle style) override { show_message(text, style); }
    bool ask(const std::wstring& text, BoxStyle style) override;
    Answer ask_or_cancel(const std::wstring& text) override;
    void tell_system_error(std::uint32_t code) override;
    void show_banner(const std::wstring& text) override { banner_.show(text); }
    std::wstring choose_book_to_open() override;
    std::wstring choose_book_path(const wchar_t* title, const std::wstring& start) override;
    void history_changed() override { history_window_.refill(); }
    void book_loaded() override { hooks_.book_loaded(); }
    void file_list_committed(const std::vector<std::wstring>& files) override
    {
        hooks_.file_list_committed(files);
    }
    void close_program() override;

private:
    // After the gate opened or closed.
    void show_gate();
    std::wstring choose_path(const wchar_t* title, const std::wstring& name);

    ovlib::BaseWnd& parent_;
    ovlib::Wnd* box_owner_ = nullptr;
    const std::wstring& book_path_;
    book::FileListEditor& file_list_;
    Hooks hooks_;
    std::vector<BusyWindow*> busy_windows_;
    InputGate input_{ [this] { show_gate(); } };
    book::HistoryWnd history_window_;
    look::WarningWnd banner_;
    ovlib::classic::FileOpenDialog book_open_dialog_;
    ovlib::classic::FileSaveDialog book_save_dialog_;
};

// Message boxes belong to a modal window for the length of a scope.
class BoxOwner {
public:
    BoxOwner(MainTalk& talk, ovlib::Wnd& owner)
        : talk_(talk)
    {
        talk_.set_box_owner(&owner);
    }
    BoxOwner(const BoxOwner&) = delete;
    BoxOwner& operator=(const BoxOwner&) = delete;
    ~BoxOwner() { talk_.set_box_owner(nullptr); }

private:
    MainTalk& talk_;
};

} // namespace app
