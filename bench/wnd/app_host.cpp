#include "bench/wnd/app_host.hpp"
#include "book/history_list.hpp"
#include "core/data_root.hpp"
#include "core/folders.hpp"
#include "core/settings.hpp"
#include "core/titles.hpp"
#include "look/wnd/myslider.hpp"
#include "ovlib/win_app.hpp"
#include "tests/support/built_files.hpp"
#include "tests/support/gui_pump.hpp"
#include <commctrl.h>

namespace bench {

DataRoot::DataRoot(book::Book& book)
{
    namespace fs = std::filesystem;
    fs::copy(test_support::dist_path(), folder_.path(), fs::copy_options::recursive);
    const std::wstring file = folder_.file(L"手帖.bok");
    if (!book.save_to(file))
        throw std::runtime_error("no room for a copy of the Book");
    core::init_folders(folder_.path());
    book::HistoryList(core::history_file(core::folders())).add(file);
}

AppHost::AppHost(book::Book& book)
    : old_folder_(std::filesystem::current_path())
    , root_(book)
{
    const INITCOMMONCONTROLSEX request{ sizeof request, ICC_WIN95_CLASSES };
    InitCommonControlsEx(&request);
    ovlib::WinApp::instance = GetModuleHandleW(nullptr);
    ovlib::WinApp::data_root = root_.folder();
    core::hold_data_root(ovlib::WinApp::data_root);
    core::settings() = {};
    window_ = std::make_unique<app::AppWnd>();
    if (!window_->create(core::program_name))
        throw std::runtime_error("no main window");
    SetForegroundWindow(window_->hwnd());
    settle();
}

AppHost::~AppHost()
{
    window_->send(WM_CLOSE, 0, 0);
    gui::take_quit();
    window_.reset();
    // The current directory must not be the temporary folder, which is deleted next.
    std::filesystem::current_path(old_folder_);
}

void AppHost::settle() const
{
    gui::pump();
    GdiFlush();
}

void AppHost::command(int id) const
{
    window_->send_command(id, 0, 0);
    settle();
}

void AppHost::go_to(std::size_t position) const
{
    auto& slider = the<look::MySlider>();
    slider.value = static_cast<std::int32_t>(position);
    slider.notify(static_cast<int>(ovlib::SliderCode::thumb_track), slider.value);
    settle();
}

} // namespace bench
