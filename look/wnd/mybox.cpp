#include "look/wnd/mybox.hpp"
#include "app/command_ids.hpp"
#include "app/command_table.hpp"
#include "app/settings.hpp"
#include <array>
#include <imm.h>

namespace look {

namespace {

using namespace app;

constexpr int tab_stop = 4; // dialog units
constexpr LONG many_lines = WS_VSCROLL | WS_HSCROLL | ES_WANTRETURN | ES_AUTOVSCROLL | ES_MULTILINE;

using BoxAction = void (MyBox::*)();
using Entry = CommandEntry<BoxAction>;

// The context menu's own commands.
constexpr std::array box_commands{
    Entry{ command::box_undo, &MyBox::undo },
    Entry{ command::box_cut, &MyBox::cut },
    Entry{ command::box_copy, &MyBox::copy },
    Entry{ command::box_paste, &MyBox::paste },
    Entry{ command::box_delete, &MyBox::erase_selection },
    Entry{ command::box_select_all, &MyBox::select_all },
};
static_assert(is_ordered(std::span<const Entry>{ box_commands }));

std::int64_t as_lparam(HWND hwnd)
{
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(hwnd));
}

// The second counts for a key that was let go before its message came.
bool is_shift_down()
{
    return GetAsyncKeyState(VK_SHIFT) < 0 || GetKeyState(VK_SHIFT) < 0;
}

} // namespace

MyBox::MyBox(ovlib::Wnd* parent, int control_id)
    : EditBox(parent, control_id)
{
}

bool MyBox::create(const std::wstring& title)
{
    if (!EditBox::create(title))
        return false;
    set_subclassed(true);
    set_limit(0);
    return true;
}

HWND MyBox::create_window(const std::wstring& title, CREATESTRUCTW& params)
{
    if (wrap_)
        params.style &= ~static_cast<LONG>(WS_HSCROLL | ES_AUTOHSCROLL);
    // The extended style alone gives the frame.
    params.style &= ~static_cast<LONG>(WS_VISIBLE | WS_BORDER);
    return EditBox::create_window(title, params);
}

bool MyBox::focus_next()
{
    return !is_shift_down() && tab_order() != 0 && EditBox::focus_next();
}

bool MyBox::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_SETFOCUS:
        open_input_method(hwnd());
        return false;
    case WM_CONTEXTMENU:
        return on_context_menu();
    case WM_COMMAND:
        return on_command(LOWORD(message.wparam));
    default:
        return false;
    }
}

// A read-only box has no menu, not even the system's.
bool MyBox::on_context_menu()
{
    return is_read_only();
}

// The notification code is not looked at: an accelerator sends 1 where a menu sends 0.
bool MyBox::on_command(int id)
{
    if (const BoxAction* action = find_handler(std::span<const Entry>{ box_commands }, id, 0)) {
        (this->**action)();
        return true;
    }
    switch (id) {
    case command::box_search:
        parent()->send_command(command::show_web_menu, 0, as_lparam(hwnd()));
        return true;
    case command::box_look:
        parent()->send_command(command::show_palette, 0, as_lparam(hwnd()));
        return true;
    case command::accelerator_save:
        parent()->send_command(command::save_if_changed, 0, as_lparam(hwnd()));
        set_focus();
        return true;
    default:
        return false;
    }
}

bool MyBox::set_wrap(bool wrap)
{
    if (wrap == wrap_)
        return false;
    wrap_ = wrap;
    const bool was_modified = is_modified();
    const bool had_focus = focus() == hwnd();
    const bool was_read_only = is_read_only();
    const int old_limit = limit();
    const std::wstring old_text = text();
    const std::uint32_t order = tab_order();
    const RECT place = rect();
    destroy();
    if (!create(L""))
        return false;
    set_font(font_.handle());
    set_tab_stops(tab_stop);
    set_limit(old_limit);
    set_text(old_text);
    set_read_only(was_read_only);
    set_modified(was_modified);
    set_rect(place, false);
    set_tab_order(static_cast<std::uint16_t>(order >> 16), static_cast<std::uint16_t>(order));
    if (had_focus)
        set_focus();
    show(true);
    return true;
}

void MyBox::take_font(HFONT font)
{
    set_font(font);
    font_.renew(font);
}

QBox::QBox(ovlib::Wnd* parent, int control_id)
    : MyBox(parent, control_id)
{
}

void QBox::create_params(CREATESTRUCTW& params)
{
    MyBox::create_params(params);
    params.style |= many_lines;
    params.dwExStyle = WS_EX_CLIENTEDGE;
}

ABox::ABox(ovlib::Wnd* parent, int control_id)
    : MyBox(parent, control_id)
{
}

void ABox::create_params(CREATESTRUCTW& params)
{
    MyBox::create_params(params);
    params.dwExStyle = WS_EX_CLIENTEDGE;
}

DBox::DBox(ovlib::Wnd* parent, int control_id)
    : MyBox(parent, control_id)
{
}

void DBox::create_params(CREATESTRUCTW& params)
{
    MyBox::create_params(params);
    params.style |= many_lines;
    params.dwExStyle = WS_EX_CLIENTEDGE;
}

void open_input_method(HWND hwnd)
{
    if (!app::settings().auto_imm)
        return;
    HIMC const context = ImmGetContext(hwnd);
    if (!context)
        return;
    if (!ImmGetOpenStatus(context))
        ImmSetOpenStatus(context, TRUE);
    ImmReleaseContext(hwnd, context);
}

} // namespace look
