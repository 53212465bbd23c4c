#include "look/wnd/input_form.hpp"
#include "app/command_ids.hpp"
#include "look/wnd/input_method.hpp"
#include "look/wnd/keys.hpp"

namespace look {

namespace {

// Tells the parent, who may let the field go, and brings the focus back to it.
void send_and_return(ovlib::EditBox& field, int id, int code)
{
    const ovlib::WndWatch alive(&field);
    field.parent()->send_command(id, code, reinterpret_cast<std::intptr_t>(field.hwnd()));
    if (alive)
        field.set_focus();
}

} // namespace

InputForm::InputForm(ovlib::Wnd* parent, int control_id)
    : EditBox(parent, control_id)
{
}

bool InputForm::create(const std::wstring& title)
{
    if (!EditBox::create(title))
        return false;
    set_subclassed(true);
    return true;
}

void InputForm::create_params(CREATESTRUCTW& params)
{
    EditBox::create_params(params);
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
    case WM_CHAR:
        return message.wparam == VK_RETURN && on_enter();
    default:
        return false;
    }
}

void InputForm::on_click()
{
    if (just_focused_)
        select_all();
    just_focused_ = false;
}

bool InputForm::on_enter()
{
    if (text_length() == 0)
        return false;
    send_and_return(*this, control_id(), app::command::input_form_enter);
    return true;
}

BookSearchBox::BookSearchBox(ovlib::Wnd* parent, int control_id)
    : EditBox(parent, control_id)
{
}

bool BookSearchBox::create(const std::wstring& title)
{
    if (!EditBox::create(title))
        return false;
    set_subclassed(true);
    return true;
}

bool BookSearchBox::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_SETFOCUS:
        open_input_method(hwnd());
        return false;
    case WM_CHAR:
        return message.wparam == VK_RETURN && on_enter();
    default:
        return false;
    }
}

bool BookSearchBox::on_enter()
{
    if (text_length() == 0)
        return false;
    send_and_return(*this, is_shift_down() ? app::command::previous_page : app::command::next_page, 0);
    return true;
}

} // namespace look
