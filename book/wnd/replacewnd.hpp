// Replaces a text in the current page or in all pages.
#pragma once
#include "book/book.hpp"
#include "book/wnd/editing_window.hpp"
#include "look/wnd/input_form.hpp"
#include "look/wnd/my_check_box.hpp"
#include <array>
#include <string>

namespace book {

class ReplaceWnd : public EditingWindow {
public:
    // `book` and `host` must outlive the window.
    ReplaceWnd(ovlib::Wnd* parent, int control_id, const Book& book, EditHost& host);

    bool on_message(ovlib::WndMessage& message) override;
    std::wstring class_info(WNDCLASSEXW& info) override;

    // `selection`: the text that is selected in the main window. It becomes the search text if it is one line
    // and there is none yet.
    void open(const std::wstring& selection);
    // Replaces in the current page or in all pages and reports the number of replacements.
    void run(int command);

    bool has_changed() const override { return changed_; }

protected:
    bool make_controls() override;
    void clear_changed() override { changed_ = false; }
    const wchar_t* close_question() const override;
    void load_again() override;
    bool on_enter() override;
    void show_menu(POINT at) override;
    bool on_command(int id, int code) override;

private:
    bool on_paint() const;
    look::MyCheckBox* check_of(int id);
    void show_menu_below(HWND control);
    ReplaceRequest request() const;
    void clean_fields(ReplaceRequest& request);

    const Book& book_;
    look::InputForm search_;
    look::InputForm replacement_;
    look::MyCheckBox in_boxes_;
    look::MyCheckBox in_file_list_;
    look::MyCheckBox in_folder_;
    look::MyCheckBox ignore_case_;
    bool changed_ = false;
};

} // namespace book
