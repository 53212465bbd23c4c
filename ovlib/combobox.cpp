#include "ovlib/gui/combobox.hpp"
#include <commctrl.h>

namespace ovlib {

namespace {

LPARAM as_lparam(const std::wstring& text)
{
    return reinterpret_cast<LPARAM>(text.c_str());
}

} // namespace

ComboBox::ComboBox(Wnd* parent, int control_id, DWORD style)
    : SysControl(parent, control_id)
    , style_(style)
{
}

std::wstring ComboBox::class_info(WNDCLASSEXW&)
{
    return L"ComboBox";
}

void ComboBox::create_params(CREATESTRUCTW& params)
{
    SysControl::create_params(params);
    params.style |= static_cast<LONG>(WS_VSCROLL | style_);
}

int ComboBox::count() const
{
    return static_cast<int>(ask(CB_GETCOUNT));
}

void ComboBox::clear()
{
    ask(CB_RESETCONTENT);
}

void ComboBox::show_list(bool shown)
{
    ask(CB_SHOWDROPDOWN, shown);
}

int ComboBox::remove(int index)
{
    return static_cast<int>(ask(CB_DELETESTRING, as_wparam(index)));
}

int ComboBox::insert(int index, const std::wstring& text)
{
    return static_cast<int>(ask(CB_INSERTSTRING, as_wparam(index), as_lparam(text)));
}

int ComboBox::add(const std::wstring& text, std::int64_t value)
{
    const int index = add(text);
    if (index != CB_ERR && index != CB_ERRSPACE)
        set_item_data(index, value);
    return index;
}

int ComboBox::add(const std::wstring& text)
{
    return static_cast<int>(ask(CB_ADDSTRING, 0, as_lparam(text)));
}

void ComboBox::set_item_data(int index, std::int64_t value)
{
    ask(CB_SETITEMDATA, as_wparam(index), value);
}

std::int64_t ComboBox::item_data(int index) const
{
    return ask(CB_GETITEMDATA, as_wparam(index));
}

void ComboBox::set_min_visible(int count)
{
    ask(CB_SETMINVISIBLE, as_wparam(count));
}

int ComboBox::min_visible() const
{
    return static_cast<int>(ask(CB_GETMINVISIBLE));
}

int ComboBox::select(int index)
{
    return static_cast<int>(ask(CB_SETCURSEL, as_wparam(index)));
}

int ComboBox::selected() const
{
    return static_cast<int>(ask(CB_GETCURSEL));
}

void ComboBox::clear_selection()
{
    select(-1);
}

int ComboBox::text_length(int index) const
{
    return static_cast<int>(ask(CB_GETLBTEXTLEN, as_wparam(index)));
}

std::wstring ComboBox::item_text(int index) const
{
    const int length = text_length(index);
    if (length <= 0)
        return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied = ask(CB_GETLBTEXT, as_wparam(index), reinterpret_cast<LPARAM>(text.data()));
    text.resize(copied > 0 ? static_cast<std::size_t>(copied) : 0);
    return text;
}

// A combo box has no message that changes the text of an item. So the item is removed and inserted again,
// with redrawing off.
void ComboBox::replace(int index, const std::wstring& text, bool redraw)
{
    if (index < 0 || index >= count())
        return;
    set_redraw(false);
    const bool was_selected = selected() == index;
    const std::int64_t value = item_data(index);
    remove(index);
    insert(index, text);
    set_item_data(index, value);
    if (was_selected)
        select(index);
    if (!redraw)
        return;
    set_redraw(true);
    InvalidateRect(hwnd(), nullptr, TRUE);
    UpdateWindow(hwnd());
}

int ComboBox::find_exact(const std::wstring& text, int start) const
{
    return static_cast<int>(ask(CB_FINDSTRINGEXACT, as_wparam(start), as_lparam(text)));
}

HWND ComboBox::edit_child() const
{
    return ChildWindowFromPoint(hwnd(), { 1, 1 });
}

} // namespace ovlib
