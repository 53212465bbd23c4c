// Whether the screen is fit for tests with windows: a window gets the focus, is at the place it was given,
// and is met by a click there.
//
// A busy machine, another program on the screen or a window manager can make a screen unfit for minutes.
// Tests would then fail for no fault of the program, so the check comes before them: an unfit screen is
// reported, the process ends before its next test begins, and the runner goes on with that test on another
// screen.
#pragma once

namespace test_support {

// Checks before every test, or before the first one only: a program with many short tests may share a check.
enum class ScreenCheck { before_first_test, before_each_test };
void check_screen(ScreenCheck when);

} // namespace test_support
