// The controls of the main window other than the three boxes, and their contents.
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

// They decide nothing: the owner passes in what they show, and the user's actions reach the parent as
// commands.
class MainControls {
public:
    // Both must outlive the controls.
    MainControls(ovlib::Wnd* parent, book::Book* book);

    bool create();
    void place(const MainLayout& layout);

    // Null if no such control has this command.
    look::ImageButton* button(int command) const;
    look::MyCheckBox* check(int command) const;
    look::TabWnd& tabs() { return tabs_; }
    look::MySlider& slider() { return slider_; }
    look::BookSearchBox& search_box() { return search_box_; }
    const look::BookSearchBox& search_box() const { return search_box_; }
    ovlib::ComboBox& file_combo() { return file_combo_; }
    look::MyStatusBar& status_bar() { return status_bar_; }

    void show_buttons(std::span<const ButtonState> states);
    // `edited`: whether there is something to save.
    void show_edited(bool edited);
    void show_folder(bool has_folder);
    void show_files(const FileCombo& files);

    // The query from the search box and the checks below it.
    book::SearchQuery query() const;

private:
    bool create_buttons();
    bool create_checks();
    // Before a control with the focus is disabled, the focus goes to its parent. Otherwise keys and wheel
    // messages would be lost.
    void enable(ovlib::Wnd& control, bool enabled);
    bool is_on(int command) const;
    // Whether the combo already has these rows and this selection. Filling it again would flicker.
    bool shows(const FileCombo& files) const;

    // One control per row, in the order of the rows.
    std::vector<std::unique_ptr<look::ImageButton>> buttons_;
    std::vector<std::unique_ptr<look::MyCheckBox>> checks_;
    look::TabWnd tabs_;
    look::MySlider slider_;
    look::BookSearchBox search_box_;
    ovlib::ComboBox file_combo_;
    look::MyStatusBar status_bar_;
};

} // namespace app
