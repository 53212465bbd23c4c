// Watches calls of imported functions and messages to windows in this process.
#pragma once
#include <windows.h>
#include <map>

namespace gui {

// During its lifetime, calls of an imported function go to `replacement`. `slot` is the import's address,
// which the linker names after the function:  extern "C" void* __imp_Name;
template <class Function> class ReplacedImport {
public:
    ReplacedImport(void** slot, Function* replacement)
        : slot_(slot)
        , original_(reinterpret_cast<Function*>(*slot))
    {
        write(reinterpret_cast<void*>(replacement));
    }
    ReplacedImport(const ReplacedImport&) = delete;
    ReplacedImport& operator=(const ReplacedImport&) = delete;
    ~ReplacedImport() { write(reinterpret_cast<void*>(original_)); }

    Function* original() const { return original_; }

private:
    void write(void* function) const
    {
        DWORD protection = 0;
        VirtualProtect(slot_, sizeof *slot_, PAGE_READWRITE, &protection);
        *static_cast<void* volatile*>(slot_) = function;
        VirtualProtect(slot_, sizeof *slot_, protection, &protection);
    }

    void** slot_;
    Function* original_;
};

// Counts one message for every window of this thread, including those of the system's classes.
class MessageCount {
public:
    explicit MessageCount(UINT message)
        : message_(message)
        , hook_(SetWindowsHookExW(WH_CALLWNDPROC, &MessageCount::note, nullptr, GetCurrentThreadId()))
    {
        current_ = this;
    }
    MessageCount(const MessageCount&) = delete;
    MessageCount& operator=(const MessageCount&) = delete;
    ~MessageCount()
    {
        UnhookWindowsHookEx(hook_);
        current_ = nullptr;
    }

    int of(HWND hwnd) const
    {
        const auto found = counts_.find(hwnd);
        return found == counts_.end() ? 0 : found->second;
    }

private:
    static LRESULT CALLBACK note(int code, WPARAM wparam, LPARAM lparam)
    {
        const auto* sent = reinterpret_cast<const CWPSTRUCT*>(lparam);
        if (code == HC_ACTION && current_ && sent->message == current_->message_)
            ++current_->counts_[sent->hwnd];
        return CallNextHookEx(nullptr, code, wparam, lparam);
    }

    static inline MessageCount* current_ = nullptr;
    UINT message_;
    HHOOK hook_;
    std::map<HWND, int> counts_;
};

} // namespace gui
