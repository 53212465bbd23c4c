// The base of every window beside the main one.
#pragma once
#include "ovlib/gui/subwnd.hpp"
#include "platform/color.hpp"
#include "platform/geometry.hpp"
#include <initializer_list>
#include <string>
#include <vector>

namespace look {

// The frame of a tool window. `client` is the size inside it.
struct ToolFrame {
    platform::Size client;
    DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
    DWORD extended_style = 0;
};

// A control of a tool window, in client coordinates.
struct ToolControl {
    ovlib::Wnd* control;
    const wchar_t* text;
    platform::Rect place;
};

// A window owned by the main window: created hidden, shown and hidden many times. A subclass names its window
// class, makes its controls and handles its commands. Its on_message handles what is its own and leaves the
// rest to this one, which handles:
// - The theme: ground, caption, and the colours of fields and drop-down lists.
// - WM_DRAWITEM and the notices of virtual lists, which go to the control concerned.
// - The focus. The first control has it at each opening; when the window becomes active again, the control
//   that had it last; when a control is disabled that has it, the first one.
// - Tab, which goes through the controls of add_controls in their order.
// - Esc, which sends WM_CLOSE, as the close box does.
// - Enter, which presses the push button that has the focus, and is on_enter elsewhere.
// - WM_CLOSE, which hides the window. One in a modal run is destroyed, which ends the run.
// A dropped list keeps Esc and Enter; a box of many lines and an EnterField keep Enter. Accelerators go to
// the parent, as with every SubWnd.
class ToolWindow : public ovlib::SubWnd {
public:
    class InputHold;

    bool on_message(ovlib::WndMessage& message) override;
    // With the small icon of the parent. A subclass calls it and returns a name of its own.
    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;

    using SubWnd::show;
    // True opens the window and brings it to the front; one without a handle is created first. A window that
    // was closed appears where on_opening puts it or where it was, always in view. False closes it; the focus
    // of an active window goes back to the parent.
    void show(bool visible) override;
    // Opened and not closed since. The system hides a window while its owner is minimised: it stays open.
    bool is_open() const { return is_open_; }

protected:
    ToolWindow(ovlib::Wnd* parent, int control_id, const ToolFrame& frame);

    // Called in WM_CREATE. False ends the creation.
    virtual bool make_controls() = 0;
    // The client area has this size now, also after make_controls.
    virtual void lay_out(platform::Size /*client*/) { }
    // Called before a closed window is shown: fills it and chooses its place.
    virtual void on_opening() { }
    // The default action. False when there is none, and the key goes to the control.
    virtual bool on_enter() { return false; }
    // The colour between the controls.
    virtual ovlib::Color ground() const;
    // The caption of its message boxes; its title by default.
    virtual std::wstring box_caption() const;

    // Creates the controls with the interface's font, at their places, in Tab order. One that cannot be
    // created is left out, and the result is false. To be called once, from make_controls.
    bool add_controls(std::initializer_list<ToolControl> controls);
    // Moves the upper left corner to the cursor plus `offset`.
    void place_at_cursor(platform::Point offset);
    // A message box with MB_ `flags`; returns the button. Messages are served meanwhile: the window may be
    // closed or destroyed afterwards, and whatever was looked up before is to be looked up again.
    int show_message(const std::wstring& text, std::uint32_t flags);

private:
    static LRESULT CALLBACK on_control_message(
        HWND control, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id, DWORD_PTR data) noexcept;
    static ToolWindow* window_of(HWND control);
    static void watch(HWND control);

    bool on_create();
    bool on_close();
    bool on_show_by_owner(const ovlib::WndMessage& message) const;
    bool on_erase(ovlib::WndMessage& message) const;
    void hide();
    void note_focus();
    bool focus_control();
    void on_control_enabled(HWND control, bool enabled);
    bool on_key(HWND control, const ovlib::WndMessage& message);

    ToolFrame frame_;
    std::vector<ovlib::Wnd*> fields_; // in Tab order
    HWND last_focus_ = nullptr;
    bool is_open_ = false;
};

// Holds the main window's input while a dialog of this window is open: it turns no page and runs no command
// that needs input. Lives on the stack; holds may nest.
class ToolWindow::InputHold {
public:
    explicit InputHold(ToolWindow& window);
    ~InputHold();
    InputHold(const InputHold&) = delete;
    InputHold& operator=(const InputHold&) = delete;

private:
    ovlib::WndWatch parent_;
};

} // namespace look
