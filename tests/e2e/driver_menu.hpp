// A popup menu of the program under test. Nothing can be asked of a menu of another process, so what stands
// in it is given, and where the highlight is, is seen.
#pragma once
#include "controls/menu_rows.hpp"
#include "driver_program.hpp"
#include <functional>

namespace e2e {

enum class Hand { mouse, keys };

class PopupMenu {
public:
    // Has the menu of these rows opened when the program takes input, and again when it goes before anything
    // was chosen: a focus that comes back late, of a box just closed, cancels a menu.
    PopupMenu(const Program& program, ovlib::MenuRows rows, std::function<void()> open);

    // Chooses the row of that command and returns when the menu is gone.
    void choose(int id, Hand hand);
    // Tries the same with a row that is grey, which leaves the menu standing, and closes it.
    void choose_in_vain(int id, Hand hand);
    void leave() const;
    // Chooses the row that so many arrow keys lead to, which pass over separators.
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
