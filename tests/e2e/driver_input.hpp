// The user's hands: keys, mouse and wheel as the system itself delivers them, to whatever has the focus.
#pragma once
#include <initializer_list>
#include <string_view>
#include <windows.h>

namespace e2e {

// Types characters, one key stroke for each UTF-16 unit, as an input method would hand them over.
void type_text(std::wstring_view text);
// Presses and releases one key by its virtual-key code.
void press(WORD key);
// Presses the keys in order and releases them backwards, e.g. chord({VK_CONTROL, 'S'}).
void chord(std::initializer_list<WORD> keys);

// Holds a key down while it lives. A program that asks how a key stands now, rather than when a message was
// made, sees nothing of a chord sent in one go.
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
// The two halves of a click; the pointer may go elsewhere in between.
void press_mouse(POINT screen);
void release_mouse(POINT screen);
// Two clicks in one go, well within the system's time for a double click.
void double_click(POINT screen);
void right_click(POINT screen);
// Shows the way between two places, with the button held.
void lead_mouse(POINT from, POINT to);
// `notches` are positive away from the user.
void turn_wheel(POINT screen, int notches);
// As a touchpad does: in `turns` of `delta`, less than a notch each.
void stroke_touchpad(POINT screen, int delta, int turns);

} // namespace e2e
