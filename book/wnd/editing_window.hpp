// The base of the replace window and the page editor, which change the open Book in memory. The way back is
// the Book's file: the program saves the Book before one of them opens.
#pragma once
#include "book/edit_host.hpp"
#include "look/wnd/tool_window.hpp"
#include "platform/scoped_flag.hpp"

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
    // Loads the Book's file again and then clears what has_changed returns.
    virtual void load_again() = 0;
    virtual void show_menu(POINT at) = 0;
    // The commands of this window; restoring and closing are handled here.
    virtual bool on_command(int id, int code) = 0;

    // Opens over the middle of the parent at first, and later where the user left it.
    void on_opening() override;

    // Runs an operation of the host. Boxes that it shows dispatch messages; a wish to close is ignored
    // meanwhile, because the window does not know yet whether it has changed something.
    template <class Operation> auto run_in_host(Operation operation)
    {
        const platform::ScopedFlag running{ is_running_in_host_ };
        return operation(host_);
    }
    bool accepts_input() const { return host_.accepts_input() && !is_running_in_host_; }
    EditHost& host() const { return host_; }
    // Open and not destroyed, after a call that may have changed that.
    bool is_still_open() const { return is_open() && is_window(); }
    // True for yes.
    bool ask(const std::wstring& question);

private:
    bool on_close();
    bool on_any_command(int id, int code);
    void ask_to_restore();
    bool on_context_menu(const ovlib::WndMessage& message);
    void close(EditEnd end);

    EditHost& host_;
    bool was_placed_ = false;
    bool is_running_in_host_ = false;
};

} // namespace book
