#include "driver_shell.hpp"
#include "driver_data_root.hpp"
#include "driver_wait.hpp"
#include "tests/support/built_files.hpp"

namespace fs = std::filesystem;

namespace e2e {

namespace {

constexpr auto file_type = L"pagewick.recorded";

void set_class_key(const std::wstring& key, const std::wstring& value)
{
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    if (RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, value.c_str(), size)
        != ERROR_SUCCESS)
        throw DriverError("cannot register a program");
}

} // namespace

RecordedProgram::RecordedProgram(const fs::path& folder, std::wstring extension)
    : program_(folder / L"recorder.exe")
    , extension_(std::move(extension))
{
    fs::copy_file(test_support::recorder_path(), program_);
    set_class_key(extension_, file_type);
    set_class_key(
        std::wstring{ file_type } + L"\\shell\\open\\command", L"\"" + program_.wstring() + L"\" \"%1\"");
}

RecordedProgram::~RecordedProgram()
{
    RegDeleteTreeW(HKEY_CLASSES_ROOT, extension_.c_str());
    RegDeleteTreeW(HKEY_CLASSES_ROOT, file_type);
}

std::vector<std::wstring> RecordedProgram::calls() const
{
    const std::wstring name = L"\"" + program_.wstring() + L"\" ";
    std::wstring text = utf16_text(file_bytes(program_.wstring() + L".calls"));
    std::vector<std::wstring> found;
    for (std::size_t end; (end = text.find(L"\r\n")) != text.npos; text.erase(0, end + 2))
        found.push_back(
            text.starts_with(name) ? text.substr(name.size(), end - name.size()) : text.substr(0, end));
    return found;
}

void close_folder_window(const std::wstring& folder_name)
{
    HWND window = nullptr;
    require("the file manager shows a folder", [&] {
        while ((window = FindWindowExW(nullptr, window, L"ExplorerWClass", nullptr)) != nullptr) {
            if (IsWindowVisible(window) && Window(window).text() == folder_name)
                return true;
        }
        return false;
    });
    PostMessageW(window, WM_CLOSE, 0, 0);
    require("the file manager closes", [&] { return !IsWindow(window); });
}

} // namespace e2e
