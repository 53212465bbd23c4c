#include "look/wnd/mybox.hpp"
#include "core/command_ids.hpp"
#include "core/command_table.hpp"
#include "look/box_menu.hpp"
#include "look/wnd/keys.hpp"
#include "look/wnd/system_input_method.hpp"
#include "look/wnd/tool_window.hpp"
#include <array>

namespace look {

namespace {

namespace command = core::command;

constexpr int tab_stop = 4; // dialog units
constexpr LONG many_lines = WS_VSCROLL | WS_HSCROLL | ES_WANTRETURN | ES_AUTOVSCROLL | ES_MULTILINE;

using BoxAction = void (MyBox::*)();
using Entry = core::CommandEntry<BoxAction>;

// The commands that the context menu sends to the box itself.
constexpr std::array box_commands{
    Entry{ command::box_undo, &MyBox::undo },
    Entry{ command::box_cut, &MyBox::cut },
    Entry{ command::box_copy, &MyBox::copy },
    Entry{ command::box_paste, &MyBox::paste },
    Entry{ command::box_delete, &MyBox::erase_selection },
    Entry{ command::box_select_all, &MyBox::select_all },
};
static_assert(core::is_ordered(std::span<const Entry>{ box_commands }));

std::int64_t as_lparam(HWND hwnd)
{
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(hwnd));
}

} // namespace

MyBox::MyBox(ovlib::Wnd* parent, int control_id)
    : EditBox(parent, control_id)
{
    menu_.add_rows(box_menu());
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
    // The frame comes from the extended style alone.
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

// A read-only box shows no menu, not even the system's.
bool MyBox::on_context_menu()
{
    if (is_read_only())
        return true;
    set_focus();
    const BoxMenuState state = menu_state();
    for (const ovlib::MenuRow& row : box_menu()) {
        if (row.kind == ovlib::MenuKind::item)
            menu_.enable(row.id, is_box_item_enabled(row.id, state));
    }
    menu_.show(*this, 0);
    return true;
}

BoxMenuState MyBox::menu_state() const
{
    const ovlib::Wnd* const palette = from_control_id(command::palette_window);
    // Open is not the same as visible: the system hides the windows of a minimised owner.
    const auto* const tool_window = dynamic_cast<const ToolWindow*>(palette);
    const bool is_palette_open = tool_window ? tool_window->is_open() : palette && palette->is_visible();
    return {
        .has_selection = has_selection(),
        .has_text = text_length() != 0,
        .can_undo = can_undo(),
        .can_paste = can_paste(),
        .is_palette_visible = is_palette_open,
    };
}

// Ignores the notification code: an accelerator sends 1, a menu sends 0.
bool MyBox::on_command(int id)
{
    if (const BoxAction* action = core::find_handler(std::span<const Entry>{ box_commands }, id, 0)) {
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
        on_save();
        return true;
    default:
        return false;
    }
}

// The command may show a box, and the control may be destroyed meanwhile.
void MyBox::on_save()
{
    const ovlib::WndWatch alive(this);
    parent()->send_command(command::save_if_changed, 0, as_lparam(hwnd()));
    if (alive)
        set_focus();
}

// Destroying the control moves the focus, so the state is recorded before.
MyBox::Kept MyBox::kept() const
{
    return {
        .is_modified = is_modified(),
        .has_focus = focus() == hwnd(),
        .is_read_only = is_read_only(),
        .is_subclassed = is_subclassed(),
        .limit = limit(),
        .text = text(),
        .tab_order = tab_order(),
        .place = rect(),
    };
}

// The limit is set before the text, as when a control is created.
void MyBox::bring_back(const Kept& kept)
{
    set_font(font_.handle());
    set_tab_stops(tab_stop);
    set_limit(kept.limit);
    set_text(kept.text);
    set_read_only(kept.is_read_only);
    set_modified(kept.is_modified);
    set_rect(kept.place, false);
    set_tab_order(
        static_cast<std::uint16_t>(kept.tab_order >> 16), static_cast<std::uint16_t>(kept.tab_order));
    if (is_subclassed() != kept.is_subclassed)
        set_subclassed(kept.is_subclassed);
    if (kept.has_focus)
        set_focus();
    show(true);
}

// When the control can be created again, the text comes from the page. What was typed may belong to another
// page by then, so it is dropped.
void MyBox::lose(Kept kept)
{
    kept.text.clear();
    kept.is_modified = false;
    kept.has_focus = false; // the user is elsewhere by then
    lost_ = std::move(kept);
}

// Creates the replacement hidden. bring_back shows it after it has its old properties, so no intermediate
// state is visible.
bool MyBox::set_wrap(bool wrap)
{
    if (wrap == wrap_ && !is_lost())
        return false;
    wrap_ = wrap;
    const Kept before = is_lost() ? *lost_ : kept();
    lost_.reset();
    destroy();
    if (!create(L"")) {
        lose(before);
        return false;
    }
    bring_back(before);
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

} // namespace look
