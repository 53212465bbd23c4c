#include "ovlib/gui/editbox.hpp"
#include "ovlib/handles.hpp"
#include "read_all.hpp"
#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <span>
#include <stdexcept>

namespace ovlib {

namespace {

// The position is in the high word of WM_VSCROLL and WM_HSCROLL, and the control reads it as signed.
constexpr int largest_thumb_position = 0x7FFF;
constexpr std::uint64_t largest_file = 0xFFFFFFFF;

WPARAM thumb(int pos)
{
    return MAKEWPARAM(SB_THUMBPOSITION, static_cast<WORD>(pos));
}

} // namespace

EditBox::EditBox(Wnd* parent, int control_id)
    : SysControl(parent, control_id)
{
}

std::wstring EditBox::class_info(WNDCLASSEXW&)
{
    return L"EDIT";
}

void EditBox::create_params(CREATESTRUCTW& params)
{
    SysControl::create_params(params);
    params.style |= WS_BORDER | ES_AUTOHSCROLL | ES_NOHIDESEL;
    params.dwExStyle = 0;
}

bool EditBox::can_undo() const
{
    return ask(EM_CANUNDO) != 0;
}

bool EditBox::can_paste() const
{
    return IsClipboardFormatAvailable(CF_TEXT) != FALSE
        || IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE;
}

void EditBox::paste()
{
    send(WM_PASTE, 0, 0);
}

void EditBox::copy()
{
    send(WM_COPY, 0, 0);
}

void EditBox::cut()
{
    send(WM_CUT, 0, 0);
}

void EditBox::undo()
{
    send(WM_UNDO, 0, 0);
}

void EditBox::set_read_only(bool read_only)
{
    send(EM_SETREADONLY, read_only, 0);
}

bool EditBox::is_read_only() const
{
    return (GetWindowLongW(hwnd_, GWL_STYLE) & ES_READONLY) != 0;
}

void EditBox::clear_undo()
{
    send(EM_EMPTYUNDOBUFFER, 0, 0);
}

void EditBox::clear_selection()
{
    send(WM_CLEAR, 0, 0);
}

void EditBox::set_tab_stops(int units)
{
    const UINT stop = static_cast<UINT>(units);
    send(EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&stop));
}

void EditBox::set_limit(int limit)
{
    send(EM_SETLIMITTEXT, as_wparam(limit), 0);
}

int EditBox::limit() const
{
    return static_cast<int>(ask(EM_GETLIMITTEXT));
}

// A scroll message cannot carry a larger position, so the control is scrolled by the distance then.
void EditBox::scroll_v_to(int pos)
{
    if (pos > largest_thumb_position)
        line_scroll(0, pos - static_cast<int>(send(EM_GETFIRSTVISIBLELINE, 0, 0)));
    else
        send(WM_VSCROLL, thumb(std::max(pos, 0)), reinterpret_cast<LPARAM>(hwnd_));
}

void EditBox::scroll_h_to(int pos)
{
    send(WM_HSCROLL, thumb(std::clamp(pos, 0, largest_thumb_position)), reinterpret_cast<LPARAM>(hwnd_));
}

int EditBox::scroll_v_pos() const
{
    return GetScrollPos(hwnd_, SB_VERT);
}

int EditBox::scroll_h_pos() const
{
    return GetScrollPos(hwnd_, SB_HORZ);
}

void EditBox::line_scroll(int columns, int lines)
{
    send(EM_LINESCROLL, as_wparam(columns), lines);
}

void EditBox::set_modified(bool modified)
{
    send(EM_SETMODIFY, modified, 0);
}

bool EditBox::is_modified() const
{
    return ask(EM_GETMODIFY) != 0;
}

void EditBox::scroll_caret()
{
    send(EM_SCROLLCARET, 0, 0);
}

void EditBox::set_caret(int pos)
{
    const int place = std::clamp(pos, 0, std::max(text_length(), 0));
    set_selection(place, place);
}

int EditBox::caret() const
{
    int start = 0;
    int end = 0;
    selection(start, end);
    return start;
}

bool EditBox::selection(int& start, int& end) const
{
    DWORD from = 0;
    DWORD to = 0;
    ask(EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    start = static_cast<int>(from);
    end = static_cast<int>(to);
    return start != end;
}

void EditBox::select_all()
{
    set_selection(0, -1);
}

void EditBox::set_selection(int start, int end)
{
    send(EM_SETSEL, as_wparam(start), end);
}

bool EditBox::has_selection() const
{
    int start = 0;
    int end = 0;
    return selection(start, end);
}

std::wstring EditBox::selected_text() const
{
    int start = 0;
    int end = 0;
    selection(start, end);
    const std::wstring all = text();
    if (end <= start || static_cast<std::size_t>(start) >= all.size())
        return {};
    return all.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
}

void EditBox::select_at(int pos)
{
    set_selection(pos, pos);
}

void EditBox::replace_range(const std::wstring& text, int start, int end)
{
    set_selection(start, end);
    replace_selection(text);
}

void EditBox::replace_selection(const std::wstring& text)
{
    send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void EditBox::erase_range(int start, int end)
{
    replace_range({}, start, end);
}

void EditBox::erase_selection()
{
    replace_selection({});
}

void EditBox::append(const std::wstring& text)
{
    const int end = text_length();
    set_selection(end, end);
    replace_selection(text);
}

int EditBox::line_from_char(int pos) const
{
    return static_cast<int>(ask(EM_LINEFROMCHAR, as_wparam(pos)));
}

void EditBox::renew_text(const std::wstring& text)
{
    const bool has_many_lines = (GetWindowLongW(hwnd_, GWL_STYLE) & ES_MULTILINE) != 0;
    // Wine's control keeps the lines of the old text if it gets an empty memory block.
    const bool is_nothing = text.c_str()[0] == L'\0';
    if (!has_many_lines || is_nothing || !hand_over(text))
        set_text(text);
}

// EM_SETHANDLE gives the control a new memory block as its text; it owns the block from then on. The caller
// gets the old block by EM_GETHANDLE before and must free it. The message is only for multi-line controls.
bool EditBox::hand_over(const std::wstring& text)
{
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    UniqueLocalMemory<HLOCAL> memory{ LocalAlloc(LMEM_MOVEABLE, size) };
    void* const start = memory ? LocalLock(memory.get()) : nullptr;
    if (start == nullptr)
        return false;
    std::memcpy(start, text.c_str(), size);
    LocalUnlock(memory.get());
    const UniqueLocalMemory<HLOCAL> old{ reinterpret_cast<HLOCAL>(send(EM_GETHANDLE, 0, 0)) };
    send(EM_SETHANDLE, reinterpret_cast<std::uintptr_t>(memory.release()), 0);
    return true;
}

bool EditBox::load_file(const std::wstring& path)
try {
    platform::File file = platform::File::open_read(path);
    const std::uint64_t size = file.is_open() ? file.size().value_or(0) : 0;
    if (size == 0 || size > largest_file || size % 2 != 0)
        return false;
    std::wstring content(static_cast<std::size_t>(size / 2), L'\0');
    const std::size_t got = read_all(file, std::as_writable_bytes(std::span(content)));
    if (got == 0)
        return false;
    content.resize(got / 2); // the file may have shrunk meanwhile
    set_text(content);
    return true;
} catch (const std::bad_alloc&) {
    return false;
} catch (const std::length_error&) {
    return false;
}

bool EditBox::save_file(const std::wstring& path)
{
    const std::wstring content = text();
    platform::File file = platform::File::create(path);
    return file.is_open() && file.write(std::as_bytes(std::span(content)));
}

} // namespace ovlib
