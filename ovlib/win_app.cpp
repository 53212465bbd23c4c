#include "ovlib/win_app.hpp"
#include "ovlib/handles.hpp"
#include "platform/path_text.hpp"
#include <shellapi.h>

namespace ovlib::WinApp {

std::wstring parent_path(std::wstring_view path)
{
    return platform::parent_path(path);
}

void initialize(HINSTANCE module, int show)
{
    instance = module;
    show_command = show;
    int count = 0;
    const UniqueLocalMemory<wchar_t**> vector{ CommandLineToArgvW(GetCommandLineW(), &count) };
    if (!vector)
        return;
    arguments.assign(vector.get(), vector.get() + count);
    if (arguments.empty())
        return;
    program_path = arguments.front();
    data_root = parent_path(program_path);
}

} // namespace ovlib::WinApp
