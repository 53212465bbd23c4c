// A popup menu of the program under test. A menu of another process cannot be queried, so the test passes its
// rows, and the highlight is found on the screen.
#pragma once
#include "controls/menu_rows.hpp"
#include "driver_program.hpp"
#include <functional>

namespace e2e {

enum class Hand { mouse, keys };

class PopupMenu {
public:
    // `open` opens the menu with these rows, when the program accepts input. It is called again if the menu
    // closes before a row was chosen: a focus change that comes late, from a message box just closed, cancels
    // a menu.
    PopupMenu(const Program& program, ovlib::MenuRows rows, std::function<void()> open);

    // Chooses the row of this command and returns when the menu has closed.
    void choose(int id, Hand hand);
    // Tries the same with a greyed row, which keeps the menu open, and closes the menu.
    void choose_in_vain(int id, Hand hand);
    void leave() const;
    // Chooses the row reached by so many arrow keys, which skip separators.
    void choose_by_steps(int count);
    Window window() const { return window_; }

private:
    std::size_t row_of(int id) const;
    POINT middle_of(std::size_t row) const;
    void open();
    bool is_open() const;
    // The middle of the highlighted row on the screen; 0 without one.
    LONG highlight() const;
    bool is_highlighted(std::size_t row) const;
    void point_at(std::size_t row);
    void step_to(std::size_t row);
    void step_down() const;
    void confirm(int id, Hand hand);
    void wait_until_gone() const;

    const Program& program_;
    ovlib::MenuRows rows_;
    std::function<void()> open_;
    Window window_;
};

} // namespace e2e
