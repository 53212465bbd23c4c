// The three text boxes of a page.
#pragma once
#include "ovlib/gui/editbox.hpp"
#include "ovlib/gui/gdi_object.hpp"

namespace look {

// An edit control without a limit of its own. Created hidden; subclassed from its creation, so that it sees
// keys and the accelerator.
class MyBox : public ovlib::EditBox {
public:
    bool create(const std::wstring& title) override;
    HWND create_window(const std::wstring& title, CREATESTRUCTW& params) override;
    // Not while Shift is held, so that Shift and Tab type a tab.
    bool focus_next() override;
    bool on_message(ovlib::WndMessage& message) override;

    // Word wrap cannot change in a living control: the control is replaced by a new one, with a new handle,
    // that has everything but undo, selection and scroll position. False when nothing changed and when the
    // box was lost.
    virtual bool set_wrap(bool wrap);

    bool is_wrapped() const { return wrap_; }
    // Sets `font` on the box and keeps it. Null for no font.
    void take_font(HFONT font);

protected:
    MyBox(ovlib::Wnd* parent, int control_id);

private:
    bool on_command(int id);
    bool on_context_menu();

    ovlib::GDI::Font font_;
    bool wrap_ = false;
};

// Box 1, of many lines.
class QBox : public MyBox {
public:
    QBox(ovlib::Wnd* parent, int control_id);
    void create_params(CREATESTRUCTW& params) override;
};

// Box 2, of one line.
class ABox : public MyBox {
public:
    ABox(ovlib::Wnd* parent, int control_id);
    void create_params(CREATESTRUCTW& params) override;
};

// Box 3, as box 1.
class DBox : public MyBox {
public:
    DBox(ovlib::Wnd* parent, int control_id);
    void create_params(CREATESTRUCTW& params) override;
};

// Opens the input method of a control that got the focus, when the settings say so. Never closes it.
void open_input_method(HWND hwnd);

} // namespace look
