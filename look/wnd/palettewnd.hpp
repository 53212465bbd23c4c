// The window for the colours and fonts of the boxes and for the theme.
#pragma once
#include "book/book.hpp"
#include "look/palette_view.hpp"
#include "look/wnd/image_button.hpp"
#include "look/wnd/my_check_box.hpp"
#include "look/wnd/tool_window.hpp"
#include "ovlib/gui/color_dialog.hpp"
#include "ovlib/gui/combobox.hpp"
#include "ovlib/gui/font_dialog.hpp"
#include "ovlib/gui/menu.hpp"
#include <cstddef>
#include <functional>
#include <string>

namespace look {

// Stores colours in the current page and fonts in the Book, and has its parent show them: repaint_box and
// set_box_font carry the number of the box as the notification code, and set_box_font passes the LOGFONTW as
// a core::PassedObject. A theme reaches the parent as its identifier.
class PaletteWnd : public ToolWindow {
public:
    // `book` must outlive the window. Nothing is chosen while `accepts_input` returns false: the main window
    // shows a box, or a Book is being loaded.
    PaletteWnd(
        ovlib::Wnd* parent, book::Book* book, std::function<bool()> accepts_input = [] { return true; });

    bool on_message(ovlib::WndMessage& message) override;
    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;

    // Also repaints the boxes: read-only ones show the page's own text colours while this window is open.
    void show(bool visible) override;
    // True opens the window at the cursor for this box; it does nothing if the window is open.
    void show_at_cursor(bool visible, std::size_t box);
    using ToolWindow::show;

    // For the end of the program. Writes the custom colours of the colour dialog to their file, also if the
    // window was never created.
    void store_custom_colors();

protected:
    bool make_controls() override;
    void on_opening() override;

private:
    bool on_command(int id, int code);
    bool on_close(ovlib::WndMessage& message);
    bool on_paint();
    platform::Rect combo_place() const;
    std::size_t chosen_box() const;
    void choose_color(BoxColor which);
    void choose_font();
    void show_theme_menu();
    void choose_theme(int theme);
    bool confirm_theme();
    bool has_parent() const { return parent() && parent()->is_window(); }
    void load_custom_colors();

    book::Book* book_;
    std::function<bool()> accepts_input_;
    ovlib::ComboBox box_combo_;
    MyCheckBox apply_check_;
    ImageButton font_button_;
    ImageButton text_button_;
    ImageButton back_button_;
    ImageButton theme_button_;
    ImageButton close_button_;
    ovlib::FontDialog font_dialog_;
    ovlib::ColorDialog color_dialog_;
    std::size_t first_box_ = 0; // selected at the next opening
    bool has_custom_colors_ = false; // they were read from their file
};

} // namespace look
