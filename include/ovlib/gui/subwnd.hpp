// A secondary top-level window, owned by its parent's window. Its control id exists only in the object.
#pragma once
#include "ovlib/gui/childwnd.hpp"
#include <atomic>

namespace ovlib {

class SubWnd : public ChildWnd {
public:
    RECT rect() const override;
    // Also ends a modal run. The parent is enabled first, so that the system can activate it.
    void destroy() override;
    // Passes the message to the parent, so that the accelerators of the top window see it.
    void dispatch(MSG& message) override;
    void create_params(CREATESTRUCTW& params) override;

    // A modal loop: dispatches messages with the parent disabled, until end_run. WM_QUIT ends the run and is
    // not posted again.
    void run();
    bool is_running() const { return running_ != 0; }

protected:
    SubWnd(Wnd* parent, int control_id);
    // For the WM_DESTROY handler of a window that may be in a run; otherwise it does nothing.
    void end_run();

private:
    std::atomic<std::uint8_t> running_ = 0;
};

} // namespace ovlib
