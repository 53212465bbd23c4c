// The queue of paths for which a worker makes links, and the start, run and resumption of that worker.
#pragma once
#include "book/book.hpp"
#include "media/entry_list.hpp"
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

// Every entry of every page in stored order, including addresses and duplicates.
EntryList every_entry(const book::Book& book);

// The operations take the queue's lock, and the worker holds it for a whole run. So the worker must be
// stopped before anything is queued.
class ShortcutQueue {
public:
    // Replaces all entries, including those an interrupted run left.
    QueueCounts replace(EntryList entries);
    // Puts the paths before the entries that an interrupted run left.
    QueueCounts merge(const std::vector<std::wstring>& paths);

    std::recursive_mutex& lock() const { return lock_; }
    // Call with the lock held.
    const EntryList& entries() const { return entries_; }
    // The number of leading entries that are done.
    std::size_t resume_index() const { return resume_index_; }

    // A run reports that it begins, where it was stopped, or that it is complete.
    void begin_run() { is_interrupted_ = false; }
    void interrupt_at(std::size_t index);
    void finish();
    bool is_interrupted() const { return is_interrupted_; }

private:
    mutable std::recursive_mutex lock_;
    EntryList entries_;
    std::size_t resume_index_ = 0;
    std::atomic<bool> is_interrupted_ = false;
};

// How a run is interrupted between two entries.
class WorkerControl {
public:
    virtual ~WorkerControl() = default;
    virtual bool is_stopped() const = 0;
    virtual void yield() = 0;
};

// The worker's run: makes a link for each entry that exists and has none. Entries are used as written, so a
// relative path is hashed as a relative path. A failed entry is skipped and tried again when it is queued the
// next time. If the store or the names are not ready, the queue is left unchanged.
void make_links(
    ShortcutQueue& queue, LinkStore& store, LinkNames& names, PathQuestions& paths, WorkerControl& control);

struct ShortcutStart {
    bool is_cleaning_up = false;
    bool auto_file_search = true;
    std::wstring link_folder; // without a trailing separator
};

// The main window, as starting the worker needs it.
class ShortcutStarter {
public:
    virtual ~ShortcutStarter() = default;
    virtual void log(const std::wstring& line) = 0;
    virtual void warn(const std::wstring& text) = 0;
    // True if no worker is running afterwards. One that hangs in a system call may not stop in time.
    virtual bool stop_worker() = 0;
    virtual bool start_worker() = 0;
    virtual bool has_folder(const std::wstring& path) = 0;
    virtual bool create_folder(const std::wstring& path) = 0;
};

// Starts the worker; true if it was started. Calls `queue_entries` while no worker is running.
bool start_shortcut_creation(
    const ShortcutStart& start, ShortcutStarter& starter, const std::function<QueueCounts()>& queue_entries);

} // namespace media
