#include "app/wnd/link_maker.hpp"
#include "core/data_root.hpp"
#include "core/folders.hpp"
#include "platform/file.hpp"
#include "platform/process_log.hpp"
#include <system_error>

namespace app {

namespace {

class Starter : public media::ShortcutStarter {
public:
    Starter(LinkMaker& maker, Talk& talk, media::BackgroundThread& thread)
        : maker_(maker)
        , talk_(talk)
        , thread_(thread)
    {
    }
    void log(const std::wstring& line) override { ovlib::WinApp::process_log() << line; }
    void warn(const std::wstring& text) override { talk_.tell(text, BoxStyle::warning); }
    bool stop_worker() override { return maker_.end_background_work(); }
    bool start_worker() override
    {
        try {
            return thread_.start(nullptr, 0);
        } catch (const std::system_error&) {
            return false;
        }
    }
    bool has_folder(const std::wstring& path) override { return platform::is_folder(path); }
    bool create_folder(const std::wstring& path) override { return platform::create_folder(path); }

private:
    LinkMaker& maker_;
    Talk& talk_;
    media::BackgroundThread& thread_;
};

} // namespace

std::wstring link_folder()
{
    return core::full_path(core::folders().shortcut);
}

LinkMaker::LinkMaker(const ovlib::Wnd& window, Talk& talk, const book::Book& book)
    : window_(window)
    , talk_(talk)
    , book_(book)
    , thread_(link_folder() + L"\\")
{
}

bool LinkMaker::start_shortcut_creation_async()
{
    return start_shortcut_creation([this] { return thread_.queue_whole_book(book_, window_.hwnd()); });
}

bool LinkMaker::start_shortcut_creation_async(const std::vector<std::wstring>& paths)
{
    return start_shortcut_creation([&] { return thread_.queue_paths(paths, window_.hwnd()); });
}

bool LinkMaker::start_shortcut_creation(const std::function<media::QueueCounts()>& queue_entries)
{
    Starter starter{ *this, talk_, thread_ };
    const bool is_wanted = book_.header.auto_file_search != 0;
    return media::start_shortcut_creation({ is_closing_, is_wanted, link_folder() }, starter, queue_entries);
}

bool LinkMaker::end_background_work()
{
    constexpr std::uint32_t longest_wait = 10'000; // milliseconds
    const std::uint32_t limit = has_given_up_ ? 0 : longest_wait;
    has_given_up_ = !thread_.stop_breaking_off_within(limit);
    return !has_given_up_;
}

} // namespace app
