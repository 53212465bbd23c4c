// The paths whose links a worker makes, and how its work is begun, done and resumed.
#pragma once
#include "book/book.hpp"
#include "media/file_links.hpp"
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace media {

struct QueueCounts {
    std::uint64_t added = 0;
    std::uint64_t pending = 0;

    friend bool operator==(const QueueCounts&, const QueueCounts&) = default;
};

// Every entry of every page in stored order, addresses and repetitions included.
std::vector<std::wstring> every_entry(const book::Book& book);

// The lock is the queue's own: its operations take it, and the worker holds it for the whole of a run. So the
// worker must be stopped before anything is queued.
class ShortcutQueue {
public:
    // Drops what was left.
    QueueCounts replace(std::vector<std::wstring> entries);
    // The new paths go ahead of what an interrupted run left; nothing changes when there is neither.
    QueueCounts merge(const std::vector<std::wstring>& paths);

    std::recursive_mutex& lock() const { return lock_; }
    // Under the lock.
    const std::vector<std::wstring>& entries() const { return entries_; }
    // How many leading entries are done.
    std::size_t resume_index() const { return resume_index_; }

    // What a run tells: that it begins, where it was stopped, that nothing is left.
    void begin_run() { is_interrupted_ = false; }
    void interrupt_at(std::size_t index);
    void finish();
    bool is_interrupted() const { return is_interrupted_; }

private:
    mutable std::recursive_mutex lock_;
    std::vector<std::wstring> entries_;
    std::size_t resume_index_ = 0;
    std::atomic<bool> is_interrupted_ = false;
};

// Between two entries of a run.
class WorkerControl {
public:
    virtual ~WorkerControl() = default;
    virtual bool is_stopped() const = 0;
    virtual void yield() = 0;
};

// The worker's run: a link for each entry that exists and has none. Entries are taken as written, so a
// relative one is hashed as such. Failures are passed over: the entry is tried again when it is queued the
// next time. Without store or names the queue stays as it is.
void make_links(
    ShortcutQueue& queue, LinkStore& store, LinkNames& names, PathQuestions& paths, WorkerControl& control);

struct ShortcutStart {
    bool is_cleaning_up = false;
    bool auto_file_search = true;
    std::wstring link_folder; // without a trailing separator
};

// What starting needs of the main window.
class ShortcutStarter {
public:
    virtual ~ShortcutStarter() = default;
    virtual void log(const std::wstring& line) = 0;
    virtual void warn(const std::wstring& text) = 0;
    // True when there is none any more. One that hangs in a call to the system may not be stopped in time.
    virtual bool stop_worker() = 0;
    virtual bool start_worker() = 0;
    virtual bool has_folder(const std::wstring& path) = 0;
    virtual bool create_folder(const std::wstring& path) = 0;
};

// True when a worker was started. `queue_entries` runs while none does.
bool start_shortcut_creation(
    const ShortcutStart& start, ShortcutStarter& starter, const std::function<QueueCounts()>& queue_entries);

} // namespace media
