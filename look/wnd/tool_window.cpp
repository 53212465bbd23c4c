#include "look/wnd/tool_window.hpp"
#include "core/command_ids.hpp"
#include "core/titles.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "look/wnd/input_form.hpp"
#include "look/wnd/themed.hpp"
#include "ovlib/gui/button.hpp"
#include "ovlib/gui/dc.hpp"
#include "ovlib/gui/owner_drawn.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/gui/virtual_list.hpp"
#include <commctrl.h>
#include <exception>
#include <windowsx.h>

namespace look {

namespace {

constexpr UINT_PTR control_watch = 2; // the library's own subclass has id 1
constexpr std::int64_t was_down =
    1 << 30; // in lparam: the key was down before, so the message is a repetition

HDC dc_of(const ovlib::WndMessage& message)
{
    return reinterpret_cast<HDC>(static_cast<std::uintptr_t>(message.wparam));
}

// The brush belongs to the system and has the colour that was set in this device context.
bool color_field(ovlib::WndMessage& message)
{
    HDC const dc = dc_of(message);
    SetBkMode(dc, OPAQUE);
    SetBkColor(dc, palette().box_back.value);
    SetTextColor(dc, palette().list_text.value);
    SetDCBrushColor(dc, palette().box_back.value);
    message.result = reinterpret_cast<std::intptr_t>(GetStockObject(DC_BRUSH));
    return true;
}

bool is_text_field(HWND control)
{
    return dynamic_cast<ovlib::EditBox*>(ovlib::Wnd::from_handle(control)) != nullptr;
}

// A read-only field sends the message of static controls.
bool is_field(const ovlib::WndMessage& message)
{
    return is_text_field(reinterpret_cast<HWND>(static_cast<std::intptr_t>(message.lparam)));
}

// In a combo box with a field, the field has the focus, so the parent is checked too.
bool is_dropped(HWND control)
{
    return SendMessageW(control, CB_GETDROPPEDSTATE, 0, 0) != 0
        || SendMessageW(GetParent(control), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

bool keeps_enter(HWND control)
{
    ovlib::Wnd* const wnd = ovlib::Wnd::from_handle(control);
    if (const auto* field = dynamic_cast<EnterField*>(wnd))
        return field->text_length() != 0; // an empty one has no use for it
    return dynamic_cast<ovlib::EditBox*>(wnd) && (GetWindowLongW(control, GWL_STYLE) & ES_MULTILINE) != 0;
}

bool keeps_key(HWND control, std::uint64_t key)
{
    return is_dropped(control) || (key == VK_RETURN && keeps_enter(control));
}

bool can_take_focus(const ovlib::Wnd& wnd)
{
    return wnd.hwnd() && wnd.is_visible() && wnd.is_enabled();
}

} // namespace

ToolWindow::ToolWindow(ovlib::Wnd* parent, int control_id, const ToolFrame& frame)
    : SubWnd(parent, control_id)
    , frame_(frame)
{
}

std::wstring ToolWindow::class_info(WNDCLASSEXW& info)
{
    std::wstring name = SubWnd::class_info(info);
    info.hIconSm = parent()->class_small_icon();
    return name;
}

void ToolWindow::create_params(CREATESTRUCTW& params)
{
    SubWnd::create_params(params);
    params.style = static_cast<LONG>(frame_.style);
    params.dwExStyle = frame_.extended_style;
    RECT outer{ 0, 0, frame_.client.width, frame_.client.height };
    AdjustWindowRectEx(&outer, frame_.style, FALSE, frame_.extended_style);
    params.cx = outer.right - outer.left;
    params.cy = outer.bottom - outer.top;
}

bool ToolWindow::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_CREATE:
        message.result = on_create() ? 0 : -1;
        return true;
    case WM_DESTROY:
        state_.close();
        end_run();
        return false;
    case WM_CLOSE:
        return on_close();
    case WM_SYSCOMMAND:
        return on_system_command(message);
    case WM_SIZE:
        lay_out(ovlib::to_size(client_size()));
        return true;
    case WM_SHOWWINDOW:
        return on_show_by_owner(message);
    case WM_ACTIVATE:
        if (LOWORD(message.wparam) == WA_INACTIVE)
            note_focus();
        return false;
    case WM_SETFOCUS:
        return focus_control();
    case WM_KEYDOWN:
        return on_key(hwnd(), message);
    case WM_PARENTNOTIFY:
        if (LOWORD(message.wparam) == WM_CREATE)
            watch(reinterpret_cast<HWND>(static_cast<std::intptr_t>(message.lparam)));
        return false;
    case WM_ERASEBKGND:
        return on_erase(message);
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
        return color_field(message);
    case WM_CTLCOLORSTATIC:
        return is_field(message) && color_field(message);
    case WM_DRAWITEM:
        return ovlib::route_draw_item(message);
    case WM_NOTIFY:
        return ovlib::route_list_notice(message);
    default:
        return false;
    }
}

bool ToolWindow::on_create()
{
    fields_.clear();
    if (!make_controls())
        return false;
    lay_out(ovlib::to_size(client_size()));
    color_caption(hwnd());
    return true;
}

bool ToolWindow::add_controls(std::initializer_list<ToolControl> controls)
{
    constexpr std::uint16_t tab_group = 1;
    std::uint16_t index = 0;
    bool are_made = true;
    for (const ToolControl& row : controls) {
        if (!row.control->create(row.text)) {
            are_made = false;
            continue;
        }
        row.control->set_font(shared_font(SharedFont::ui_9));
        row.control->set_rect(ovlib::to_rect(row.place), false);
        row.control->set_tab_order(tab_group, ++index);
        fields_.push_back(row.control);
    }
    return are_made;
}

ovlib::Color ToolWindow::ground() const
{
    return palette().panel_back;
}

std::wstring ToolWindow::box_caption() const
{
    return std::wstring(core::program_name) + L" - " + text();
}

bool ToolWindow::on_erase(ovlib::WndMessage& message) const
{
    const ovlib::GDI::Brush brush{ ovlib::GDI::solid_brush(ground()) };
    const RECT client = client_rect();
    FillRect(dc_of(message), &client, brush.handle());
    message.result = 1;
    return true;
}

void ToolWindow::show(bool visible)
{
    if (!visible) {
        hide();
        return;
    }
    if (!is_window() && !create(L""))
        return;
    const bool activates = is_open() || frame_.opens_active;
    if (!is_open()) {
        last_focus_ = nullptr;
        on_opening();
        bring_into_view(false);
        state_.open();
        if (activates)
            SubWnd::show(true);
        else
            show_cmd(SW_SHOWNA);
    }
    if (activates)
        SetForegroundWindow(hwnd());
}

// When the active window is hidden, the system may activate a window of another program instead of the
// parent. So the parent is activated first.
void ToolWindow::hide()
{
    state_.close();
    if (hwnd() && GetActiveWindow() == hwnd() && parent())
        SetForegroundWindow(parent()->hwnd());
    SubWnd::show(false);
}

// A modal run ends only with the window, so the window is destroyed then.
bool ToolWindow::on_close()
{
    if (is_running())
        return false;
    show(false);
    return true;
}

// The low four bits of the number belong to the system.
bool ToolWindow::on_system_command(const ovlib::WndMessage& message)
{
    constexpr std::uint64_t own_bits = 0xF;
    if ((message.wparam & ~own_bits) != SC_CLOSE)
        return false;
    on_cancel();
    return true;
}

// When the owner is restored, the system shows all windows that it had hidden, even one that was closed
// meanwhile.
bool ToolWindow::on_show_by_owner(const ovlib::WndMessage& message) const
{
    return message.lparam == SW_PARENTOPENING && !state_.may_return_with_owner();
}

void ToolWindow::place_at_cursor(platform::Point offset)
{
    POINT cursor{};
    GetCursorPos(&cursor);
    move(cursor.x + offset.x, cursor.y + offset.y, false);
}

void ToolWindow::note_focus()
{
    HWND const focused = GetFocus();
    if (IsChild(hwnd(), focused))
        last_focus_ = focused;
}

// The recorded handle may have been reused by another window, so it must be a child of this one.
bool ToolWindow::focus_control()
{
    const bool is_there = IsChild(hwnd(), last_focus_) && IsWindowVisible(last_focus_);
    if (is_there && IsWindowEnabled(last_focus_)) {
        SetFocus(last_focus_);
        return true;
    }
    for (ovlib::Wnd* field : fields_) {
        if (can_take_focus(*field)) {
            field->set_focus();
            return true;
        }
    }
    return false;
}

bool ToolWindow::move_by_background(ovlib::WndMessage& message)
{
    message.result = default_proc(message);
    if (message.result == HTCLIENT)
        message.result = HTCAPTION;
    return true;
}

std::optional<POINT> ToolWindow::menu_point(const ovlib::WndMessage& message) const
{
    const auto lparam = static_cast<LPARAM>(message.lparam);
    POINT at{ GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam) };
    if (at.x == -1 && at.y == -1) {
        HWND const focused = GetFocus();
        RECT place{};
        GetWindowRect(IsChild(hwnd(), focused) ? focused : hwnd(), &place);
        return POINT{ place.left, place.bottom };
    }
    POINT inside = at;
    ScreenToClient(hwnd(), &inside);
    const RECT client = client_rect();
    return PtInRect(&client, inside) ? std::optional{ at } : std::nullopt;
}

