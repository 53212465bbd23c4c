#include "driver_program.hpp"
#include "driver_input.hpp"
#include "platform/text.hpp"

namespace e2e {

namespace {

// Whatever belongs to the job ends with its last handle, so nothing is left behind by a driver that died.
HANDLE create_job()
{
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof(limits));
    return job;
}

} // namespace

Program::Program(const std::filesystem::path& file, const std::wstring& arguments)
    : job_(create_job())
{
    std::wstring command = L"\"" + file.wstring() + L"\"";
    if (!arguments.empty())
        command += L" " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    // Another current folder than the data root: the program has to find its own.
    if (!CreateProcessW(file.c_str(), command.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
            L"C:\\", &startup, &process_))
        throw DriverError("cannot start " + platform::to_utf8(file.wstring()));
    AssignProcessToJobObject(job_, process_.hProcess);
    ResumeThread(process_.hThread);
}

Program::~Program()
{
    if (is_running()) {
        TerminateProcess(process_.hProcess, 1);
        WaitForSingleObject(process_.hProcess, static_cast<DWORD>(patience.count()));
    }
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
    CloseHandle(job_);
}

bool Program::is_running() const
{
    return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT;
}

DWORD Program::exit_code() const
{
    if (WaitForSingleObject(process_.hProcess, static_cast<DWORD>(patience.count())) != WAIT_OBJECT_0)
        throw DriverError("waited in vain: the program ends");
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

template <class Predicate> void Program::await(const std::string& what, Predicate holds) const
{
    bool ended = false;
    require(what, [&] {
        if (holds())
            return true;
        ended = !is_running();
        return ended;
    });
    if (ended && !holds())
        throw DriverError("the program ended with code " + std::to_string(exit_code()) + " before " + what);
}

Window Program::find_window() const
{
    HWND found = nullptr;
    while ((found = FindWindowExW(nullptr, found, main_window_class, nullptr)) != nullptr) {
        DWORD owner = 0;
        GetWindowThreadProcessId(found, &owner);
        if (owner == process_id())
            return Window(found);
    }
    return {};
}

Window Program::wait_for_window() const
{
    Window window;
    await("the main window shows", [&] {
        window = find_window();
        return window.exists() && window.is_visible();
    });
    await("the main window is in front", [&] {
        if (GetForegroundWindow() == window.handle())
            return true;
        SetForegroundWindow(window.handle());
        return GetForegroundWindow() == window.handle();
    });
    window.send(WM_NULL);
    return window;
}

std::optional<Window> Program::find_dialog(bool (*fits)(Window)) const
{
    for (const Window window : top_windows(process_id())) {
        if (fits(window))
            return window;
    }
    return std::nullopt;
}

MessageDialog Program::wait_for_box() const
{
    std::optional<Window> found;
    await("a message box shows and takes keys", [&] {
        found = find_dialog(MessageDialog::is_one);
        return found && gui_state().hwndActive == found->handle();
    });
    return MessageDialog(*found);
}

FileDialog Program::wait_for_file_dialog() const
{
    std::optional<Window> found;
    await("a file dialog shows", [&] { return (found = find_dialog(FileDialog::is_one)).has_value(); });
    return FileDialog(*found);
}

bool Program::has_dialog() const
{
    return find_dialog(MessageDialog::is_one) || find_dialog(FileDialog::is_one);
}

GUITHREADINFO Program::gui_state() const
{
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(process_.dwThreadId, &info);
    return info;
}

Window Program::focus() const
{
    return Window(gui_state().hwndFocus);
}

bool Program::is_active(Window window) const
{
    return gui_state().hwndActive == window.handle() && GetForegroundWindow() == window.handle();
}

void Program::click_on(Window control) const
{
    // A press that comes while the window manager still places the window reaches nobody.
    constexpr milliseconds retry{ 1000 };
    const auto has_focus = [&] {
        // A control holds the mouse until it has seen the button go up.
        const GUITHREADINFO state = gui_state();
        return state.hwndFocus == control.handle() && !state.hwndCapture;
    };
    require("a click gives the focus", [&] {
        if (has_focus())
            return true;
        click(control.center());
        return wait_until(has_focus, retry);
    });
}

} // namespace e2e
