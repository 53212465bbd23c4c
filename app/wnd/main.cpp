// The entry of the program.
#include "app/wnd/startup.hpp"
#include "ovlib/win_app.hpp"
#include <windows.h>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t*, int show_command)
{
    ovlib::WinApp::initialize(instance, show_command);
    return app::run_application();
}