int ToolWindow::show_message(const std::wstring& text, std::uint32_t flags)
{
    const InputHold hold{ *this };
    return message_box(text, box_caption(), flags);
}

// Keys go to the focused control, whatever its class, so every control is subclassed. WM_PARENTNOTIFY also
// reports windows that a control creates for itself, such as the field of a combo box.
void ToolWindow::watch(HWND control)
{
    SetWindowSubclass(control, &ToolWindow::on_control_message, control_watch, 0);
}

// Refers to no object, because the object may be deleted before its window. A key may destroy the control.
LRESULT CALLBACK ToolWindow::on_control_message(
    HWND control, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id, DWORD_PTR) noexcept
try {
    const ovlib::WndMessage key{ control, message, wparam, lparam, 0 };
    switch (message) {
    case WM_KEYDOWN:
    case WM_CHAR:
        if (auto* window = window_of(control); window && window->on_key(control, key))
            return 0;
        break;
    case WM_ENABLE:
        if (auto* window = window_of(control))
            window->on_control_enabled(control, wparam != FALSE);
        break;
    case WM_NCDESTROY:
        RemoveWindowSubclass(control, &ToolWindow::on_control_message, id);
        break;
    default:
        break;
    }
    return DefSubclassProc(control, message, wparam, lparam);
} catch (...) {
    std::terminate();
}

