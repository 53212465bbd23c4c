// Input to the main window: commands of its controls, the wheel, the slider and the caption.
#include "app/key_commands.hpp"
#include "app/page_actions.hpp"
#include "app/wnd/appwnd.hpp"
#include "app/wnd/main_commands.hpp"
#include "core/command_ids.hpp"
#include "look/wnd/keys.hpp"
#include "ovlib/gui/button.hpp"
#include "ovlib/gui/system_geometry.hpp"

namespace app {

namespace command = core::command;

// These keys act in two windows and for every control there, so they are no accelerators: an accelerator goes
// to the focused control.
bool AppWnd::on_page_key(const MSG& message)
{
    if (message.message != WM_KEYDOWN)
        return false;
    const ChordKeys with{ look::is_shift_down(), GetKeyState(VK_CONTROL) < 0, GetKeyState(VK_MENU) < 0 };
    const std::optional<int> id = command_of_key(message.wParam, with);
    HWND const root = GetAncestor(message.hwnd, GA_ROOT);
    if (!id || !root || (root != hwnd() && root != parts_.results.hwnd()))
        return false;
    send_command(*id, 0, 0);
    return true;
}

bool AppWnd::on_command(const ovlib::WndMessage& message)
{
    const int id = LOWORD(message.wparam);
    const int code = HIWORD(message.wparam);
    if (code == EN_SETFOCUS)
        typing_focus_.note_focus(id);
    const bool is_click = code == BN_CLICKED && is_focused_button(message.lparam);
    parts_.session.run([&] { run_command(id, code, message.lparam); });
    // A clicked button keeps the focus, where typed text would be lost. So the focus goes to the window,
    // which passes it to a text field.
    if (is_click && is_focused_button(message.lparam))
        set_focus();
    return true;
}

bool AppWnd::is_focused_button(std::int64_t handle) const
{
    HWND const control = reinterpret_cast<HWND>(static_cast<std::intptr_t>(handle));
    return control && control == GetFocus() && dynamic_cast<ovlib::Button*>(from_handle(control));
}

void AppWnd::run_command(int id, int code, std::int64_t lparam)
{
    const core::CommandRule* rule = core::find_command(id, code);
    const CommandHandler handler = find_command_handler(id);
    if (!rule || !handler || core::is_refused(*rule, met_needs(parts_.window_state(), book())))
        return;
    const core::Outcome outcome = handler(parts_, { id, code, lparam });
    parts_.session.merge(rule->mask(outcome));
}

bool AppWnd::on_wheel(const ovlib::WndMessage& message)
{
    if (!is_accepting_input())
        return true;
    const int step = ovlib::wheel_step(wheel_, message);
    if (step == 0)
        return true;
    const bool forward = step < 0;
    if ((GET_KEYSTATE_WPARAM(message.wparam) & MK_CONTROL) && !is_busy())
        parts_.session.run([this, forward] { swap_page(parts_.session, forward ? 1 : -1); });
    else
        send_command(forward ? command::next_page : command::previous_page, 0, 0);
    return true;
}

bool AppWnd::on_slider(const ovlib::WndMessage& message)
{
    const HWND slider = parts_.controls.slider().hwnd();
    if (reinterpret_cast<HWND>(static_cast<std::intptr_t>(message.lparam)) != slider)
        return false;
    on_slider_move(parts_, LOWORD(message.wparam));
    return true;
}

bool AppWnd::on_caption_release(const ovlib::WndMessage& message)
{
    if (message.wparam != HTCAPTION)
        return false;
    show_main_menu(parts_);
    return true;
}

} // namespace app
