// The thread that makes the links of the files that a Book names.
#pragma once
#include "media/shortcut_queue.hpp"
#include "ovlib/thread.hpp"
#include <string>
#include <vector>
#include <windows.h>

namespace book {
class Book;
}

namespace media {

// Queue while it is stopped, then start it. It works on copies of the paths, in a COM apartment of its own,
// and shows nothing: what fails is passed over. Stop it by stop_breaking_off, for its paths may lie on a
// share that does not answer; its end does so by itself.
class BackgroundThread : public ovlib::Thread {
public:
    // `link_prefix`: the folder of the links with its separator.
    explicit BackgroundThread(std::wstring link_prefix);
    ~BackgroundThread() override;
    void run() override;

    // Instead of what was left: every entry of every page.
    QueueCounts queue_whole_book(const book::Book& book, HWND owner);
    // Ahead of what was left.
    QueueCounts queue_paths(const std::vector<std::wstring>& paths, HWND owner);
    const ShortcutQueue& queue() const { return queue_; }

private:
    void make_links_in_apartment();

    ShortcutQueue queue_;
    HWND owner_ = nullptr; // under the queue's lock
    std::wstring link_prefix_;
};

} // namespace media
