#include "look/wnd/input_form.hpp"
#include "core/command_ids.hpp"
#include "look/wnd/keys.hpp"
#include "look/wnd/system_input_method.hpp"

namespace look {

bool EnterField::create(const std::wstring& title)
{
    if (!EditBox::create(title))
        return false;
    set_subclassed(true);
    return true;
}

bool EnterField::on_message(ovlib::WndMessage& message)
{
    return message.message == WM_CHAR && message.wparam == VK_RETURN && on_enter();
}

// The parent may delete this field in its command, so the field is watched.
bool EnterField::on_enter()
{
    if (text_length() == 0)
        return false;
    const ovlib::WndWatch alive(this);
    const Order sent = order();
    parent()->send_command(sent.id, sent.code, reinterpret_cast<std::intptr_t>(hwnd()));
    if (alive)
        set_focus();
    return true;
}

InputForm::InputForm(ovlib::Wnd* parent, int control_id)
    : EnterField(parent, control_id)
{
}

void InputForm::create_params(CREATESTRUCTW& params)
{
    EnterField::create_params(params);
    params.style &= ~static_cast<LONG>(ES_NOHIDESEL);
}

bool InputForm::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_SETFOCUS:
        just_focused_ = true;
        return false;
    case WM_KILLFOCUS:
        just_focused_ = false;
        return false;
    case WM_LBUTTONUP:
        on_click();
        return false;
    default:
        return EnterField::on_message(message);
    }
}

InputForm::Order InputForm::order() const
{
    return { control_id(), core::command::input_form_enter };
}

// The press of the first click gives the focus, so its release finds the flag set.
void InputForm::on_click()
{
    if (just_focused_)
        select_all();
    just_focused_ = false;
}

BookSearchBox::BookSearchBox(ovlib::Wnd* parent, int control_id)
    : EnterField(parent, control_id)
{
}

bool BookSearchBox::on_message(ovlib::WndMessage& message)
{
    if (message.message == WM_SETFOCUS) {
        open_input_method(hwnd());
        return false;
    }
    return EnterField::on_message(message);
}

BookSearchBox::Order BookSearchBox::order() const
{
    return { is_shift_down() ? core::command::previous_page : core::command::next_page, 0 };
}

} // namespace look
