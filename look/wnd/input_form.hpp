// One-line fields that tell their parent of the Enter key.
#pragma once
#include "ovlib/gui/editbox.hpp"

namespace look {

// A field of a secondary window. Enter in a field that is not empty sends the parent the field's own control
// id with `input_form_enter` and the handle. The first click after it got the focus selects all of it.
class InputForm : public ovlib::EditBox {
public:
    InputForm(ovlib::Wnd* parent, int control_id);

    // Subclassed at once, so that it needs no place in the Tab order.
    bool create(const std::wstring& title) override;
    void create_params(CREATESTRUCTW& params) override;
    bool on_message(ovlib::WndMessage& message) override;

private:
    void on_click();
    bool on_enter();

    bool just_focused_ = false;
};

// The search word of the main window. Enter asks for the next page that has it, Shift and Enter for the one
// before.
class BookSearchBox : public ovlib::EditBox {
public:
    BookSearchBox(ovlib::Wnd* parent, int control_id);

    bool create(const std::wstring& title) override;
    bool on_message(ovlib::WndMessage& message) override;

private:
    bool on_enter();
};

} // namespace look
