// A screen of another size, as a laptop has it.
#pragma once
#include <functional>
#include <windows.h>

namespace e2e {

// Runs `body`, which is all of the test that calls it, on a screen of that size. The screen's mode is changed
// where the system allows it. Where it does not, as on a virtual screen of one mode, Wine shows a desktop of
// that size, and this test alone is run there by another process of this program. Throws DriverError when
// neither works.
void on_small_screen(SIZE size, const std::function<void()>& body);

} // namespace e2e
