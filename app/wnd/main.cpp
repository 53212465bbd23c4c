// The program's entry point.
#include "app/failures.hpp"
#include "app/wnd/startup.hpp"
#include "core/titles.hpp"
#include "ovlib/win_app.hpp"
#include <windows.h>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t*, int show_command)
{
    ovlib::WinApp::initialize(instance, show_command);
    try {
        return app::run_application();
    } catch (...) {
        // Catching here makes the stack unwind, so that every scope is left properly.
        const auto notice = app::failure_notice(std::current_exception(), app::FailedAt::creation);
        MessageBoxW(nullptr, notice.text.c_str(), core::program_name, static_cast<UINT>(notice.style));
        return -1;
    }
}
