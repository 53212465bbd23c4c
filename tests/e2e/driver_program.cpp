#include "driver_program.hpp"
#include "driver_input.hpp"
#include "platform/text.hpp"
#include <iostream>
#include <sstream>

namespace e2e {

namespace {

// All processes of the job end when its last handle is closed, so a crashed driver leaves none behind.
HANDLE create_job()
{
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof(limits));
    return job;
}

// Consecutive checks that must agree. When a dialog opens or closes, the window manager assigns the keyboard
// late, and keys typed before that are lost.
constexpr int calm_looks = 15;

// Another current folder than the data root: the program has to find its own.
bool start_suspended(const std::filesystem::path& file, std::wstring command, PROCESS_INFORMATION& process)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    return CreateProcessW(file.c_str(), command.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
        L"C:\\", &startup, &process);
}

// Once in some thousand starts the new process dies in Wine's loader, before its first instruction, and Wine
// reports an internal error. Nothing of the program has run then, so it is started once more; the log shows
// it.
bool start_program(
    const std::filesystem::path& file, const std::wstring& command, PROCESS_INFORMATION& process)
{
    if (start_suspended(file, command, process))
        return true;
    if (GetLastError() != ERROR_INTERNAL_ERROR)
        return false;
    std::cout << "Wine lost a process before it began to run; starting it again" << std::endl;
    return start_suspended(file, command, process);
}

} // namespace

Program::Program(const std::filesystem::path& file, const std::wstring& arguments)
    : job_(create_job())
{
    std::wstring command = L"\"" + file.wstring() + L"\"";
    if (!arguments.empty())
        command += L" " + arguments;
    if (!start_program(file, command, process_))
        throw DriverError("cannot start " + platform::to_utf8(file.wstring()) + ": error "
            + std::to_string(GetLastError()));
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
        throw DriverError("timed out: the program ends");
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

template <class Predicate> void Program::await(const std::string& what, Predicate holds) const
{
    bool ended = false;
    const bool came = wait_until([&] {
        if (holds())
            return true;
        ended = !is_running();
        return ended;
    });
    if (!came)
        throw DriverError("timed out: " + what + "; " + describe());
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
    await("the main window is in front", [&] { return come_to_front(window); });
    window.send(WM_NULL);
    return window;
}

bool Program::come_to_front(Window window) const
{
    if (GetForegroundWindow() == window.handle())
        return true;
    SetForegroundWindow(window.handle());
    return GetForegroundWindow() == window.handle();
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
    return MessageDialog(wait_for_dialog("a message box", MessageDialog::is_one));
}

Window Program::wait_for_dialog_with(int control) const
{
    Window found;
    require("a dialog shows", [&] {
        for (const Window window : top_windows(process_id())) {
            if (window.class_name() == L"#32770" && GetDlgItem(window.handle(), control))
                found = window;
        }
        return found.exists() && is_active(found);
    });
    return found;
}

void Program::answer_color_dialog(COLORREF color) const
{
    constexpr int red = 706;
    constexpr int green = 707;
    constexpr int blue = 708;
    const Window dialog = wait_for_dialog_with(red);
    dialog.child(red).set_text(std::to_wstring(GetRValue(color)));
    dialog.child(green).set_text(std::to_wstring(GetGValue(color)));
    dialog.child(blue).set_text(std::to_wstring(GetBValue(color)));
    dialog.post(WM_COMMAND, IDOK);
    require("the dialog has closed", [&] { return !dialog.exists(); });
}

FileDialog Program::wait_for_file_dialog() const
{
    return FileDialog(wait_for_dialog("a file dialog", FileDialog::is_one));
}

// If a dialog closes before the window manager has served its opening, no window has the keyboard for a
// while. So this waits until the dialog keeps it.
Window Program::wait_for_dialog(const std::string& what, bool (*fits)(Window)) const
{
    std::optional<Window> found;
    int looks = 0;
    await(what + " shows and takes keys", [&] {
        found = find_dialog(fits);
        const bool is_ready = found && gui_state().hwndActive == found->handle() && come_to_front(*found);
        looks = is_ready ? looks + 1 : 0;
        return looks >= calm_looks;
    });
    calm_window_ = nullptr;
    return *found;
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

bool Program::takes_input() const
{
    const GUITHREADINFO state = gui_state();
    const Window active(state.hwndActive);
    // A dropped-down list captures the mouse and accepts input.
    const bool has_mouse = !state.hwndCapture || Window(state.hwndCapture).class_name() == L"ComboLBox";
    return active.exists() && active.is_enabled() && GetForegroundWindow() == active.handle() && has_mouse
        && (state.flags & GUI_INMENUMODE) == 0;
}

void Program::await_input() const
{
    constexpr milliseconds usual{ 2000 };
    int looks = 0;
    const auto is_ready = [&] {
        if (!is_running())
            throw DriverError(describe());
        looks = takes_input() ? looks + 1 : 0;
        return looks > 0 && (gui_state().hwndActive == calm_window_ || looks >= calm_looks);
    };
    // A window manager may leave no window with the keyboard after a dialog has closed.
    if (!wait_until(is_ready, usual)) {
        const HWND active = gui_state().hwndActive;
        SetForegroundWindow(active ? active : find_window().handle());
        if (!wait_until(is_ready))
            throw DriverError("timed out: the program takes input; " + describe());
    }
    calm_window_ = gui_state().hwndActive;
}

void Program::click_on(Window control) const
{
    // A click is lost while the window manager is still placing the window.
    constexpr milliseconds retry{ 1000 };
    const auto has_focus = [&] { return takes_input() && focus() == control; };
    if (!wait_until([&] {
            await_input();
            if (has_focus())
                return true;
            click(control.center());
            return wait_until(has_focus, retry);
        }))
        throw DriverError("timed out: a click gives the focus; " + describe());
}

// The program may give the box the focus before the click is served. The click would then move the caret
// after a message has set it. Keys follow the click in the same queue: when the caret has been at the end and
// then at the beginning, the click has been served.
void Program::click_into(Window edit) const
{
    click_on(edit);
    const auto end = static_cast<DWORD>(edit.text().size());
    chord({ VK_CONTROL, VK_END });
    require("the caret goes to the end", [&] { return edit.selection() == std::pair{ end, end }; });
    chord({ VK_CONTROL, VK_HOME });
    require("the caret goes to the beginning", [&] { return edit.selection() == std::pair{ 0ul, 0ul }; });
}

std::string Program::describe() const
{
    if (!is_running())
        return "the program has ended";
    const auto name = [](HWND window) {
        return window ? platform::to_utf8(Window(window).class_name()) : std::string("nobody");
    };
    const GUITHREADINFO state = gui_state();
    std::ostringstream text;
    text << "of its windows " << name(state.hwndActive) << " is active, " << name(state.hwndFocus)
         << " has the focus and " << name(state.hwndCapture) << " the mouse; in front is "
         << name(GetForegroundWindow()) << "; visible are";
    for (const Window window : top_windows(process_id())) {
        const RECT at = window.rect();
        text << ' ' << name(window.handle()) << (window.is_enabled() ? "" : " (disabled)") << " at "
             << at.left << ',' << at.top;
    }
    return text.str();
}

} // namespace e2e
