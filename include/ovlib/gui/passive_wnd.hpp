// A popup over its parent that is only looked at: it takes no activation, and what it paints covers all of
// it.
#pragma once
#include "ovlib/gui/subwnd.hpp"

namespace ovlib {

class PassiveWnd : public SubWnd {
public:
    bool on_message(WndMessage& message) override;
    // Of no size until it has something to show.
    void create_params(CREATESTRUCTW& params) override;

    using SubWnd::show;
    // Does nothing: it is shown with what it tells only.
    void show(bool visible) override;

protected:
    PassiveWnd(Wnd* parent, int control_id);
};

} // namespace ovlib
