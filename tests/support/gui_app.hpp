// The main window in the test's process, with its own data root.
#pragma once
#include "app/wnd/appwnd.hpp"
#include "book/history_list.hpp"
#include "core/command_ids.hpp"
#include "core/data_root.hpp"
#include "core/folders.hpp"
#include "core/settings.hpp"
#include "core/titles.hpp"
#include "ovlib/win_app.hpp"
#include "tests/support/gui_driver.hpp"
#include "tests/support/temp_folder.hpp"
#include <functional>
#include <gtest/gtest.h>
#include <initializer_list>
#include <memory>
#include <thread>
#include <vector>

namespace gui {

// A message box that was shown and answered.
struct MetBox {
    std::wstring caption;
    std::wstring text;
    HICON icon = nullptr;
};

// The icon beside the text, or null.
inline HICON box_icon(HWND dialog)
{
    HWND child = nullptr;
    while ((child = FindWindowExW(dialog, child, L"STATIC", nullptr)) != nullptr) {
        if ((GetWindowLongW(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON && IsWindowVisible(child))
            return reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
    }
    return nullptr;
}

// Makes a file unwritable during its lifetime. The read-only attribute alone does not stop a privileged user.
class Unwritable {
public:
    explicit Unwritable(std::wstring file)
        : file_(std::move(file))
    {
        SetFileAttributesW(file_.c_str(), FILE_ATTRIBUTE_READONLY);
        handle_ = CreateFileW(file_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
            FILE_ATTRIBUTE_NORMAL, nullptr);
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
    }
    ~Unwritable()
    {
        CloseHandle(handle_);
        SetFileAttributesW(file_.c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    Unwritable(const Unwritable&) = delete;
    Unwritable& operator=(const Unwritable&) = delete;

private:
    std::wstring file_;
    HANDLE handle_;
};

// Edits the Book's pages itself from when it is shown until it is hidden.
class EditingWindow : public ovlib::SubWnd, public app::BusyWindow {
public:
    explicit EditingWindow(ovlib::Wnd* parent)
        : SubWnd(parent, 0)
    {
    }
    void show(bool visible) override
    {
        is_open_ = visible;
        SubWnd::show(visible);
    }
    bool is_open() const override { return is_open_; }
    void close() override { show(false); }

private:
    bool is_open_ = false;
};

class AppWindow : public testing::Test {
protected:
    AppWindow()
    {
        ovlib::WinApp::instance = GetModuleHandleW(nullptr);
        ovlib::WinApp::data_root = root_.path();
        CreateDirectoryW(root_.file(L"dat").c_str(), nullptr);
        core::hold_data_root(ovlib::WinApp::data_root);
        core::init_folders(root_.path());
        core::settings() = {};
    }
    ~AppWindow() override
    {
        close();
        core::settings() = {};
        // The current directory must not be in the temporary folder, which is deleted next.
        SetCurrentDirectoryW(L"C:\\");
    }

    static book::Page page(const wchar_t* first, const wchar_t* second = L"", const wchar_t* third = L"")
    {
        book::Page made;
        made.stamp = L"2020010203040520200102030405";
        made.text = { first, second, third };
        made.back_color.fill(0xFFFFFF);
        return made;
    }
    static book::Book book_of(std::initializer_list<book::Page> pages)
    {
        book::Book made;
        made.pages.assign(pages);
        return made;
    }

    std::wstring file(const std::wstring& name) const { return root_.file(name); }
    book::Book saved(const std::wstring& name = L"手帖.bok") const
    {
        book::Book read;
        std::wstring error;
        EXPECT_TRUE(read.load(file(name), error, [](const std::wstring&) { return true; })) << name.c_str();
        return read;
    }
    void set_history(std::initializer_list<std::wstring> paths) const
    {
        book::HistoryList list{ core::history_file(core::folders()) };
        for (auto path = std::rbegin(paths); path != std::rend(paths); ++path)
            list.add(*path);
    }
    std::vector<std::wstring> history() const
    {
        book::HistoryList list{ core::history_file(core::folders()) };
        list.load();
        return list.entries();
    }

    bool create()
    {
        window_ = std::make_unique<app::AppWnd>();
        return window_->create(core::program_name);
    }
    // Saves `book`, adds it to the history and opens the window with it.
    void open(book::Book book)
    {
        ASSERT_TRUE(book.save_to(file(L"手帖.bok")));
        set_history({ file(L"手帖.bok") });
        ASSERT_TRUE(create());
        pump();
    }
    void open(std::initializer_list<book::Page> pages) { open(book_of(pages)); }
    void close()
    {
        if (window_ && window_->hwnd())
            window_->send(WM_CLOSE, 0, 0);
        // If the main window refuses its creation, some systems do not destroy the windows that it owns.
        if (window_)
            window_->destroy_children();
        take_quit();
        window_.reset();
    }

    // Destroys the window without closing it, so nothing is stopped or saved.
    void abandon()
    {
        DestroyWindow(window_->hwnd());
        window_.reset();
        take_quit();
    }

    app::AppWnd& window() { return *window_; }
    const book::Book& book() const { return window_->book(); }
    HWND box(int id) const { return GetDlgItem(window_->hwnd(), id); }
    std::wstring box_text(int id) const { return text_of(box(id)); }
    std::wstring title() const { return window_->text(); }
    void command(int id, std::int64_t lparam = 0, int code = 0) { window_->send_command(id, code, lparam); }
    void type(int id, const std::wstring& text) const
    {
        SendMessageW(box(id), EM_SETSEL, 0, 0);
        for (const wchar_t unit : text)
            SendMessageW(box(id), WM_CHAR, unit, 1);
    }
    bool is_modified(int id) const { return SendMessageW(box(id), EM_GETMODIFY, 0, 0) != 0; }

    // Runs `action`, which must show one box per entry of `buttons`, and presses those buttons.
    static std::vector<MetBox> answered_all(
        const std::vector<int>& buttons, const std::function<void()>& action,
        const std::function<void()>& meanwhile = [] {})
    {
        std::vector<MetBox> met;
        std::thread user{ [&, thread = GetCurrentThreadId()] {
            for (const int button : buttons) {
                if (!poll_until([&] { return dialog_of(thread) != nullptr; }))
                    return;
                HWND const dialog = dialog_of(thread);
                constexpr int text_id = 65535;
                met.push_back({ text_of(dialog), text_of(GetDlgItem(dialog, text_id)), box_icon(dialog) });
                meanwhile();
                PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
                poll_until([&] { return !IsWindow(dialog); });
            }
        } };
        action();
        user.join();
        return met;
    }
    static MetBox answered(
        int button, const std::function<void()>& action, const std::function<void()>& meanwhile = [] {})
    {
        const auto met = answered_all({ button }, action, meanwhile);
        return met.empty() ? MetBox{} : met.front();
    }

private:
    test_support::TempFolder root_;
    std::unique_ptr<app::AppWnd> window_;
};

} // namespace gui
