// The three text boxes of a page.
#pragma once
#include "look/box_menu.hpp"
#include "ovlib/gui/editbox.hpp"
#include "ovlib/gui/gdi_object.hpp"
#include "ovlib/gui/menu.hpp"
#include <optional>

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
    // that has everything but undo, selection and scroll position. False when nothing changed and when no new
    // control could be made: then the box is lost, and the next call brings it back, empty and unchanged.
    virtual bool set_wrap(bool wrap);

    bool is_wrapped() const { return wrap_; }
    bool is_lost() const { return lost_.has_value(); }
    // Its items are as they were when it was last shown.
    const ovlib::Menu& menu() const { return menu_; }
    // Sets `font` on the box and keeps it. Null for no font.
    void take_font(HFONT font);

protected:
    MyBox(ovlib::Wnd* parent, int control_id);

private:
    // What outlives the control.
    struct Kept {
        bool is_modified;
        bool has_focus;
        bool is_read_only;
        bool is_subclassed;
        int limit;
        std::wstring text;
        std::uint32_t tab_order;
        RECT place;
    };

    Kept kept() const;
    void bring_back(const Kept& kept);
    void lose(Kept kept);
    bool on_command(int id);
    bool on_context_menu();
    BoxMenuState menu_state() const;
    void on_save();

    ovlib::GDI::Font font_;
    bool wrap_ = false;
    std::optional<Kept> lost_; // of a control that could not be made anew
    ovlib::Menu menu_;
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

} // namespace look
