// A window inside its parent.
#pragma once
#include "ovlib/gui/basewnd.hpp"

namespace ovlib {

class ChildWnd : public BaseWnd {
public:
    void on_destroyed(WndMessage& message) override;
    int control_id() const override;
    // In the parent's client coordinates; in screen coordinates without a parent.
    POINT position() const override;
    RECT rect() const override;
    void on_created() override;
    void create_params(CREATESTRUCTW& params) override;

protected:
    ChildWnd(Wnd* parent, int control_id);

private:
    int control_id_;
};

} // namespace ovlib
