// The message boxes and file dialogs of the program under test.
#pragma once
#include "driver_window.hpp"
#include <string>

namespace e2e {

enum class Icon { none, error, question, warning, information };

// A message box. Its text and caption are read when it is found.
class MessageDialog {
public:
    explicit MessageDialog(Window window);
    // Whether the window is a message box and not another dialog.
    static bool is_one(Window window);

    Window window() const { return window_; }
    const std::wstring& caption() const { return caption_; }
    const std::wstring& text() const { return text_; }
    // Whether it has this button (IDOK, IDYES, ...).
    bool has_button(int id) const;
    // Recognised from its picture on the screen.
    Icon icon() const;

    // Presses a button and returns when the box has closed.
    void answer(int button) const;
    void wait_until_gone() const;

private:
    Window window_;
    std::wstring caption_;
    std::wstring text_;
};

// A dialog for opening or saving files.
class FileDialog {
public:
    explicit FileDialog(Window window);
    static bool is_one(Window window);

    std::wstring caption() const { return window_.text(); }
    std::wstring file_name() const;
    // Enters `path` and confirms; returns when the dialog has closed or shows a question.
    void choose(const std::wstring& path) const;
    void cancel() const;
    Window window() const { return window_; }

private:
    Window window_;
    Window edit_;
};

} // namespace e2e
