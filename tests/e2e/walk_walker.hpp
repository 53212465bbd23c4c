// Drives a walk: every step is done in the program and in the model, and then both must agree.
#pragma once
#include "driver_data_root.hpp"
#include "driver_input.hpp"
#include "driver_program.hpp"
#include "process_holdings.hpp"
#include "walk_model.hpp"
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <random>
#include <set>
#include <string>

namespace walk {

class Walker {
public:
    Walker(const e2e::DataRoot& root, std::uint32_t seed);

    Model model;

    // One random step from the table of actions.
    void step();
    std::size_t steps() const { return steps_; }
    std::size_t saves() const { return saves_; }
    std::string last_actions() const;
    // Fails if the program holds many more resources than after its first steps.
    void watch_holdings();
    std::string holdings_text() const;
    void end();

    // Used by the actions.
    std::size_t below(std::size_t count) { return random_() % count; }
    bool chance(unsigned percent) { return random_() % 100 < percent; }
    void note(const std::string& what) { noted_ += " " + what; }

    // Sends the command as a message and answers the questions that the model expects.
    void send(int id, LPARAM lparam = 0, int code = 0);
    // Gives the command by message or, sometimes, by a click on its control.
    void give(int id);
    void click(int id);
    void click_at(POINT client);
    // Presses, which captures the mouse, and releases.
    void hold_at(POINT client);
    void drag(POINT from, POINT to);
    void send_wheel(int direction, bool with_ctrl);
    void type(std::size_t box, std::size_t start, std::size_t end, const std::wstring& text, bool with_keys);
    void press_save_key(std::size_t box);
    void choose_in_book_menu(int id);
    // Opens a menu and closes it.
    void look_at_menu(int id);
    void show_history();
    // Opens the viewer if the page has an entry, sends it commands with random codes and pointers, and closes
    // it.
    void use_viewer();
    // In the settings window: selects this row of the sort keys, toggles one check or not, and presses OK.
    void choose_settings(int row, bool toggles_gifs);
    void turn_random();
    void scroll(std::size_t box, int lines);
    // Gives a box the focus and selects a range.
    void select(std::size_t box, std::size_t start, std::size_t end);
    void set_search(const std::wstring& text);
    void choose_file(std::size_t row);
    void replace_everywhere();
    void edit_pages();
    void edit_list();
    void choose_results();
    void choose_color();
    void restart();
    void remove_unopened_file();

    e2e::Window main() const { return program_->find_window(); }
    e2e::Window box(std::size_t index) const;
    // An index at which characters may be inserted or removed: not inside a surrogate pair or a CR LF.
    std::size_t place_in(const std::wstring& text, std::size_t from);
    std::wstring some_text(bool many_lines);
    // The path of a Book, sometimes of one that does not exist yet.
    std::wstring some_path(bool may_be_new);

private:
    book::Page some_page();
    void make_books();
    void start();
    void read_scroll();
    template <class Act> void perform(Act act);
    void perform_served(const std::function<void()>& act);
    e2e::Window side_window(const std::wstring& class_name) const;
    e2e::Window open_side_window(int id, const std::wstring& class_name);
    // For windows that leave the pages to the main window.
    e2e::Window show_side_window(int id, const std::wstring& class_name);
    void hide_side_window(e2e::Window window);
    void send_to(e2e::Window window, int id);
    void close_side_window(e2e::Window window, const std::wstring& question);
    void serve_talks();
    void serve(const Talk& talk);
    void fence();
    void come_to_front();
    void check();
    void check_boxes();
    void check_files();
    void check_no_dialog();

    const e2e::DataRoot& root_;
    std::mt19937 random_;
    std::unique_ptr<e2e::Program> program_;
    std::size_t steps_ = 0;
    std::size_t saves_ = 0;
    std::size_t steps_of_process_ = 0;
    e2e::Holdings first_holdings_;
    e2e::Holdings last_holdings_;
    std::wstring step_began_;
    bool replaces_boxes_ = false; // the state of a check in the replace window
    std::map<std::wstring, std::string> bytes_; // of every file when last compared
    std::string noted_;
    std::deque<std::string> last_actions_;
};

// One row of the table.
struct Action {
    const char* name;
    unsigned weight;
    bool (*can)(const Walker&);
    void (*act)(Walker&); // applies to the model first, which then knows the questions to expect
};
const Action& choose_action(Walker& walker);

} // namespace walk
