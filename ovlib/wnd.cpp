#include "ovlib/gui/wnd.hpp"
#include "ovlib/system_error.hpp"
#include <vector>

namespace ovlib {

Wnd* Wnd::head_ = nullptr;
Wnd* Wnd::tail_ = nullptr;
WndWatch* WndWatch::innermost_ = nullptr;

Wnd::Wnd(Wnd* parent)
    : parent_(parent)
    , prev_(tail_)
{
    (tail_ != nullptr ? tail_->next_ : head_) = this;
    tail_ = this;
}

Wnd::~Wnd()
{
    (prev_ != nullptr ? prev_->next_ : head_) = next_;
    (next_ != nullptr ? next_->prev_ : tail_) = prev_;
    prev_ = nullptr;
    next_ = nullptr;
    // Watches live on the stack, so all existing ones form a list from the innermost to the outermost.
    for (WndWatch* watch = WndWatch::innermost_; watch != nullptr; watch = watch->outer_) {
        if (watch->wnd_ == this)
            watch->wnd_ = nullptr;
    }
}

WndWatch::WndWatch(Wnd* wnd)
    : wnd_(wnd)
    , outer_(innermost_)
{
    innermost_ = this;
}

WndWatch::~WndWatch()
{
    innermost_ = outer_;
}

Wnd* Wnd::from_handle(HWND hwnd)
{
    if (hwnd == nullptr)
        return nullptr;
    for (Wnd* wnd = head_; wnd != nullptr; wnd = wnd->next_) {
        if (wnd->hwnd_ == hwnd)
            return wnd;
    }
    return nullptr;
}

Wnd* Wnd::from_control_id(int id)
{
    for (Wnd* wnd = head_; wnd != nullptr; wnd = wnd->next_) {
        if (wnd->is_window() && wnd->control_id() == id)
            return wnd;
    }
    return nullptr;
}

void Wnd::set_tab_order(std::uint16_t group, std::uint16_t index)
{
    tab_order_ = group == 0 || index == 0 ? 0u : static_cast<std::uint32_t>(group) << 16 | index;
}

// The next window is the one with the smallest number above the own one. Without such a window it is the
// smallest of the group, so the order wraps.
bool Wnd::focus_next()
{
    if (tab_order_ == 0)
        return false;
    Wnd* smallest = this;
    Wnd* after = nullptr;
    for (Wnd* wnd = head_; wnd != nullptr; wnd = wnd->next_) {
        const bool counted = is_sibling(wnd) && wnd->tab_order_ >> 16 == tab_order_ >> 16
            && wnd->hwnd_ != nullptr && wnd->is_visible() && wnd->is_enabled();
        if (!counted)
            continue;
        if (wnd->tab_order_ < smallest->tab_order_)
            smallest = wnd;
        if (wnd->tab_order_ > tab_order_ && (after == nullptr || after->tab_order_ > wnd->tab_order_))
            after = wnd;
    }
    (after != nullptr ? after : smallest)->set_focus();
    return true;
}

int Wnd::destroy_children()
{
    int count = 0;
    for (Wnd* wnd = tail_; wnd != nullptr;) {
        Wnd* const before = wnd->prev_;
        WndWatch still_there(before);
        if (wnd->parent_ == this && wnd->is_window()) {
            wnd->destroy();
            ++count;
        }
        // Destroying a child may delete the object before it. The walk then starts again at the end; children
        // that are already destroyed are skipped.
        wnd = before != nullptr && !still_there ? tail_ : before;
    }
    return count;
}

int Wnd::count_children() const
{
    int count = 0;
    for (const Wnd* wnd = head_; wnd != nullptr; wnd = wnd->next_)
        count += wnd->parent_ == this && wnd->is_window() ? 1 : 0;
    return count;
}

void Wnd::forget_dead_children()
{
    for (Wnd* wnd = head_; wnd != nullptr; wnd = wnd->next_) {
        if (wnd->parent_ != this || wnd->hwnd_ == nullptr || IsWindow(wnd->hwnd_))
            continue;
        wnd->hwnd_ = nullptr;
        wnd->forget_dead_children();
    }
}

void Wnd::on_destroyed(WndMessage&) { }

bool Wnd::on_message(WndMessage&)
{
    return false;
}

std::int64_t Wnd::default_proc(WndMessage&)
{
    return 0;
}

void Wnd::set_parent(Wnd* wnd)
{
    parent_ = wnd;
    SetParent(hwnd_, wnd != nullptr ? wnd->hwnd_ : nullptr);
}

Wnd* Wnd::parent() const
{
    return parent_;
}

bool Wnd::is_sibling(const Wnd* wnd) const
{
    return wnd != nullptr && wnd != this && wnd->parent_ != nullptr && wnd->parent_ == parent_;
}

int Wnd::control_id() const
{
    return GetWindowLongW(hwnd_, GWL_ID);
}

HICON Wnd::class_icon() const
{
    return reinterpret_cast<HICON>(GetClassLongPtrW(hwnd_, GCLP_HICON));
}

HICON Wnd::class_small_icon() const
{
    return reinterpret_cast<HICON>(GetClassLongPtrW(hwnd_, GCLP_HICONSM));
}

HBRUSH Wnd::class_background() const
{
    return reinterpret_cast<HBRUSH>(GetClassLongPtrW(hwnd_, GCLP_HBRBACKGROUND));
}

void Wnd::set_text(const std::wstring& text)
{
    SetWindowTextW(hwnd_, text.c_str());
}

std::wstring Wnd::text() const
{
    const int length = text_length();
    if (length <= 0)
        return {};
    std::wstring buffer(static_cast<std::size_t>(length) + 1, L'\0');
    const int copied = GetWindowTextW(hwnd_, buffer.data(), length + 1);
    buffer.resize(static_cast<std::size_t>(copied));
    return buffer;
}

int Wnd::text_length() const
{
    return GetWindowTextLengthW(hwnd_);
}

bool Wnd::is_enabled() const
{
    return IsWindowEnabled(hwnd_) != FALSE;
}

void Wnd::enable(bool enabled)
{
    if (is_enabled() != enabled)
        EnableWindow(hwnd_, enabled);
}

void Wnd::set_font(HFONT font)
{
    send(WM_SETFONT, reinterpret_cast<std::uintptr_t>(font), TRUE);
}

HFONT Wnd::font() const
{
    return reinterpret_cast<HFONT>(SendMessageW(hwnd_, WM_GETFONT, 0, 0));
}

void Wnd::set_redraw(bool redraw)
{
    send(WM_SETREDRAW, redraw, 0);
}

void Wnd::set_focus()
{
    SetFocus(hwnd_);
}

HWND Wnd::focus() const
{
    return GetFocus();
}

bool Wnd::post(const WndMessage& message)
{
    return post(message.message, message.wparam, message.lparam);
}

bool Wnd::post(std::uint32_t message, std::uint64_t wparam, std::int64_t lparam)
{
    return PostMessageW(hwnd_, message, wparam, lparam) != FALSE;
}

std::int64_t Wnd::send(const WndMessage& message)
{
    return send(message.message, message.wparam, message.lparam);
}

std::int64_t Wnd::send(std::uint32_t message, std::uint64_t wparam, std::int64_t lparam)
{
    return SendMessageW(hwnd_, message, wparam, lparam);
}

std::int64_t Wnd::send_command(int id, int code, std::int64_t lparam)
{
    // Built from words, so that an id above 0x7FFF is not sign-extended into the upper half.
    return send(WM_COMMAND, MAKEWPARAM(static_cast<WORD>(id), static_cast<WORD>(code)), lparam);
}

bool Wnd::reserved()
{
    return false;
}

int Wnd::message_box(const std::wstring& text, const std::wstring& caption, std::uint32_t flags)
{
    return MessageBoxW(hwnd_, text.c_str(), caption.c_str(), flags);
}

int Wnd::message_box(const std::string& text, const std::string& caption, std::uint32_t flags)
{
    return MessageBoxA(hwnd_, text.c_str(), caption.c_str(), flags);
}

int Wnd::error_box(std::uint32_t code, const std::wstring& caption)
{
    return message_box(system_error_text(code), caption, MB_ICONERROR);
}

int Wnd::error_box(std::uint32_t code, const std::string& caption)
{
    return message_box(narrow_system_error_text(code), caption, MB_ICONERROR);
}

} // namespace ovlib
