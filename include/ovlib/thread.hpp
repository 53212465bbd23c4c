// A thread that its owner asks to stop and waits for.
#pragma once
#include <atomic>
#include <cstdint>
#include <memory>

namespace ovlib {

// Derive, write run(), and call stop() before the object ends: one that still holds its thread then
// terminates the process, as a standard thread does. run() must not throw.
class Thread {
public:
    Thread();
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;
    virtual ~Thread();
    // On the new thread. Reads stop_flag at its checkpoints and returns when it is 1.
    virtual void run() = 0;

    // Starts with `flag_value` in stop_flag. With a thread held already nothing changes. Always true; a
    // thread that cannot be started raises std::system_error (resource_unavailable_try_again).
    bool start(void* arg, std::uint32_t flag_value);
    // Stores 1, joins, and is idle again; nothing when idle. From the thread itself: std::system_error
    // (resource_deadlock_would_occur); when the system cannot join it: (no_such_process), and it is still
    // held.
    void stop();
    // The same for a thread that may wait on the file system, where a dead share takes long to answer: the
    // call it waits in is broken off and fails, again and again until the thread has ended.
    void stop_breaking_off();
    // The same for at most about `limit` milliseconds. False when the thread runs on, in a wait that cannot
    // be broken off: it is held as before, and may be stopped again.
    bool stop_breaking_off_within(std::uint32_t limit);

    bool is_held() const { return record_ != nullptr; }
    std::uint32_t stop_flag() const { return stop_flag_; }
    // Returns the old value.
    std::uint32_t exchange_stop_flag(std::uint32_t value) { return stop_flag_.exchange(value); }

protected:
    // What start was given.
    void* argument() const { return argument_; }

private:
    struct Record;
    template <class Join> bool stop_with(Join join);
    static unsigned __stdcall enter(void* self) noexcept;

    std::unique_ptr<Record> record_;
    std::atomic<std::uint32_t> stop_flag_ = 0;
    void* argument_ = nullptr;
};

} // namespace ovlib
