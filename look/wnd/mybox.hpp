// The three text boxes of a page.
#pragma once
#include "look/box_menu.hpp"
#include "ovlib/gui/editbox.hpp"
#include "ovlib/gui/gdi_object.hpp"
#include "ovlib/gui/menu.hpp"
#include <optional>

namespace look {

// An edit control with the largest text limit. It is created hidden, and subclassed at once, so that it gets
// keys and the accelerator.
class MyBox : public ovlib::EditBox {
public:
    bool create(const std::wstring& title) override;
    HWND create_window(const std::wstring& title, CREATESTRUCTW& params) override;
    // Does nothing while Shift is held, so that Shift+Tab types a tab.
    bool focus_next() override;
    bool on_message(ovlib::WndMessage& message) override;

    // An existing edit control cannot change its wrapping, so it is replaced by a new one with a new handle.
    // The new control keeps everything except undo, selection and scroll position. False if nothing changed,
    // or if no new control could be created. In the latter case the box is lost; the next call creates it
    // again, empty and unmodified.
    virtual bool set_wrap(bool wrap);

    bool is_wrapped() const { return wrap_; }
    bool is_lost() const { return lost_.has_value(); }
    // The items have the states of the last time that the menu was shown.
    const ovlib::Menu& menu() const { return menu_; }
    // Uses `font` in the box and owns it. Null for no font.
    void take_font(HFONT font);

protected:
    MyBox(ovlib::Wnd* parent, int control_id);

private:
    // The properties that the new control gets from the old one.
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
    std::optional<Kept> lost_; // of a control that could not be created again
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
