// One-line fields that tell their parent of the Enter key.
#pragma once
#include "ovlib/gui/editbox.hpp"

namespace look {

// Enter in a field that is not empty sends the parent a command with the handle, and the field has the focus
// again when the parent let it live.
class EnterField : public ovlib::EditBox {
public:
    using EditBox::EditBox;
    // Subclassed at once, so that it needs no place in the Tab order.
    bool create(const std::wstring& title) override;
    bool on_message(ovlib::WndMessage& message) override;

protected:
    struct Order {
        int id;
        int code;
    };
    // What Enter means now.
    virtual Order order() const = 0;

private:
    bool on_enter();
};

// A field of a secondary window, whose Enter is its own control id with `input_form_enter`. The first click
// after it got the focus selects all of it.
class InputForm : public EnterField {
public:
    InputForm(ovlib::Wnd* parent, int control_id);

    void create_params(CREATESTRUCTW& params) override;
    bool on_message(ovlib::WndMessage& message) override;

private:
    Order order() const override;
    void on_click();

    bool just_focused_ = false;
};

// The search word of the main window. Enter asks for the next page that has it, Shift and Enter for the one
// before.
class BookSearchBox : public EnterField {
public:
    BookSearchBox(ovlib::Wnd* parent, int control_id);

    bool on_message(ovlib::WndMessage& message) override;

private:
    Order order() const override;
};

} // namespace look
