#include "look/wnd/system_input_method.hpp"
#include "core/settings.hpp"
#include "look/input_method.hpp"
#include <imm.h>

namespace look {

namespace {

class SystemInputMethod : public InputMethod {
public:
    explicit SystemInputMethod(HWND hwnd)
        : hwnd_(hwnd)
    {
    }
    bool acquire() override
    {
        context_ = ImmGetContext(hwnd_);
        return context_ != nullptr;
    }
    bool is_open() override { return ImmGetOpenStatus(context_) != FALSE; }
    void open() override { ImmSetOpenStatus(context_, TRUE); }
    void release() override { ImmReleaseContext(hwnd_, context_); }

private:
    HWND hwnd_;
    HIMC context_ = nullptr;
};

} // namespace

void open_input_method(HWND hwnd)
{
    SystemInputMethod method(hwnd);
    open_on_focus(method, core::settings().auto_imm);
}

} // namespace look
