// Checks whether the screen is fit for tests with windows: a window gets the focus, is at the position it was
// given, and receives a click there.
//
// A busy machine, another program on the screen or a window manager can make a screen unfit for minutes.
// Tests would then fail through no fault of the program, so the check comes before them: an unfit screen is
// reported, the process ends before its next test starts, and the runner continues with that test on another
// screen.
#pragma once

namespace test_support {

// When to check: a program with many short tests may check once for all of them.
enum class ScreenCheck { before_first_test, before_each_test };
void check_screen(ScreenCheck when);

} // namespace test_support
