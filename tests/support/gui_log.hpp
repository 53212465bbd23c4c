// Captures the process's log while a test runs.
#pragma once
#include "platform/process_log.hpp"
#include "tests/support/gui_folder.hpp"
#include <string>

namespace gui {

// Gives the log a path, because it records nothing without one. Error codes are logged as "<80004005>".
class LogEar {
public:
    LogEar()
    {
        ovlib::WinApp::process_log().set_path(folder_.file(L"log.txt"));
        ovlib::WinApp::process_log().set_error_text([](std::uint32_t code) -> std::wstring {
            wchar_t text[16] = {};
            wsprintfW(text, L"<%08X>", code);
            return text;
        });
    }
    LogEar(const LogEar&) = delete;
    LogEar& operator=(const LogEar&) = delete;
    ~LogEar()
    {
        ovlib::WinApp::process_log().flush();
        ovlib::WinApp::process_log().set_path(L"");
        ovlib::WinApp::process_log().set_error_text(nullptr);
    }
    std::wstring heard() const { return ovlib::WinApp::process_log().buffered(); }

private:
    TempFolder folder_;
};

} // namespace gui
