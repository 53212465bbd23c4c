// The base of the replace window and the page editor, which change the open Book in memory. The way back is
// the Book's file: the program saves the Book before one of them opens.
#pragma once
#include "book/edit_host.hpp"
#include "look/wnd/tool_window.hpp"

namespace book {

// Handles closing with its question, and the question before a restore. Everything that shows a box or calls
// the host may close or destroy this window.
class EditingWindow : public look::ToolWindow {
public:
    bool on_message(ovlib::WndMessage& message) override;

    // The Book was changed and its file is older.
    virtual bool has_changed() const = 0;

protected:
    EditingWindow(ovlib::Wnd* parent, int control_id, platform::Size client, EditHost& host);

    virtual void clear_changed() = 0;
    virtual const wchar_t* close_question() const = 0;
    // Loads the Book's file again; see EditHost.
    virtual bool load_again() = 0;
    virtual void show_menu(POINT at) = 0;
    virtual bool on_command(int id, int code) = 0;

    // Opens over the middle of the parent at first, and later where the user left it.
    void on_opening() override;

    EditHost& host() const { return host_; }
    // Open and not destroyed, after a call that may have changed that.
    bool is_still_open() const { return is_open() && is_window(); }
    // True for yes.
    bool ask(const std::wstring& question);
    void ask_to_restore();

private:
    bool on_close();
    void close(EditEnd end);

    EditHost& host_;
    bool was_placed_ = false;
};

} // namespace book