ToolWindow* ToolWindow::window_of(HWND control)
{
    return dynamic_cast<ToolWindow*>(from_handle(GetAncestor(control, GA_ROOT)));
}

// If no control or a disabled one has the focus, keys are lost.
void ToolWindow::on_control_enabled(HWND control, bool enabled)
{
    HWND const focused = GetFocus();
    if (!enabled && GetActiveWindow() == hwnd() && (!focused || focused == control))
        set_focus();
}

// The action runs on WM_KEYDOWN. WM_CHAR of both keys is consumed: a one-line edit control would beep. A held
// key acts only once.
bool ToolWindow::on_key(HWND control, const ovlib::WndMessage& message)
{
    const std::uint64_t key = message.wparam;
    const bool is_repeated = (message.lparam & was_down) != 0;
    if (message.message == WM_KEYDOWN && key != VK_ESCAPE && key != VK_RETURN)
        return !is_text_field(control) && on_shortcut(key, is_repeated);
    if ((key != VK_ESCAPE && key != VK_RETURN) || keeps_key(control, key))
        return false;
    if (message.message == WM_CHAR || is_repeated)
        return true;
    if (key == VK_ESCAPE) {
        on_cancel();
        return true;
    }
    if (dynamic_cast<ovlib::CustomPushButton*>(from_handle(control))) {
        SendMessageW(control, BM_CLICK, 0, 0);
        return true;
    }
    return on_enter();
}

ToolWindow::InputHold::InputHold(ToolWindow& window)
    : parent_(window.parent())
{
    if (parent_)
        parent_.get()->send_command(core::command::set_accepting_input, 0, 0);
}

ToolWindow::InputHold::~InputHold()
{
    if (parent_)
        parent_.get()->send_command(core::command::set_accepting_input, 0, 1);
}

} // namespace look
