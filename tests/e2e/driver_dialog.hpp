// The boxes that a program puts before its user.
#pragma once
#include "driver_window.hpp"
#include <string>

namespace e2e {

enum class Icon { none, error, question, warning, information };

// A message box, read when it was found.
class MessageDialog {
public:
    explicit MessageDialog(Window window);
    // Whether that window is a message box rather than another dialog.
    static bool is_one(Window window);

    Window window() const { return window_; }
    const std::wstring& caption() const { return caption_; }
    const std::wstring& text() const { return text_; }
    // Whether it offers that button (IDOK, IDYES, ...).
    bool has_button(int id) const;
    // Told from the picture on the screen.
    Icon icon() const;

    // Chooses a button and returns when the box is gone.
    void answer(int button) const;
    void wait_until_gone() const;

private:
    Window window_;
    std::wstring caption_;
    std::wstring text_;
};

// An open or save dialog for files.
class FileDialog {
public:
    explicit FileDialog(Window window);
    static bool is_one(Window window);

    std::wstring caption() const { return window_.text(); }
    std::wstring file_name() const;
    // Enters `path` and confirms; returns when the dialog is gone or asks back.
    void choose(const std::wstring& path) const;
    void cancel() const;
    Window window() const { return window_; }

private:
    Window window_;
    Window edit_;
};

} // namespace e2e
