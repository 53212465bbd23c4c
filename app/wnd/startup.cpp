#include "app/wnd/startup.hpp"
#include "app/failures.hpp"
#include "app/wnd/app_bitmaps.hpp"
#include "app/wnd/appwnd.hpp"
#include "core/data_root.hpp"
#include "core/folders.hpp"
#include "core/titles.hpp"
#include "ovlib/gui/gdip.hpp"
#include "ovlib/handles.hpp"
#include "ovlib/system_error.hpp"
#include "ovlib/win_app.hpp"
#include "platform/process_log.hpp"
#include <commctrl.h>
#include <memory>
#include <new>
#include <ole2.h>

namespace app {

namespace {

constexpr int failed = -1;

void tell(const wchar_t* text, BoxStyle style)
{
    MessageBoxW(nullptr, text, core::program_name, static_cast<UINT>(style));
}

// The guard against a second instance. Held for the life of the process.
struct OwnedMutex {
    using Handle = HANDLE;
    static Handle invalid() noexcept { return nullptr; }
    static void close(Handle mutex) noexcept
    {
        ReleaseMutex(mutex);
        CloseHandle(mutex);
    }
};
using OneInstance = ovlib::unique_handle<OwnedMutex>;

// CreateMutexW returns a handle even if another instance holds the mutex. Only the error code shows the
// difference. The result is empty in that case.
OneInstance become_the_instance()
{
    constexpr auto name = L"a1b2c3d4e5f647a89b0cd1e2f3a4b5c69fa72d38b5c1440eacdf81e76b03a1cf";
    OneInstance instance{ CreateMutexW(nullptr, TRUE, name) };
    if (GetLastError() == ERROR_ALREADY_EXISTS)
        instance.reset();
    return instance;
}

class OleSession {
public:
    OleSession()
        : is_ready_(SUCCEEDED(OleInitialize(nullptr)))
    {
    }
    ~OleSession()
    {
        if (is_ready_)
            OleUninitialize();
    }
    OleSession(const OleSession&) = delete;
    OleSession& operator=(const OleSession&) = delete;

    bool is_ready() const { return is_ready_; }

private:
    bool is_ready_;
};

void start_common_controls()
{
    const INITCOMMONCONTROLSEX request{ sizeof request, ICC_WIN95_CLASSES };
    InitCommonControlsEx(&request);
}

// A worker that hangs in a system call must not keep the process from ending. What it uses is not destroyed.
// The usual way out would wait for locks that such a thread may hold, so the process is terminated.
int end_window(AppWnd& window, int result)
{
    if (!window.end_background_work())
        TerminateProcess(GetCurrentProcess(), static_cast<UINT>(result));
    return result;
}

int run_window()
{
    const std::unique_ptr<AppWnd> window{ new (std::nothrow) AppWnd };
    if (!window) {
        tell(L"Error: リソースの割り当てに失敗", BoxStyle::error);
        return failed;
    }
    if (!window->create(core::program_name)) {
        tell(L"Error: ウィンドウの作成に失敗", BoxStyle::error);
        return end_window(*window, failed);
    }
    window->message_loop();
    free_app_bitmaps();
    ovlib::WinApp::process_log().flush();
    return end_window(*window, 0);
}

int run_with_libraries()
{
    start_common_controls();
    const OleSession ole;
    if (!ole.is_ready()) {
        tell(L"Error: COM & OLE の初期化に失敗", BoxStyle::error);
        return failed;
    }
    const ovlib::GDIPSession gdip;
    ovlib::fill_image_extensions();
    if (!gdip.is_ready()) {
        tell(L"Error: GDI+ の初期化に失敗", BoxStyle::error);
        return failed;
    }
    return run_window();
}

} // namespace

int run_application()
{
    const OneInstance instance = become_the_instance();
    if (!instance) {
        tell(L"This application is already running.", BoxStyle::warning);
        return failed;
    }
    // Must precede the first window: its creation depends on the awareness.
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_UNAWARE_GDISCALED);
    ovlib::WinApp::process_log().set_error_text(&ovlib::system_error_text);
    core::hold_data_root(ovlib::WinApp::data_root);
    core::set_current_directory(L"");
    core::init_folders(ovlib::WinApp::data_root);
    load_app_bitmaps();
    return run_with_libraries();
}

} // namespace app
