// A popup over its parent that is only looked at: it is never activated, and it paints its whole area.
#pragma once
#include "ovlib/gui/subwnd.hpp"

namespace ovlib {

class PassiveWnd : public SubWnd {
public:
    bool on_message(WndMessage& message) override;
    // The size is 0 until it has content.
    void create_params(CREATESTRUCTW& params) override;

    using SubWnd::show;
    // Does nothing: it can only be shown together with its content.
    void show(bool visible) override;

protected:
    PassiveWnd(Wnd* parent, int control_id);
};

} // namespace ovlib
