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

// Started by the constructor; ended by force in the destructor if it still runs, and also when the driver
// itself dies.
class Program {
public:
    Program(const std::filesystem::path& file, const std::wstring& arguments);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    DWORD process_id() const { return process_.dwProcessId; }
    HANDLE process() const { return process_.hProcess; }
    bool is_running() const;
    // Waits for the end.
    DWORD exit_code() const;

    // The main window, visible and in front.
    Window wait_for_window() const;
    // The main window as it stands, also while it is hidden. Not `exists()` when there is none.
    Window find_window() const;
    // The box or dialog that is in front.
    MessageDialog wait_for_box() const;
    FileDialog wait_for_file_dialog() const;
    // Whether any box or dialog is open.
    bool has_dialog() const;

    // The control that the keyboard goes to.
    Window focus() const;
    // Whether one of its windows has taken the mouse.
    bool holds_mouse() const { return gui_state().hwndCapture != nullptr; }
    // Whether that window of the program is the active one on the screen.
    bool is_active(Window window) const;
    // Whether a menu has the keys and the mouse. One that is just coming up does not have them yet.
    bool is_in_menu() const { return (gui_state().flags & GUI_INMENUMODE) != 0; }

    // Waits until the window in front is the program's and takes what is typed and clicked: it is enabled, no
    // menu is open and nothing holds the mouse. To be called before any key or click that is not for a menu.
    void await_input() const;
    // Gives the keyboard to a control by a click, unless it has it.
    void click_on(Window control) const;
    // The same for an edit control, until the click has been served.
    void click_into(Window edit) const;
    // What is in front and who has the focus, for a failure.
    std::string describe() const;

private:
    GUITHREADINFO gui_state() const;
    bool takes_input() const;
    bool come_to_front(Window window) const;
    std::optional<Window> find_dialog(bool (*fits)(Window)) const;
    Window wait_for_dialog(const std::string& what, bool (*fits)(Window)) const;
    // Waits for `holds`, and gives up at once when the program has ended.
    template <class Predicate> void await(const std::string& what, Predicate holds) const;

    PROCESS_INFORMATION process_{};
    HANDLE job_ = nullptr;
    mutable HWND calm_window_ = nullptr; // in front since it was last found calm; none after a dialog
};

} // namespace e2e
