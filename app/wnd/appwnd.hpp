// The main window and the controller of the application. It owns the one open Book.
//
// Every action enters as a number through WM_COMMAND: on_message, on_command, the rule of the command, its
// handler in the table of appwnd_commands.cpp. A handler changes the Book and says whether it did its work;
// the rule names the views, and when the outermost command ends they are refreshed once. Boxes of this window
// let messages through: after each of them nothing learned before holds, and the page is to be looked up
// again.
#pragma once
#include "app/command_run.hpp"
#include "app/failures.hpp"
#include "app/input_gate.hpp"
#include "app/main_layout.hpp"
#include "app/save_rules.hpp"
#include "app/wnd/main_controls.hpp"
#include "book/book.hpp"
#include "book/history_list.hpp"
#include "book/wnd/historywnd.hpp"
#include "controls/menu_rows.hpp"
#include "controls/wheel_steps.hpp"
#include "core/command_rules.hpp"
#include "look/tab_strip.hpp"
#include "look/wnd/mybox.hpp"
#include "look/wnd/warningwnd.hpp"
#include "media/path_answers.hpp"
#include "media/wnd/background_thread.hpp"
#include "ovlib/gui/basewnd.hpp"
#include "ovlib/gui/classic_dialog.hpp"
#include "ovlib/gui/gdi_object.hpp"
#include "ovlib/gui/menu_pictures.hpp"
#include "ovlib/gui/modern_dialog.hpp"
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace app {

class FilePane;

class AppWnd : public ovlib::BaseWnd {
public:
    AppWnd();
    ~AppWnd() override;

    bool on_message(ovlib::WndMessage& message) override;
    void dispatch(MSG& message) override;
    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;

    // The one way in which this window speaks to the user. Returns the button.
    int show_message(const std::wstring& text, BoxStyle style);

    // A window that owns the Book for now is open: the page editor or the replace window.
    bool is_busy() const;
    bool is_accepting_input() const { return input_.is_open(); }
    const book::Book& book() const { return book_; }

    // Ends the work beside this window's thread. False when it hangs in a call to the system and was given up
    // after ten seconds, or at once where that has happened before: nothing it works with may be destroyed
    // then, and the process must end without it.
    bool end_background_work();

    // `window`, which lives as long as this one, owns the Book while it is visible.
    void add_editing_window(ovlib::Wnd& window) { editing_windows_.push_back(&window); }

private:
    struct CommandInput {
        int id = 0;
        int code = 0;
        std::int64_t lparam = 0;
    };
    struct CommandTable;
    class MovedFileTalk;

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
    bool on_list_color(ovlib::WndMessage& message);
    bool color_page_box(ovlib::WndMessage& message, std::size_t box, bool is_writable);
    std::int32_t apply_theme(std::int32_t identifier);

    // Painting.
    bool on_paint();
    // What stands between the controls, in client coordinates.
    void draw(const ovlib::DC& dc) const;
    bool on_draw_item(ovlib::WndMessage& message);

    // Layout and the boundary between the boxes.
    void lay_out();
    void place_boxes();
    int set_divider(int y);
    bool on_set_cursor(ovlib::WndMessage& message);
    void show_cursor(Point point) const;
    bool on_hit_test(ovlib::WndMessage& message);
    bool on_background_grip(const ovlib::WndMessage& message);
    bool on_press(Point point);
    bool on_mouse_move(Point point);
    bool on_release();
    BoxGap gap_under(Point point) const;

    // Commands.
    bool on_command(const ovlib::WndMessage& message);
    void run_command(const CommandInput& input);
    core::Needs met_needs() const;
    bool on_wheel(const ovlib::WndMessage& message);
    void report_failure(const std::exception_ptr& failure);
    core::Outcome on_new_book(const CommandInput& input);
    core::Outcome on_open_book(const CommandInput& input);
    core::Outcome on_save(const CommandInput& input);
    core::Outcome on_save_as(const CommandInput& input);
    core::Outcome on_restore(const CommandInput& input);
    core::Outcome on_backup(const CommandInput& input);
    core::Outcome on_step(const CommandInput& input);
    core::Outcome on_end_page(const CommandInput& input);
    core::Outcome on_toggle_mark(const CommandInput& input);
    core::Outcome on_toggle_tracking(const CommandInput& input);
    core::Outcome on_change_order(const CommandInput& input);
    core::Outcome on_close_program(const CommandInput& input);
    core::Outcome on_request_refresh(const CommandInput& input);
    core::Outcome on_go_to_tab(const CommandInput& input);
    core::Outcome on_box_changed(const CommandInput& input);
    core::Outcome on_renew_edited_mark(const CommandInput& input);
    core::Outcome on_delete_page(const CommandInput& input);
    core::Outcome on_set_accepting_input(const CommandInput& input);
    core::Outcome on_add_page(const CommandInput& input);
    core::Outcome on_ignore(const CommandInput& input);
    core::Outcome on_theme(const CommandInput& input);
    core::Outcome on_theme_to_pages(const CommandInput& input);
    core::Outcome on_history_entry(const CommandInput& input);
    core::Outcome on_show_history(const CommandInput& input);
    core::Outcome on_about(const CommandInput& input);
    core::Outcome on_interpolation(const CommandInput& input);
    core::Outcome on_repaint_box(const CommandInput& input);
    core::Outcome on_toggle_tab(const CommandInput& input);
    core::Outcome on_remove_tab(const CommandInput& input);
    core::Outcome on_clear_folder(const CommandInput& input);
    core::Outcome on_remove_file(const CommandInput& input);
    core::Outcome on_remove_all_files(const CommandInput& input);
    core::Outcome on_select_file(const CommandInput& input);
    core::Outcome on_move_file(const CommandInput& input);
    core::Outcome on_sort_files(const CommandInput& input);
    void change_order(int id);
    void swap_page(int direction);

    // Commands on files and folders that ask the system or the shell.
    core::Outcome on_add_files(const CommandInput& input);
    core::Outcome on_duplicate_file(const CommandInput& input);
    core::Outcome on_search_moved_file(const CommandInput& input);
    core::Outcome on_open_file(const CommandInput& input);
    core::Outcome on_show_file_in_folder(const CommandInput& input);
    core::Outcome on_open_folder(const CommandInput& input);
    core::Outcome on_choose_folder(const CommandInput& input);
    std::vector<std::wstring> paths_chosen_in(ovlib::modern::FileOpenDialog& dialog);
    std::wstring ask_for_copy_of(const std::wstring& source);

    // The links by which moved files are found. True when a worker was started: for every entry of the Book,
    // or for these paths, ahead of what an earlier run left.
    bool start_shortcut_creation_async();
    bool start_shortcut_creation_async(const std::vector<std::wstring>& paths);
    bool start_shortcut_creation(const std::function<media::QueueCounts()>& queue_entries);
    // The views to be refreshed.
    core::RefreshMask search_moved_file();

    // The controls beside the boxes.
    std::array<ovlib::Wnd*, typing_fields.size()> fields();
    void order_fields();
    void note_field_focus(int id);
    bool on_focus();
    bool is_focused_button(std::int64_t handle) const;
    void refresh_controls(core::View view);
    void refresh_file_combo();
    void refresh_file_pane();
    bool on_slider(const ovlib::WndMessage& message);
    void turn_by_slider(std::uint64_t position);
    core::Outcome on_toggle_search_check(const CommandInput& input);
    core::Outcome on_search_changed(const CommandInput& input);
    core::Outcome on_clear_search(const CommandInput& input);
    core::Outcome on_search_selection(const CommandInput& input);
    core::Outcome on_file_combo(const CommandInput& input);

    // Popup menus.
    core::Outcome on_book_menu(const CommandInput& input);
    core::Outcome on_folder_menu(const CommandInput& input);
    core::Outcome on_file_menu(const CommandInput& input);
    core::Outcome on_web_menu(const CommandInput& input);
    bool on_background_press(const ovlib::WndMessage& message);
    bool on_background_release(const ovlib::WndMessage& message);
    void show_menu(const ovlib::MenuRows& rows, std::uint32_t flags, POINT point);

    // The Book as a whole.
    bool save_book(SaveCode code);
    bool write_book();
    void tell_save_failure();
    void tell_system_error(std::uint32_t code);
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
    void enable_history();
    void take_book_settings(const std::wstring& path);

    // The current page.
    void apply_book_settings();
    void set_box_fonts();
    void refresh_views(core::RefreshMask& pending);
    void serve_view(core::View view);
    void refresh_box_state();
    void bring_lost_boxes_back(bool wrap);
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

    std::vector<ovlib::Wnd*> editing_windows_;

    book::Book book_;
    book::HistoryList history_;
    CommandRun commands_;
    InputGate input_{ [this] { enable_history(); } };
    book::HistoryWnd history_window_{ this, 0, &history_ };

    look::QBox q_box_;
    look::ABox a_box_;
    look::DBox d_box_;
    MainControls controls_{ this, &book_ };
    media::PathAnswers path_answers_; // of all views, for one refresh
    std::unique_ptr<FilePane> file_pane_;
    look::WarningWnd banner_{ this };
    ovlib::MenuPictures menu_pictures_;
    ovlib::classic::FileOpenDialog book_open_dialog_{ this };
    ovlib::classic::FileSaveDialog book_save_dialog_{ this };

    MainLayout layout_;
    BoxGap dragged_gap_ = BoxGap::none;
    ovlib::WheelSteps wheel_;
    // Where the mouse holds the window by its background, from the window's corner.
    std::optional<Point> grip_;
    std::size_t last_field_ = 0; // the field that had the keyboard last, as a place in the order of Tab
    std::array<ovlib::GDI::Brush, book::box_count> box_brushes_;
    ovlib::GDI::Brush edit_brush_;
    HACCEL accelerators_ = nullptr;

    std::uint32_t tab_color_ = look::tab_color(0).value; // of the next tab
    // The page whose text stands in the boxes, as a stored index: what is typed belongs to it, whatever the
    // position says meanwhile. book::npos when that page is no more.
    std::size_t shown_index_ = book::npos;
    bool edited_mark_ = false; // the title shows that a box was edited
    bool is_unusable_ = false; // the Book's settings could not be applied: it stays out of the history
    bool is_loading_ = false; // the Book is neither the old nor the new one: commands must wait
    bool is_closing_ = false; // from false to true once: no background work starts any more
    bool has_given_up_ = false; // the background work hangs
    media::BackgroundThread shortcut_thread_;
};

} // namespace app
