// Drops on the main window, and the writing of an attachment.
#include "app/wnd/main_drops.hpp"
#include "bench/harness.hpp"
#include "bench/wnd/app_host.hpp"
#include "core/command_ids.hpp"
#include "core/refresh.hpp"
#include "tests/support/drag_data.hpp"
#include "tests/support/gui_driver.hpp"
#include <chrono>
#include <ole2.h>
#include <thread>

namespace bench {

namespace {

namespace command = core::command;
using Clock = std::chrono::steady_clock;
using Paths = std::vector<std::wstring>;
using Source = Microsoft::WRL::ComPtr<test_support::FakeSource>;

constexpr std::size_t file_count = 10'000;
constexpr std::size_t full_count = 90'000;

class OleSession {
public:
    OleSession() { OleInitialize(nullptr); }
    ~OleSession() { OleUninitialize(); }
    OleSession(const OleSession&) = delete;
    OleSession& operator=(const OleSession&) = delete;
};

double ms_since(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

book::Book book_of(std::size_t pages)
{
    book::Book book;
    book::Page page;
    page.stamp = L"2020010203040520200102030405";
    page.text[0] = L"一\r\n";
    book.pages.assign(pages, page);
    return book;
}

Paths files_in(const test_support::TempFolder& folder)
{
    Paths paths;
    for (std::size_t i = 0; i < file_count; ++i)
        paths.push_back(folder.file(L"図" + std::to_wstring(i % 200) + L".txt"));
    for (std::size_t i = 0; i < 200; ++i)
        test_support::write_text(paths[i], L"x");
    return paths;
}

void drop(IDropTarget& target, IDataObject& data)
{
    DWORD effect = DROPEFFECT_COPY;
    target.DragEnter(&data, MK_LBUTTON, {}, &effect);
    effect = DROPEFFECT_COPY;
    target.Drop(&data, 0, {}, &effect);
    if (effect != DROPEFFECT_COPY)
        throw std::runtime_error("the drop was refused");
}

struct Times {
    double question = 0;
    double command = 0;
};

// Drops the files and presses a button of the question.
Times time_drop(AppHost& host, const Paths& paths, int id)
{
    const Source source = ovlib::make_com<test_support::FakeSource>();
    source->offer_files(paths);
    auto* const target = static_cast<IDropTarget*>(GetPropW(host.window().hwnd(), L"OleDropTargetInterface"));
    if (!target)
        throw std::runtime_error("nothing can be dropped");
    Times times;
    Clock::time_point pressed;
    const auto start = Clock::now();
    std::thread user{ [&, thread = GetCurrentThreadId()] {
        const auto question = [thread] {
            return gui::visible_window_of(thread, L"ovlib_drop_option_wnd[34]");
        };
        if (!gui::poll_until([&] { return question() != nullptr; }))
            return;
        times.question = ms_since(start);
        pressed = Clock::now();
        PostMessageW(question(), WM_COMMAND, static_cast<WPARAM>(id), 0);
    } };
    drop(*target, *source.Get());
    gui::pump();
    user.join();
    times.command = ms_since(pressed);
    return times;
}

void add_time(Bench& bench, const std::string& name, double ms, double target_ms)
{
    bench.add({ name, ms, "", 0, 0, target_ms });
}

void run_files(Bench& bench, const Paths& paths)
{
    book::Book book = book_of(1);
    AppHost host{ book };
    const Times times = time_drop(host, paths, command::add_dropped_files);
    add_time(bench, "drop of 10,000 files until the question", times.question, 100);
    const auto start = Clock::now();
    host.window().send_command(
        command::request_refresh, 0, static_cast<std::int64_t>(core::refresh::file_list));
    bench.add(
        { "adding them to the page", times.command, "refreshing the same views", ms_since(start), 0, 0 });
}

void run_pages(Bench& bench, const Paths& paths)
{
    book::Book book = book_of(full_count);
    AppHost host{ book };
    const Times times = time_drop(host, paths, command::add_dropped_pages);
    if (host.book().pages.size() != full_count + file_count)
        throw std::runtime_error("no pages were added");
    add_time(bench, "10,000 pages of them after 90,000", times.command, 2000);
}

// Says yes to every attachment.
class SavingWindow : public ovlib::BaseWnd {
public:
    explicit SavingWindow(std::wstring path)
        : path_(std::move(path))
        , target_(ovlib::make_com<ovlib::DropFiles>(this))
    {
        target_->message = app::drop_notification;
        create(L"");
    }
    ovlib::DropFiles& target() { return *target_.Get(); }
    bool on_message(ovlib::WndMessage& message) override
    {
        if (message.message != app::drop_notification)
            return false;
        if (std::wstring* const name = target_->proposed_name(message.lparam)) {
            *name = path_;
            message.result = 1;
        }
        return true;
    }

private:
    std::wstring path_;
    Microsoft::WRL::ComPtr<ovlib::DropFiles> target_;
};

void write_bare(const std::wstring& path, std::span<const std::byte> bytes)
{
    HANDLE const file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 7, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
}

void run_attachment(Bench& bench, const test_support::TempFolder& folder)
{
    constexpr std::size_t size = 100u << 20;
    const std::wstring path = folder.file(L"添付.bin");
    SavingWindow window{ path };
    // The source delivers a copy each time, so the yardstick asks it too.
    Source source;
    const auto renew = [&] {
        source = ovlib::make_com<test_support::FakeSource>();
        source->offer_attachments({ { L"a.bin", std::string(size, 'x') } });
        platform::remove_file(path);
    };
    bench.run({ .name = "an attachment of 100 MB",
        .subject =
            [&] {
                renew();
                drop(window.target(), *source.Get());
            },
        .against = "the same block by a bare WriteFile",
        .yardstick =
            [&] {
                renew();
                FORMATETC asked = ovlib::memory_format(test_support::contents_format(), 0);
                ovlib::StorageMedium medium;
                medium.get(*source.Get(), asked);
                write_bare(path, ovlib::GlobalBlock{ medium.memory() }.bytes());
            },
        .target_ratio = 1.2,
        .rounds = 5 });
    window.destroy();
    gui::take_quit();
}

} // namespace

void run_drops(Bench& bench)
{
    const OleSession ole;
    const test_support::TempFolder folder;
    const Paths paths = files_in(folder);
    run_files(bench, paths);
    run_pages(bench, paths);
    run_attachment(bench, folder);
}

} // namespace bench
