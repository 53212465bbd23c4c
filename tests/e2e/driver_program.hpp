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

    // The main window, visible and able to take input.
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
    // Gives the keyboard to the main window's control by a click, unless it has it.
    void click_on(Window control) const;

private:
    GUITHREADINFO gui_state() const;
    std::optional<Window> find_dialog(bool (*fits)(Window)) const;
    // Waits for `holds`, and gives up at once when the program has ended.
    template <class Predicate> void await(const std::string& what, Predicate holds) const;

    PROCESS_INFORMATION process_{};
    HANDLE job_ = nullptr;
};

} // namespace e2e
