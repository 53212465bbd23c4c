// The links by which moved files are found again: made in the background, used on demand.
#include "app/file_actions.hpp"
#include "app/page_note.hpp"
#include "app/wnd/appwnd.hpp"
#include "core/command_ids.hpp"
#include "core/data_root.hpp"
#include "core/folders.hpp"
#include "media/display_name.hpp"
#include "media/moved_file_search.hpp"
#include "media/system_paths.hpp"
#include "media/wnd/shell_link.hpp"
#include "platform/file.hpp"
#include "platform/process_log.hpp"
#include <system_error>

namespace app {

namespace command = core::command;
namespace refresh = core::refresh;

namespace {

std::wstring link_folder()
{
    return core::full_path(core::folders().shortcut);
}

class Starter : public media::ShortcutStarter {
public:
    Starter(AppWnd& window, media::BackgroundThread& thread)
        : window_(window)
        , thread_(thread)
    {
    }
    void log(const std::wstring& line) override { ovlib::WinApp::process_log() << line; }
    void warn(const std::wstring& text) override { window_.show_message(text, BoxStyle::warning); }
    bool stop_worker() override { return window_.end_background_work(); }
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
    AppWnd& window_;
    media::BackgroundThread& thread_;
};

} // namespace

bool AppWnd::start_shortcut_creation_async()
{
    return start_shortcut_creation([this] { return shortcut_thread_.queue_whole_book(book_, hwnd()); });
}

bool AppWnd::start_shortcut_creation_async(const std::vector<std::wstring>& paths)
{
    return start_shortcut_creation([&] { return shortcut_thread_.queue_paths(paths, hwnd()); });
}

bool AppWnd::start_shortcut_creation(const std::function<media::QueueCounts()>& queue_entries)
{
    Starter starter{ *this, shortcut_thread_ };
    const bool is_wanted = book_.header.auto_file_search != 0;
    return media::start_shortcut_creation({ is_closing_, is_wanted, link_folder() }, starter, queue_entries);
}

// Acts only while the entry that was searched for still stands: boxes, and the shell's own search, let the
// page and the selection change.
class AppWnd::MovedFileTalk : public media::SearchTalk {
public:
    MovedFileTalk(AppWnd& window, std::optional<EntryNote> asked)
        : window_(window)
        , asked_(std::move(asked))
    {
    }
    void warn(const std::wstring& text) override { window_.show_message(text, BoxStyle::warning); }
    bool ask(const std::wstring& text) override
    {
        return window_.show_message(text, BoxStyle::question) == answer_yes;
    }
    void offer_removal() override
    {
        if (stands())
            window_.send_command(command::remove_file, 0, 0);
    }
    bool replace_entry(const std::wstring& found) override
    {
        if (!stands() || !app::replace_entry(window_.book_, *asked_, found))
            return false;
        const auto row = static_cast<int>(asked_->place);
        window_.controls_.file_combo().replace(row, media::display_name(found), true);
        return true;
    }

private:
    bool stands() const { return asked_ && !window_.is_gone() && still_stands(*asked_, window_.book_); }

    AppWnd& window_;
    std::optional<EntryNote> asked_;
};

core::RefreshMask AppWnd::search_moved_file()
{
    const book::Page* page = book_.current_page();
    if (!page)
        return 0;
    core::set_current_directory(L"");
    media::ShellLink link{ hwnd() };
    media::HashedLinkNames names{ link_folder() + L"\\" };
    media::SystemPaths paths;
    MovedFileTalk talk{ *this, note_entry(book_) };
    const std::wstring* entry = current_entry(*page);
    const std::wstring searched = entry ? *entry : std::wstring{};
    return media::search_moved_file(searched, { link, names, paths, talk }) ? refresh::file_choice : 0;
}

core::Outcome AppWnd::on_search_moved_file(const CommandInput&)
{
    return search_moved_file() != 0 ? core::Outcome::done : core::Outcome::failed;
}

} // namespace app
