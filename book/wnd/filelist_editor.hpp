// A page's file list as a text that the user edits.
#pragma once
#include "book/page.hpp"
#include "look/wnd/image_button.hpp"
#include "look/wnd/tool_window.hpp"
#include "ovlib/gui/editbox.hpp"
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace book {

// Edits only a text. The program turns it into the list: when the user applies it, and when the page is
// saved. Each change of the modified state is reported to the parent by command 1052, and typing by 1051.
// Apart from WM_CLOSE, which drops what was typed, every way of closing it asks first.
class FileListEditor : public look::ToolWindow {
public:
    // What it needs of the program.
    struct Program {
        // The page whose list is edited; null without one.
        std::function<const Page*()> page;
        // Makes a list of the text and calls clear_modified.
        std::function<void()> apply;
        // Asks whether to apply the text. False if the window must stay open.
        std::function<bool()> may_close;
    };

    FileListEditor(ovlib::Wnd* parent, int control_id, Program program);

    bool on_message(ovlib::WndMessage& message) override;
    std::wstring class_info(WNDCLASSEXW& info) override;
    using ToolWindow::show;
    void show(bool visible) override;

    // Shows the list of the page. If its text is there already, caret and scroll position stay, unless
    // another entry is the selected one now.
    void load_page();
    bool is_modified() const { return hwnd() && box_.is_modified(); }
    std::wstring typed_text() const { return box_.text(); }
    void clear_modified();
    // Also for a window that is closed or was never opened.
    void set_read_only(bool read_only);
    // Nothing can be typed while the main window shows a box: its command may be about the list, and would
    // not know of lines that were typed meanwhile.
    void set_held(bool held);

    // Asks a question about the text, with yes, no and cancel, and returns the chosen button. Afterwards the
    // window may be destroyed.
    int ask(const std::wstring& question);

protected:
    bool make_controls() override;
    void on_opening() override;
    void on_cancel() override;

private:
    void show_read_only();
    class MyEditBox : public ovlib::EditBox {
    public:
        using EditBox::EditBox;
        bool create(const std::wstring& title) override;
        void create_params(CREATESTRUCTW& params) override;
        bool on_message(ovlib::WndMessage& message) override;

    private:
        bool apply();
    };

    bool on_command(int id, int code);
    bool on_close(ovlib::WndMessage& message);
    void note_typing();
    bool shows(const std::wstring& text) const;
    void show_text(const std::wstring& text);

    Program program_;
    MyEditBox box_;
    look::ImageButton apply_button_;
    look::ImageButton close_button_;
    std::optional<std::wstring> loaded_; // the text in the box; nullopt after typing
    std::uint64_t loaded_file_ = 0; // the selected entry when it was loaded
    bool is_read_only_ = false;
    bool is_held_ = false;
    bool is_asking_ = false;
};

} // namespace book
