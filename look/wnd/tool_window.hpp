// The base of every window other than the main one.
#pragma once
#include "controls/window_place.hpp"
#include "ovlib/gui/subwnd.hpp"
#include "platform/color.hpp"
#include "platform/geometry.hpp"
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace look {

// The frame of a tool window. `client` is the size of the client area.
struct ToolFrame {
    platform::Size client;
    DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
    DWORD extended_style = 0;
    bool opens_active = true; // false: it is shown without taking the focus
};

// A control of a tool window, placed in client coordinates.
struct ToolControl {
    ovlib::Wnd* control;
    const wchar_t* text;
    platform::Rect place;
};

// A window owned by the main window. It is created hidden, and shown and hidden many times. A subclass names
// its window class, creates its controls and handles its commands. Its on_message passes everything else to
// this class, which handles:
// - The theme: background, caption, and the colours of fields and drop-down lists.
// - WM_DRAWITEM and the notifications of virtual lists, which are routed to the control.
// - The focus. It goes to the first control at each opening, to the last focused control when the window
//   becomes active again, and to the first control when the focused one is disabled.
// - Tab, which goes through the controls of add_controls in their order.
// - Esc and the close button, which call on_cancel.
// - Enter, which presses the focused push button, and otherwise calls on_enter.
// - WM_CLOSE, which hides the window. A window in a modal run is destroyed, which ends the run.
// A dropped list keeps Esc and Enter; a multi-line box and an EnterField with a text keep Enter. Accelerators
// go to the parent, as with every SubWnd.
class ToolWindow : public ovlib::SubWnd {
public:
    class InputHold;

    bool on_message(ovlib::WndMessage& message) override;
    // Uses the small icon of the parent. A subclass calls this and returns its own name.
    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;

    using SubWnd::show;
    // True opens the window and brings it to the front, after creating it if necessary. A closed window opens
    // where on_opening puts it or else where it was, moved into view. False closes it; if it was active, the
    // parent becomes active.
    void show(bool visible) override;
    // Opened and not closed since. The system hides a window while its owner is minimised; it counts as open.
    bool is_open() const { return state_.is_open(); }

protected:
    ToolWindow(ovlib::Wnd* parent, int control_id, const ToolFrame& frame);

    // Called in WM_CREATE. False makes the creation fail.
    virtual bool make_controls() = 0;
    // Called when the client area has a new size, and after make_controls.
    virtual void lay_out(platform::Size /*client*/) { }
    // Called before a closed window is shown, to fill and place it.
    virtual void on_opening() { }
    // The user wants to close the window. By default it is closed by WM_CLOSE.
    virtual void on_cancel() { send(WM_CLOSE, 0, 0); }
    // The default action. False if there is none; the key then goes to the control.
    virtual bool on_enter() { return false; }
    // Called for a pressed key, with its VK_ number, before the focused control gets it. Fields in which text
    // is typed keep their keys. `is_repeated`: the key is held down. True if the key was handled.
    virtual bool on_shortcut(std::uint64_t /*key*/, bool /*is_repeated*/) { return false; }
    // The colour of the background.
    virtual ovlib::Color ground() const;
    // The caption of its message boxes; by default the program's name and the title.
    virtual std::wstring box_caption() const;

    // Creates the controls with the interface's font, at their rectangles, in Tab order. A control that
    // cannot be created is left out, and the result is false. To be called once, from make_controls.
    bool add_controls(std::initializer_list<ToolControl> controls);
    // Moves the upper left corner to the cursor position plus `offset`.
    void place_at_cursor(platform::Point offset);
    // For WM_NCHITTEST: the background moves the window, as the caption does.
    bool move_by_background(ovlib::WndMessage& message);
    // Where a context menu is shown for this WM_CONTEXTMENU: at the mouse, or below the focused control if
    // the menu was requested by a key. nullopt for a point outside the client area.
    std::optional<POINT> menu_point(const ovlib::WndMessage& message) const;
    // Shows a message box with MB_ `flags` and returns the chosen button. Messages are dispatched meanwhile:
    // the window may be closed or destroyed afterwards, and everything must be looked up again.
    int show_message(const std::wstring& text, std::uint32_t flags);

private:
    static LRESULT CALLBACK on_control_message(
        HWND control, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id, DWORD_PTR data) noexcept;
    static ToolWindow* window_of(HWND control);
    static void watch(HWND control);

    bool on_create();
    bool on_close();
    bool on_system_command(const ovlib::WndMessage& message);
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
    ovlib::OpenState state_;
};

// Holds the main window's input gate while this window shows a dialog: the main window turns no page and runs
// no command that needs input. Lives on the stack; holds can be nested.
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
