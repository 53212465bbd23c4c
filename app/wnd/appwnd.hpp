// The main window and the controller of the application. It owns the one open Book.
//
// Every action enters as a number through WM_COMMAND: on_message, on_command, the table in
// appwnd_commands.cpp, a handler. A handler changes the Book and names the views it touched; when the
// outermost command ends they are refreshed once. Boxes of this window let messages through: after each of
// them nothing learned before holds, and the page is to be looked up again.
#pragma once
#include "app/command_run.hpp"
#include "app/failures.hpp"
#include "app/input_gate.hpp"
#include "app/main_layout.hpp"
#include "app/save_rules.hpp"
#include "book/book.hpp"
#include "book/history_list.hpp"
#include "look/wnd/mybox.hpp"
#include "ovlib/gui/basewnd.hpp"
#include "ovlib/gui/classic_dialog.hpp"
#include "ovlib/gui/gdi_object.hpp"
#include <array>
#include <cstdint>
#include <string>

namespace app {

class AppWnd : public ovlib::BaseWnd {
public:
    AppWnd();

    bool on_message(ovlib::WndMessage& message) override;
    void dispatch(MSG& message) override;
    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;

    // The one way in which this window speaks to the user. Returns the button.
    int show_message(const std::wstring& text, BoxStyle style);

    // The page editor or the replace window owns the Book for now.
    bool is_busy() const;
    bool is_accepting_input() const { return input_.is_open(); }
    const book::Book& book() const { return book_; }

private:
    struct CommandInput {
        int id = 0;
        int code = 0;
        std::int64_t lparam = 0;
    };
    struct CommandTable;

    // Creation, closing and the messages of the frame.
    bool on_create(ovlib::WndMessage& message);
    bool create_view();
    bool create_boxes();
    void make_book_dialogs();
    bool on_close();
    void save_at_close();
    bool on_end_session(const ovlib::WndMessage& message);
    bool is_gone() const { return !is_window(); }

    // Colours.
    bool on_erase_background(ovlib::WndMessage& message);
    bool on_edit_color(ovlib::WndMessage& message);
    bool on_static_color(ovlib::WndMessage& message);
    bool color_page_box(ovlib::WndMessage& message, std::size_t box, bool is_writable);
    std::int32_t apply_theme(std::int32_t identifier);

    // Layout and the boundary between the boxes.
    void lay_out();
    void place_boxes();
    int set_divider(int y);
    bool on_hit_test(ovlib::WndMessage& message);
    bool on_press(Point point);
    bool on_mouse_move(Point point);
    bool on_release();
    BoxGap gap_under(Point point) const;

    // Commands.
    bool on_command(const ovlib::WndMessage& message);
    bool on_wheel(const ovlib::WndMessage& message);
    void report_failure(const std::exception_ptr& failure);
    void on_new_book(const CommandInput& input);
    void on_open_book(const CommandInput& input);
    void on_save(const CommandInput& input);
    void on_save_as(const CommandInput& input);
    void on_restore(const CommandInput& input);
    void on_backup(const CommandInput& input);
    void on_step(const CommandInput& input);
    void on_end_page(const CommandInput& input);
    void on_toggle_mark(const CommandInput& input);
    void on_toggle_tracking(const CommandInput& input);
    void on_change_order(const CommandInput& input);
    void on_close_program(const CommandInput& input);
    void on_request_refresh(const CommandInput& input);
    void on_go_to_tab(const CommandInput& input);
    void on_box_changed(const CommandInput& input);
    void on_renew_edited_mark(const CommandInput& input);
    void on_delete_page(const CommandInput& input);
    void on_set_accepting_input(const CommandInput& input);
    void on_add_page(const CommandInput& input);
    void on_ignore(const CommandInput& input);
    void on_theme(const CommandInput& input);
    void on_theme_to_pages(const CommandInput& input);
    void on_history_entry(const CommandInput& input);
    void change_order(int id);
    void swap_page(int direction);
    void end_book_command(bool loaded);

    // The Book as a whole.
    bool save_book(SaveCode code);
    bool write_book();
    void tell_save_failure();
    bool new_book();
    bool start_new_book(const std::wstring& path);
    bool open_book(std::wstring& path);
    bool load_book(std::wstring path);
    bool read_book(const std::wstring& path, std::wstring& error);
    void open_last_book();
    void save_book_as();
    bool backup_book(std::wstring* result);
    bool may_overwrite_backup(const std::wstring& name);
    std::wstring choose_book_path(const wchar_t* title, const std::wstring& start);
    std::wstring ask_for_book();
    void remember_book();
    void forget_book(const std::wstring& path);
    void take_book_settings(const std::wstring& path);

    // The current page.
    void apply_book_settings();
    void set_box_fonts();
    void refresh_views(RefreshMask& pending);
    void serve_view(View view);
    void refresh_box_state();
    void show_page(const book::Page* page);
    void restore_scroll(const book::Page& page);
    void store_scroll();
    void mark_clean();
    void update_title(const std::wstring& extra = {});
    book::Page* step_page(int direction);
    book::SearchQuery search_query() const;
    bool has_edits() const;
    void take_edits_back();
    bool leave_page();
    book::Page* shown_page();
    void forget_shown_page();

    std::array<look::MyBox*, book::box_count> boxes() { return { &q_box_, &a_box_, &d_box_ }; }
    std::array<const look::MyBox*, book::box_count> boxes() const { return { &q_box_, &a_box_, &d_box_ }; }

    book::Book book_;
    book::HistoryList history_;
    CommandRun commands_;
    InputGate input_;

    look::QBox q_box_;
    look::ABox a_box_;
    look::DBox d_box_;
    ovlib::classic::FileOpenDialog book_open_dialog_{ this };
    ovlib::classic::FileSaveDialog book_save_dialog_{ this };

    MainLayout layout_;
    BoxGap dragged_gap_ = BoxGap::none;
    std::array<ovlib::GDI::Brush, book::box_count> box_brushes_;
    ovlib::GDI::Brush edit_brush_;
    HACCEL accelerators_ = nullptr;

    // The page whose text stands in the boxes, as a stored index: what is typed belongs to it, whatever the
    // position says meanwhile. book::npos when that page is no more.
    std::size_t shown_index_ = book::npos;
    bool edited_mark_ = false; // the title shows that a box was edited
    bool is_unusable_ = false; // the Book's settings could not be applied: it stays out of the history
    bool is_loading_ = false; // the Book is neither the old nor the new one: commands must wait
    bool is_closing_ = false; // from false to true once: no background work starts any more
};

} // namespace app
