// A temporary folder, removed with its contents.
#pragma once
#include <windows.h>
#include <filesystem>
#include <string>
#include <vector>

namespace gui {

class TempFolder {
public:
    TempFolder()
    {
        static int made = 0;
        path_ = std::filesystem::temp_directory_path()
            / (L"ovlib_" + std::to_wstring(GetCurrentProcessId()) + L"_" + std::to_wstring(++made));
        std::filesystem::create_directories(path_);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    std::wstring path() const { return path_.wstring(); }
    std::wstring file(const std::wstring& name) const { return (path_ / name).wstring(); }
    std::wstring write(const std::wstring& name, const std::vector<unsigned char>& bytes) const
    {
        const HANDLE handle =
            CreateFileW(file(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
        CloseHandle(handle);
        return file(name);
    }
    std::vector<unsigned char> read(const std::wstring& name) const
    {
        const HANDLE handle =
            CreateFileW(file(name).c_str(), GENERIC_READ, 7, nullptr, OPEN_EXISTING, 0, nullptr);
        std::vector<unsigned char> bytes(handle == INVALID_HANDLE_VALUE ? 0 : GetFileSize(handle, nullptr));
        DWORD got = 0;
        ReadFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr);
        CloseHandle(handle);
        bytes.resize(got);
        return bytes;
    }

private:
    std::filesystem::path path_;
};

} // namespace gui
