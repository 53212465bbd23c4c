#include "ovlib/thread.hpp"
#include "ovlib/handles.hpp"
#include <windows.h>
#include <exception>
#include <limits>
#include <process.h>
#include <system_error>

namespace ovlib {

namespace {

[[noreturn]] void raise(std::errc error)
{
    throw std::system_error(std::make_error_code(error));
}

} // namespace

struct Thread::Record {
    UniqueKernelHandle handle;
    unsigned id = 0;

    bool is_joinable() const { return static_cast<bool>(handle); }
    void join() { join_after(WaitForSingleObject(handle_of_another(), INFINITE)); }
    // CancelSynchronousIo affects only the call that is running at that moment, so it is repeated until the
    // thread has ended. False after `limit` milliseconds.
    bool join_breaking_off(ULONGLONG limit)
    {
        constexpr DWORD pause = 10; // milliseconds
        const ULONGLONG begin = GetTickCount64();
        DWORD waited = WAIT_TIMEOUT;
        while ((waited = WaitForSingleObject(handle_of_another(), pause)) == WAIT_TIMEOUT) {
            if (GetTickCount64() - begin >= limit)
                return false;
            CancelSynchronousIo(handle.get());
        }
        join_after(waited);
        return true;
    }

private:
    HANDLE handle_of_another() const
    {
        if (id == GetCurrentThreadId())
            raise(std::errc::resource_deadlock_would_occur);
        return handle.get();
    }
    void join_after(DWORD waited)
    {
        if (waited == WAIT_FAILED)
            raise(std::errc::no_such_process);
        handle.reset();
    }
};

Thread::Thread() = default;

Thread::~Thread()
{
    if (record_ != nullptr && record_->is_joinable())
        std::terminate();
}

bool Thread::start(void* arg, std::uint32_t flag_value)
{
    if (record_ != nullptr)
        return true;
    auto record = std::make_unique<Record>();
    stop_flag_.exchange(flag_value);
    argument_ = arg;
    // Suspended until the record is complete, because the thread itself may use it.
    record->handle.reset(reinterpret_cast<HANDLE>(
        _beginthreadex(nullptr, 0, &Thread::enter, this, CREATE_SUSPENDED, &record->id)));
    if (!record->is_joinable())
        raise(std::errc::resource_unavailable_try_again);
    record_ = std::move(record);
    ResumeThread(record_->handle.get());
    return true;
}

template <class Join> bool Thread::stop_with(Join join)
{
    if (record_ == nullptr)
        return true;
    stop_flag_.exchange(1);
    if (record_->is_joinable() && !join(*record_))
        return false;
    record_.reset();
    return true;
}

void Thread::stop()
{
    stop_with([](Record& record) {
        record.join();
        return true;
    });
}

void Thread::stop_breaking_off()
{
    constexpr ULONGLONG for_ever = std::numeric_limits<ULONGLONG>::max();
    stop_with([](Record& record) { return record.join_breaking_off(for_ever); });
}

bool Thread::stop_breaking_off_within(std::uint32_t limit)
{
    return stop_with([limit](Record& record) { return record.join_breaking_off(limit); });
}

// An exception that leaves run ends the process, as in a std::thread.
unsigned __stdcall Thread::enter(void* self) noexcept
try {
    static_cast<Thread*>(self)->run();
    return 0;
} catch (...) {
    std::terminate();
}

} // namespace ovlib
