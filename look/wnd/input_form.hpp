// One-line fields that notify their parent of the Enter key.
#pragma once
#include "ovlib/gui/editbox.hpp"

namespace look {

// Enter in a non-empty field sends the parent a command with the field's handle. If the field still exists
// afterwards, it gets the focus again.
class EnterField : public ovlib::EditBox {
public:
    using EditBox::EditBox;
    // Subclassed when created, so that it gets its keys without a place in the Tab order.
    bool create(const std::wstring& title) override;
    bool on_message(ovlib::WndMessage& message) override;

protected:
    struct Order {
        int id;
        int code;
    };
    // The command that Enter sends now.
    virtual Order order() const = 0;

private:
    bool on_enter();
};

// A field of a secondary window. Enter sends its own control id with `input_form_enter`. The first click
// after it got the focus selects all its text.
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

// The search field of the main window. Enter goes to the next page that matches, Shift+Enter to the previous
// one.
class BookSearchBox : public EnterField {
public:
    BookSearchBox(ovlib::Wnd* parent, int control_id);

    bool on_message(ovlib::WndMessage& message) override;

private:
    Order order() const override;
};

} // namespace look
