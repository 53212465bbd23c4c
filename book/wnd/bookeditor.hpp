// Selects, copies, moves and deletes pages of the open Book.
#pragma once
#include "book/page_editor.hpp"
#include "book/page_editor_view.hpp"
#include "book/wnd/editing_window.hpp"
#include "controls/wheel_steps.hpp"
#include "look/wnd/image_button.hpp"
#include "look/wnd/my_check_box.hpp"
#include "look/wnd/page_bar.hpp"
#include "look/wnd/themed.hpp"
#include "ovlib/gui/menu_pictures.hpp"
#include <optional>
#include <string>

namespace book {

// Its menu and its keys run the same commands under the same rules. The main window turns the pages and has
// `update` called after each change of page.
class BookEditor : public EditingWindow, public look::Themed {
public:
    using KeepRange = PageEditor::KeepRange;

    // All must outlive the window.
    BookEditor(ovlib::Wnd* parent, int control_id, Book& book, EditHost& host,
        const ovlib::MenuPictures& menu_pictures);

    bool on_message(ovlib::WndMessage& message) override;
    std::wstring class_info(WNDCLASSEXW& info) override;
    void apply_theme() override;

    // Opens on the current page; the selection is that of the last time.
    void open();
    // Shows the current page as an end of the range. Does nothing while the window is closed.
    void update(KeepRange keep);
    // Whether only selected pages match a search.
    bool traces_selection() const { return is_open() && trace_.is_checked(); }

    bool has_changed() const override { return editor_.has_changed(); }

protected:
    bool make_controls() override;
    void clear_changed() override { editor_.reset(); }
    const wchar_t* close_question() const override { return close_page_editor_question; }
    void load_again() override { host().restore_pages(editor_); }
    void on_opening() override;
    void show_menu(POINT at) override;
    bool on_command(int id, int code) override;
    bool on_shortcut(std::uint64_t key, bool is_repeated) override;

private:
    // Shows the number of a page in the colour of its selection.
    class FlatButton : public ovlib::CustomPushButton {
    public:
        using CustomPushButton::CustomPushButton;
        void set_page(const RangeButton& page);
        void draw_background() override;
        void draw_text() override;
        void draw_frame() override { }

    private:
        PageSelection selected_ = PageSelection::none;
    };

    bool on_paint();
    bool on_draw_item(ovlib::WndMessage& message) const;
    bool on_wheel(const ovlib::WndMessage& message);
    bool on_press(const ovlib::WndMessage& message);
    bool on_mouse_move(const ovlib::WndMessage& message);
    bool on_release();

    bool run_command(int id);
    bool run_menu_command(int id);
    bool keeps_space() const;
    void jump(RangeSide side);
    void paste(PastePlace place);
    void delete_selected();
    void finish(EditResult result);
    void toggle_tracing();
    // After the selection or the range changed, but not the page.
    void selection_changed();
    void show_state();
    void show_range_end(const RangeButton& button);
    void draw_strip();

    Book& book_;
    PageEditor editor_;
    const ovlib::MenuPictures& menu_pictures_;
    look::MyCheckBox page_check_;
    look::ImageButton first_, previous_, next_, last_;
    look::MyCheckBox range_check_;
    look::ImageButton reset_;
    FlatButton range_start_, range_end_;
    look::MyCheckBox trace_;
    std::optional<look::PageBar> strip_; // created with the window
    // The Book's revision when the selected pages were drawn; nullopt if they must be drawn again.
    std::optional<std::uint64_t> drawn_revision_;
    ovlib::WheelSteps wheel_;
};

} // namespace book
