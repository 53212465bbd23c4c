// A screen of another size, as a laptop has it.
#pragma once
#include <windows.h>

namespace e2e {

// Changes the size of the screen for as long as it lives; throws DriverError where the screen keeps its own.
// A process goes by the work area that it met first, so a test with one of these needs a process of its own.
class SmallScreen {
public:
    explicit SmallScreen(SIZE size);
    SmallScreen(const SmallScreen&) = delete;
    SmallScreen& operator=(const SmallScreen&) = delete;
    ~SmallScreen();

private:
    SIZE old_size_;
};

} // namespace e2e
