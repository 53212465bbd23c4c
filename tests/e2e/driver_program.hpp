// The program under test, as a process.
#pragma once
#include "driver_dialog.hpp"
#include "driver_wait.hpp"
#include "driver_window.hpp"
#include <filesystem>
#include <optional>
#include <string>

namespace e2e {

inline constexpr auto main_window_class = L"ovlib_appwnd[310]";

// Started by the constructor. Terminated by the destructor if it still runs, and also if the driver itself
// crashes.
class Program {
public:
    Program(const std::filesystem::path& file, const std::wstring& arguments);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    DWORD process_id() const { return process_.dwProcessId; }
    HANDLE process() const { return process_.hProcess; }
    bool is_running() const;
    // Waits until the program ends.
    DWORD exit_code() const;

    // Waits for the main window to be visible and in front.
    Window wait_for_window() const;
    // The main window, even if it is hidden; its exists() is false if there is none.
    Window find_window() const;
    // Waits for a message box or dialog in front.
    MessageDialog wait_for_box() const;
    // A dialog of the system that has this control and the keyboard.
    Window wait_for_dialog_with(int control) const;
    // Enters the colour in the system's dialog, which the caller has opened, and confirms it.
    void answer_color_dialog(COLORREF color) const;
    FileDialog wait_for_file_dialog() const;
    // Whether a message box or dialog is open.
    bool has_dialog() const;

    // The control that has the keyboard focus.
    Window focus() const;
    // Whether one of its windows has captured the mouse.
    bool holds_mouse() const { return gui_state().hwndCapture != nullptr; }
    // Whether this window of the program is active and in the foreground.
    bool is_active(Window window) const;
    // Whether a menu has keyboard and mouse. A menu that is just opening does not have them yet.
    bool is_in_menu() const { return (gui_state().flags & GUI_INMENUMODE) != 0; }

    // Waits until the window in front is the program's and accepts input: it is enabled, no menu is open and
    // nothing has captured the mouse. Call it before any key or click that is not for a menu.
    void await_input() const;
    // Gives a control the focus by a click, unless it has it.
    void click_on(Window control) const;
    // The same for an edit control, until the click has been served.
    void click_into(Window edit) const;
    // Describes the windows, the focus and the capture for a failure message.
    std::string describe() const;

private:
    GUITHREADINFO gui_state() const;
    bool takes_input() const;
    bool come_to_front(Window window) const;
    std::optional<Window> find_dialog(bool (*fits)(Window)) const;
    Window wait_for_dialog(const std::string& what, bool (*fits)(Window)) const;
    // Waits for `holds`; fails at once if the program has ended.
    template <class Predicate> void await(const std::string& what, Predicate holds) const;

    PROCESS_INFORMATION process_{};
    HANDLE job_ = nullptr;
    mutable HWND calm_window_ = nullptr; // the window last found stable in front; null after a dialog
};

} // namespace e2e
