// A secondary top-level window, owned by its parent's window. Its control id is kept in the object only.
#pragma once
#include <atomic>

#include "ovlib/gui/childwnd.hpp"

namespace ovlib {

class SubWnd : public ChildWnd {
public:
    RECT rect() const override;
    // Ends a run too: the parent is enabled first, so that the system can make it the active window.
    void destroy() override;
    // To the parent, so that the top window's accelerators see the message.
    void dispatch(MSG& message) override;
    void create_params(CREATESTRUCTW& params) override;

    // Serves messages with the parent disabled until end_run. WM_QUIT leaves the run and is not posted again.
    void run();
    bool is_running() const { return running_ != 0; }

protected:
    SubWnd(Wnd* parent, int control_id);
    // For the WM_DESTROY handler of a window that may be in a run; does nothing otherwise.
    void end_run();

private:
    std::atomic<std::uint8_t> running_ = 0;
};

} // namespace ovlib
