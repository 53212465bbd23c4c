// The links by which moved files are found again. They are created in the background after a load.
#pragma once
#include "app/wnd/main_talk.hpp"
#include "media/moved_file_search.hpp"
#include "media/shortcut_queue.hpp"
#include "media/wnd/background_thread.hpp"
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace app {

class LinkMaker {
public:
    // All must outlive the maker.
    LinkMaker(const ovlib::Wnd& window, Talk& talk, const book::Book& book);

    // True if a worker was started: for every entry of the Book, or for these paths before what an earlier
    // run left over.
    bool start_shortcut_creation_async();
    bool start_shortcut_creation_async(const std::vector<std::wstring>& paths);

    // Prevents further work from starting.
    void close() { is_closing_ = true; }
    // Stops the worker. False if it hangs in a system call: after ten seconds, or at once if it has hung
    // before. In that case nothing that it uses may be destroyed, and the process must end without it.
    bool end_background_work();

private:
    bool start_shortcut_creation(const std::function<media::QueueCounts()>& queue_entries);

    const ovlib::Wnd& window_;
    Talk& talk_;
    const book::Book& book_;
    media::BackgroundThread thread_;
    bool is_closing_ = false;
    bool has_given_up_ = false; // the worker did not end in time
};

// The folder of the links, without a trailing separator.
std::wstring link_folder();

} // namespace app
