// User input: keys, mouse and wheel, delivered by the system to the window that has the focus.
#pragma once
#include <windows.h>
#include <initializer_list>
#include <string_view>

namespace e2e {

// Types characters, one keystroke per UTF-16 unit, as an input method delivers them.
void type_text(std::wstring_view text);
// Presses and releases one key by its virtual-key code.
void press(WORD key);
// Presses the keys in order and releases them in reverse order, such as chord({VK_CONTROL, 'S'}).
void chord(std::initializer_list<WORD> keys);

// Holds a key down during its lifetime. A program that queries the current state of a key, and not its state
// at the time of a message, does not see a chord that is sent at once.
class HeldKey {
public:
    explicit HeldKey(WORD key);
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;
    ~HeldKey();

private:
    WORD key_;
};

void move_mouse(POINT screen);
void click(POINT screen);
// The two halves of a click; the pointer may move in between.
void press_mouse(POINT screen);
void release_mouse(POINT screen);
// Two clicks at once, well within the system's double click time.
void double_click(POINT screen);
void right_click(POINT screen);
// Moves the pointer from one point to another in steps, with the button held.
void lead_mouse(POINT from, POINT to);
// `notches` is positive away from the user.
void turn_wheel(POINT screen, int notches);
// Scrolls like a touchpad: `turns` turns of `delta`, each less than a notch.
void stroke_touchpad(POINT screen, int delta, int turns);

} // namespace e2e
