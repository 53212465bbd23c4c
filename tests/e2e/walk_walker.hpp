// Drives the program through a walk: every step is done to the program and to the model, and then both must
// say the same.
#pragma once
#include "driver_data_root.hpp"
#include "driver_input.hpp"
#include "driver_program.hpp"
#include "process_holdings.hpp"
#include "walk_model.hpp"
#include <cstdint>
#include <deque>
#include <memory>
#include <random>
#include <set>
#include <string>

namespace walk {

class Walker {
public:
    Walker(const e2e::DataRoot& root, std::uint32_t seed);

    Model model;

    // One step of the table.
    void step();
    std::size_t steps() const { return steps_; }
    std::size_t saves() const { return saves_; }
    std::string last_actions() const;
    // Fails when the program holds much more than after its first steps.
    void watch_holdings();
    std::string holdings_text() const;
    void end();

    // For the actions.
    std::size_t below(std::size_t count) { return random_() % count; }
    bool chance(unsigned percent) { return random_() % 100 < percent; }
    void note(const std::string& what) { noted_ += " " + what; }

    // The command as a message, and answers to what the model expects to be asked.
    void send(int id, LPARAM lparam = 0, int code = 0);
    // By message or, sometimes, by a click on the control that bears the command.
    void give(int id);
    void click(int id);
    void click_at(POINT client);
    // A press that takes the mouse, and its release.
    void hold_at(POINT client);
    void drag(POINT from, POINT to);
    void send_wheel(int direction, bool with_ctrl);
    void type(std::size_t box, std::size_t start, std::size_t end, const std::wstring& text, bool with_keys);
    void press_save_key(std::size_t box);
    void choose_in_book_menu(int id);
    // A menu that comes up is left again.
    void look_at_menu(int id);
    void show_history();
    void turn_random();
    void scroll(std::size_t box, int lines);
    // In a box, which has the focus then.
    void select(std::size_t box, std::size_t start, std::size_t end);
    void set_search(const std::wstring& text);
    void choose_file(std::size_t row);
    void restart();
    void remove_unopened_file();

    e2e::Window main() const { return program_->find_window(); }
    e2e::Window box(std::size_t index) const;
    // A place where characters may come or go: between no pair and no line break's halves.
    std::size_t place_in(const std::wstring& text, std::size_t from);
    std::wstring some_text(bool many_lines);
    // A Book's path; sometimes of one that is not there yet.
    std::wstring some_path(bool may_be_new);

private:
    book::Page some_page();
    void make_books();
    void start();
    void read_scroll();
    template <class Act> void perform(Act act);
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
    std::map<std::wstring, std::string> bytes_; // of every file when it was last compared
    std::string noted_;
    std::deque<std::string> last_actions_;
};

// One row of the table.
struct Action {
    const char* name;
    unsigned weight;
    bool (*can)(const Walker&);
    void (*act)(Walker&); // to the model first, which then knows what will be asked
};
const Action& choose_action(Walker& walker);

} // namespace walk
