// The controls of the main window beside the three boxes, and what they show.
#pragma once
#include "app/control_rows.hpp"
#include "app/page_views.hpp"
#include "book/book.hpp"
#include "book/search.hpp"
#include "look/wnd/image_button.hpp"
#include "look/wnd/input_form.hpp"
#include "look/wnd/my_check_box.hpp"
#include "look/wnd/myslider.hpp"
#include "look/wnd/mystatusbar.hpp"
#include "look/wnd/tabwnd.hpp"
#include "ovlib/gui/combobox.hpp"
#include <memory>
#include <span>
#include <vector>

namespace app {

// They decide nothing: what they show is handed in, and what the user does comes to the parent as commands.
class MainControls {
public:
    // Both must outlive the controls.
    MainControls(ovlib::Wnd* parent, book::Book* book);

    bool create();
    void place(const MainLayout& layout);

    // Null for a command without such a control.
    look::ImageButton* button(int command) const;
    look::MyCheckBox* check(int command) const;
    look::TabWnd& tabs() { return tabs_; }
    look::MySlider& slider() { return slider_; }
    look::BookSearchBox& search_box() { return search_box_; }
    const look::BookSearchBox& search_box() const { return search_box_; }
    ovlib::ComboBox& file_combo() { return file_combo_; }
    look::MyStatusBar& status_bar() { return status_bar_; }

    void show_buttons(std::span<const ButtonState> states);
    // Whether there is something to save.
    void show_edited(bool edited);
    void show_folder(bool has_folder);
    void show_files(const FileCombo& files);

    // What the search box and the checks below it ask for.
    book::SearchQuery query() const;

private:
    bool create_buttons();
    bool create_checks();
    // A control that is disabled leaves the focus to its parent: without a focus, keys and wheel are lost.
    void enable(ovlib::Wnd& control, bool enabled);
    bool is_on(int command) const;
    // Whether the combo stands as it is to stand.
    bool shows(const FileCombo& files) const;

    // One for each row, in the order of the rows.
    std::vector<std::unique_ptr<look::ImageButton>> buttons_;
    std::vector<std::unique_ptr<look::MyCheckBox>> checks_;
    look::TabWnd tabs_;
    look::MySlider slider_;
    look::BookSearchBox search_box_;
    ovlib::ComboBox file_combo_;
    look::MyStatusBar status_bar_;
};

} // namespace app
