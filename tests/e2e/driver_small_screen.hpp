// A screen of another size, such as a laptop's.
#pragma once
#include <windows.h>

namespace e2e {

// Changes the size of the screen during its lifetime; throws DriverError if the screen cannot be resized. A
// process keeps the work area that it saw first, so a test that uses this needs a process of its own.
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
