#include "driver_outer_mouse.hpp"
#include "driver_input.hpp"
#include "driver_wait.hpp"

namespace e2e::outer_mouse {

namespace {

bool is_wine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

// A program of the system outside has no handle to be waited for: its effect has to be.
void run_xdotool(const std::wstring& arguments)
{
    std::wstring command = L"Z:\\usr\\bin\\xdotool " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(
            nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
        throw DriverError("xdotool does not start");
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

void run_at(POINT screen, const std::wstring& then)
{
    run_xdotool(L"mousemove " + std::to_wstring(screen.x) + L" " + std::to_wstring(screen.y) + then);
    require("the pointer comes", [&] {
        POINT now{};
        return GetCursorPos(&now) && now.x == screen.x && now.y == screen.y;
    });
}

} // namespace

void move(POINT screen)
{
    if (is_wine())
        run_at(screen, L"");
    else
        rest_mouse(screen);
}

void press(POINT screen)
{
    if (is_wine())
        run_at(screen, L" mousedown 1");
    else
        press_mouse(screen);
}

void release(POINT screen)
{
    if (is_wine())
        run_at(screen, L" mouseup 1");
    else
        release_mouse(screen);
}

} // namespace e2e::outer_mouse
