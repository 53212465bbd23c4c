// A stand-in for a program of the user: records its command line in a file beside itself.
#include <windows.h>
#include <string>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int)
{
    std::wstring file(32768, L'\0');
    file.resize(GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size())));
    file += L".calls";
    HANDLE const calls = CreateFileW(file.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
        nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    const std::wstring line = std::wstring{ GetCommandLineW() } + L"\r\n";
    DWORD written = 0;
    const auto size = static_cast<DWORD>(line.size() * sizeof(wchar_t));
    const bool noted = WriteFile(calls, line.data(), size, &written, nullptr) != FALSE && written == size;
    CloseHandle(calls);
    return noted ? 0 : 1;
}
