#include "tools/bok/console.hpp"
#include <windows.h>
#include <cstdio>
#include <fcntl.h>
#include <initializer_list>
#include <io.h>

namespace bok {

// GetConsoleMode, because _isatty is true for every character device, NUL included.
bool is_terminal(StandardStream stream)
{
    constexpr DWORD names[] = { STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE };
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(names[static_cast<int>(stream)]), &mode) != 0;
}

unsigned prepare_console()
{
    for (std::FILE* stream : { stdin, stdout, stderr })
        _setmode(_fileno(stream), _O_BINARY);
    const unsigned old_code_page = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    return old_code_page;
}

void restore_console(unsigned code_page)
{
    if (code_page != 0)
        SetConsoleOutputCP(code_page);
}

} // namespace bok
