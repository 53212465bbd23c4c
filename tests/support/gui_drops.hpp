// Drops within the test's process, and the user who answers the question about files.
#pragma once
#include "ovlib/gui/drop_files.hpp"
#include "tests/support/drag_data.hpp"
#include "tests/support/gui_driver.hpp"
#include <gtest/gtest.h>
#include <ole2.h>

namespace gui {

using namespace test_support;

class OleOnThread {
public:
    OleOnThread() { EXPECT_TRUE(SUCCEEDED(OleInitialize(nullptr))); }
    ~OleOnThread() { OleUninitialize(); }
    OleOnThread(const OleOnThread&) = delete;
    OleOnThread& operator=(const OleOnThread&) = delete;
};

// Drags the source onto the target, as the system does, and returns the effect that it reports at the end.
inline DWORD drop_on(IDropTarget& target, FakeSource& source, POINTL at = {}, DWORD offered = DROPEFFECT_COPY)
{
    DWORD effect = offered;
    EXPECT_EQ(target.DragEnter(&source, MK_LBUTTON, at, &effect), S_OK);
    effect = offered;
    EXPECT_EQ(target.DragOver(MK_LBUTTON, at, &effect), S_OK);
    effect = offered;
    EXPECT_EQ(target.Drop(&source, 0, at, &effect), S_OK);
    return effect;
}

// What the target reports to a source that enters.
inline DWORD effect_at_entry(IDropTarget& target, FakeSource& source, DWORD offered = DROPEFFECT_COPY)
{
    DWORD effect = offered;
    EXPECT_EQ(target.DragEnter(&source, MK_LBUTTON, {}, &effect), S_OK);
    EXPECT_EQ(target.DragLeave(), S_OK);
    return effect;
}

inline HWND option_window_of(DWORD thread)
{
    return visible_window_of(thread, L"ovlib_drop_option_wnd[34]");
}

// Waits for the question about files on a second thread and acts on it there; then it closes the window
// unless that happened already.
class OptionUser : public ShownDriver {
public:
    explicit OptionUser(std::function<void(HWND)> act)
        : ShownDriver([act = std::move(act)](DWORD thread) {
            if (!poll_until([&] { return option_window_of(thread) != nullptr; }))
                return false;
            HWND const window = option_window_of(thread);
            act(window);
            if (IsWindow(window))
                PostMessageW(window, WM_CLOSE, 0, 0);
            return true;
        })
    {
    }
};

} // namespace gui
