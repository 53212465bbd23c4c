// Dragging between the program under test and another one, which is the test's own process.
#pragma once
#include "driver_window.hpp"
#include "tests/support/drag_data.hpp"
#include <atomic>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace e2e {

// A small window on a thread of its own, from which the user can drag something, and onto which files can be
// dropped.
class DragPartner {
public:
    DragPartner();
    DragPartner(const DragPartner&) = delete;
    DragPartner& operator=(const DragPartner&) = delete;
    ~DragPartner();

    POINT place() const;

    // Takes up what `fill` offers with the left button and leads it to this point. The button stays pressed.
    void drag_to(POINT to, const std::function<void(test_support::FakeSource&)>& fill);
    // Moves the pointer a little. A drag that has just begun does not know of earlier moves.
    static bool moves_on(POINT around);
    // Releases the button. Returns when the drag has ended, unless `is_asked`: the drop shows dialogs first.
    enum class Then { wait, answer_dialogs };
    void release(Then then = Then::wait);
    // Ends a drag by Escape.
    void cancel();
    void wait_for_end() const;
    // The effect that the program reported at the end, and what the drag returned.
    DWORD effect() const { return effect_; }
    HRESULT result() const { return result_; }
    // The effect over the program's window before the release; nullopt if it reported none yet.
    std::optional<DWORD> feedback() const;

    // The files that were dropped on the window so far.
    std::vector<std::wstring> received() const;
    int entries() const { return entries_; } // of drags over the window
    int drops() const { return drops_; }

private:
    class Target;
    class Source;

    void run();
    void drag();
    static LRESULT CALLBACK on_message(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam);

    std::atomic<HWND> hwnd_ = nullptr;
    std::atomic<bool> is_dragging_ = false;
    std::atomic<bool> is_released_ = false;
    std::atomic<DWORD> effect_ = 0;
    std::atomic<HRESULT> result_ = S_OK;
    std::atomic<int> feedback_ = -1;
    std::atomic<int> entries_ = 0;
    std::atomic<int> drops_ = 0;
    std::vector<std::wstring> received_;
    std::function<void(test_support::FakeSource&)> fill_;
    POINT at_{};
    std::thread thread_;
};

} // namespace e2e
