// A thread that its owner can stop and join.
#pragma once
#include <atomic>
#include <cstdint>
#include <memory>

namespace ovlib {

// Derive, override run(), and call stop() before the object is destroyed. If it still holds its thread then,
// it terminates the process, as a std::thread does. run() must not throw.
class Thread {
public:
    Thread();
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;
    virtual ~Thread();
    // Runs on the new thread. Checks stop_flag regularly and returns when it is 1.
    virtual void run() = 0;

    // Starts with `flag_value` in stop_flag. Does nothing if a thread is held already. Always returns true;
    // throws std::system_error (resource_unavailable_try_again) if no thread can be started.
    bool start(void* arg, std::uint32_t flag_value);
    // Sets the flag to 1 and joins; does nothing without a thread. Throws std::system_error:
    // resource_deadlock_would_occur if called from the thread itself, no_such_process if the system cannot
    // join the thread, which is still held then.
    void stop();
    // The same for a thread that may wait for the file system, where a dead share takes long to answer. The
    // system call it waits in is cancelled and fails, repeatedly until the thread has ended.
    void stop_breaking_off();
    // The same for at most about `limit` milliseconds. False if the thread still runs, in a call that cannot
    // be cancelled. It is still held and can be stopped again.
    bool stop_breaking_off_within(std::uint32_t limit);

    bool is_held() const { return record_ != nullptr; }
    std::uint32_t stop_flag() const { return stop_flag_; }
    // Returns the previous value.
    std::uint32_t exchange_stop_flag(std::uint32_t value) { return stop_flag_.exchange(value); }

protected:
    // The argument of start.
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
