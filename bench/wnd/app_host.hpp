// Hosts the main window in the bench's process. Each host, and each start of the program, has a data root of
// its own.
#pragma once
#include "app/wnd/appwnd.hpp"
#include "book/book.hpp"
#include "ovlib/gui/gdip.hpp"
#include "tests/support/temp_folder.hpp"
#include <windows.h>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

namespace bench {

// A copy of the shipped files with a Book that the program opens when it starts.
class DataRoot {
public:
    explicit DataRoot(book::Book& book);

    std::wstring folder() const { return folder_.path(); }
    std::wstring program() const { return folder_.file(L"pagewick.exe"); }

private:
    test_support::TempFolder folder_;
};

class AppHost {
public:
    explicit AppHost(book::Book& book);
    AppHost(const AppHost&) = delete;
    AppHost& operator=(const AppHost&) = delete;
    ~AppHost();

    app::AppWnd& window() { return *window_; }
    const book::Book& book() const { return window_->book(); }
    HWND control(int id) const { return GetDlgItem(window_->hwnd(), id); }
    // The only control or owned window of this class; null if it was not created yet.
    template <class Control> Control* find() const;
    // Throws if it was not created yet.
    template <class Control> Control& the() const;

    // Serves messages until nothing is left to paint.
    void settle() const;
    void command(int id) const;
    // Goes to a page by the notification that the slider sends.
    void go_to(std::size_t position) const;

private:
    std::filesystem::path old_folder_;
    DataRoot root_;
    ovlib::GDIPSession gdip_;
    std::unique_ptr<app::AppWnd> window_;
};

template <class Control> Control* AppHost::find() const
{
    for (ovlib::Wnd* wnd = ovlib::Wnd::first(); wnd; wnd = wnd->next()) {
        auto* const found = dynamic_cast<Control*>(wnd);
        HWND const hwnd = found ? found->hwnd() : nullptr;
        if (hwnd && (GetParent(hwnd) == window_->hwnd() || GetWindow(hwnd, GW_OWNER) == window_->hwnd()))
            return found;
    }
    return nullptr;
}

template <class Control> Control& AppHost::the() const
{
    auto* const found = find<Control>();
    if (!found)
        throw std::runtime_error("no such control");
    return *found;
}

} // namespace bench
