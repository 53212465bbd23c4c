#include "media/wnd/background_thread.hpp"
#include "media/system_paths.hpp"
#include "media/wnd/shell_link.hpp"
#include "platform/process_log.hpp"
#include <objbase.h>
#include <utility>

namespace media {

namespace {

class Apartment {
public:
    Apartment()
        : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))
    {
    }
    ~Apartment()
    {
        if (SUCCEEDED(result_))
            CoUninitialize();
    }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

private:
    HRESULT result_;
};

class StopFlag : public WorkerControl {
public:
    explicit StopFlag(const ovlib::Thread& thread)
        : thread_(thread)
    {
    }
    bool is_stopped() const override { return thread_.stop_flag() == 1; }
    void yield() override { Sleep(0); }

private:
    const ovlib::Thread& thread_;
};

} // namespace

BackgroundThread::BackgroundThread(std::wstring link_prefix)
    : link_prefix_(std::move(link_prefix))
{
}

// A window whose creation failed gets no WM_CLOSE, so the worker may still be running here.
BackgroundThread::~BackgroundThread()
{
    stop_breaking_off();
}

QueueCounts BackgroundThread::queue_whole_book(const book::Book& book, HWND owner)
{
    const std::scoped_lock hold{ queue_.lock() };
    owner_ = owner;
    return queue_.replace(media::every_entry(book));
}

QueueCounts BackgroundThread::queue_paths(const std::vector<std::wstring>& paths, HWND owner)
{
    const std::scoped_lock hold{ queue_.lock() };
    owner_ = owner;
    return queue_.merge(paths);
}

// An exception that left the thread would end the process.
void BackgroundThread::run()
try {
    make_links_in_apartment();
} catch (...) {
    ovlib::WinApp::process_log() << L"BackgroundThread の処理に失敗\r\n";
}

void BackgroundThread::make_links_in_apartment()
{
    const std::scoped_lock hold{ queue_.lock() };
    const Apartment apartment;
    ShellLink store{ owner_ }; // destroyed before the apartment
    HashedLinkNames names{ link_prefix_ };
    SystemPaths paths;
    StopFlag control{ *this };
    make_links(queue_, store, names, paths, control);
}

} // namespace media
