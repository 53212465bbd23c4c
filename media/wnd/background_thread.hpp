// The thread that creates the links of the files that a Book refers to.
#pragma once
#include "media/shortcut_queue.hpp"
#include "ovlib/thread.hpp"
#include <windows.h>
#include <string>
#include <vector>

namespace book {
class Book;
}

namespace media {

// Queue paths while the thread is stopped, then start it. It works on copies of the paths, in its own COM
// apartment, and shows nothing; failures are skipped. Stop it by stop_breaking_off, because its paths may be
// on a share that does not answer. The destructor does so too.
class BackgroundThread : public ovlib::Thread {
public:
    // `link_prefix`: the folder of the links, with a trailing separator.
    explicit BackgroundThread(std::wstring link_prefix);
    ~BackgroundThread() override;
    void run() override;

    // Replaces the remaining paths by every entry of every page.
    QueueCounts queue_whole_book(const book::Book& book, HWND owner);
    // Puts the paths before the remaining ones.
    QueueCounts queue_paths(const std::vector<std::wstring>& paths, HWND owner);
    const ShortcutQueue& queue() const { return queue_; }

private:
    void make_links_in_apartment();

    ShortcutQueue queue_;
    HWND owner_ = nullptr; // guarded by the queue's lock
    std::wstring link_prefix_;
};

} // namespace media
