#include "driver_small_screen.hpp"
#include "driver_wait.hpp"
#include <gtest/gtest.h>

namespace e2e {

namespace {

SIZE screen_size()
{
    return { GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN) };
}

void change_mode(SIZE size)
{
    DEVMODEW mode{};
    mode.dmSize = sizeof(mode);
    mode.dmFields = DM_PELSWIDTH | DM_PELSHEIGHT;
    mode.dmPelsWidth = static_cast<DWORD>(size.cx);
    mode.dmPelsHeight = static_cast<DWORD>(size.cy);
    if (ChangeDisplaySettingsExW(nullptr, &mode, nullptr, CDS_FULLSCREEN, nullptr) != DISP_CHANGE_SUCCESSFUL)
        throw DriverError("the screen refuses another size");
    require("the screen changes its size", [size] {
        const SIZE now = screen_size();
        return now.cx == size.cx && now.cy == size.cy;
    });
}

} // namespace

SmallScreen::SmallScreen(SIZE size)
    : old_size_(screen_size())
{
    change_mode(size);
}

SmallScreen::~SmallScreen()
{
    try {
        change_mode(old_size_);
    } catch (const DriverError& error) {
        ADD_FAILURE() << error.what();
    }
}

} // namespace e2e
