#include "ovlib/gui/virtual_list.hpp"
#include "controls/row_search.hpp"
#include <algorithm>
#include <utility>

namespace ovlib {

namespace {

constexpr int all_rows = -1;
constexpr UINT find_substring = 4; // LVFI_SUBSTRING, the same as LVFI_PARTIAL; some headers lack it
constexpr UINT find_beginning = LVFI_PARTIAL | find_substring;

// Copies into the list's own buffer, truncated to its size.
void copy_text(const std::wstring& text, LVITEMW& item)
{
    if (item.pszText == nullptr || item.cchTextMax <= 0)
        return;
    const std::size_t length = text.copy(item.pszText, static_cast<std::size_t>(item.cchTextMax) - 1);
    item.pszText[length] = L'\0';
}

bool is_selected(UINT state)
{
    return (state & LVIS_SELECTED) != 0;
}

} // namespace

VirtualList::VirtualList(Wnd* parent, int control_id, DWORD style)
    : ReportListView(parent, control_id, style | LVS_OWNERDATA)
{
}

void VirtualList::set_source(ListSource source)
{
    source_ = std::move(source);
    if (hwnd() != nullptr)
        InvalidateRect(hwnd(), nullptr, FALSE);
}

void VirtualList::set_count(int count)
{
    ask(LVM_SETITEMCOUNT, as_wparam(std::max(count, 0)), LVSICF_NOSCROLL);
}

std::vector<int> VirtualList::selection() const
{
    std::vector<int> rows;
    rows.reserve(static_cast<std::size_t>(selected_count()));
    for (int row = selected(); row >= 0;) {
        rows.push_back(row);
        row = static_cast<int>(ask(LVM_GETNEXTITEM, as_wparam(row), LVNI_SELECTED));
    }
    return rows;
}

int VirtualList::selected_count() const
{
    return static_cast<int>(ask(LVM_GETSELECTEDCOUNT));
}

// To deselect all rows some systems visit each row of the list. So a single selected row is deselected by its
// index.
void VirtualList::select(int row)
{
    set_selected(selected_count() == 1 ? selected() : all_rows, false);
    ReportListView::select(row);
}

void VirtualList::select_rows(std::span<const int> rows)
{
    select(-1);
    for (const int row : rows) {
        if (has_row(row))
            set_selected(row, true);
    }
}

void VirtualList::set_selected(int row, bool selected)
{
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED;
    item.state = selected ? LVIS_SELECTED : 0;
    ask(LVM_SETITEMSTATE, as_wparam(row), reinterpret_cast<LPARAM>(&item));
}

void VirtualList::ensure_visible(int row)
{
    ask(LVM_ENSUREVISIBLE, as_wparam(row), FALSE);
}

void VirtualList::redraw_rows(int first, int last)
{
    ask(LVM_REDRAWITEMS, as_wparam(first), last);
}

bool VirtualList::on_notice(WndMessage& message)
{
    auto* const header = reinterpret_cast<NMHDR*>(message.lparam);
    switch (header->code) {
    case LVN_GETDISPINFOW:
        fill(reinterpret_cast<NMLVDISPINFOW*>(header)->item);
        return true;
    case LVN_ODFINDITEMW:
        message.result = find(*reinterpret_cast<const NMLVFINDITEMW*>(header));
        return true;
    case LVN_ITEMCHANGED: {
        const auto& change = *reinterpret_cast<const NMLISTVIEW*>(header);
        if (is_selected(change.uNewState ^ change.uOldState))
            report({ change.iItem, change.iItem, is_selected(change.uNewState) });
        return true;
    }
    case LVN_ODSTATECHANGED: {
        const auto& change = *reinterpret_cast<const NMLVODSTATECHANGE*>(header);
        if (is_selected(change.uNewState ^ change.uOldState))
            report({ change.iFrom, change.iTo, is_selected(change.uNewState) });
        return true;
    }
    default:
        return false;
    }
}

void VirtualList::fill(LVITEMW& item) const
{
    if ((item.mask & LVIF_TEXT) != 0)
        copy_text(text_of(item.iItem, item.iSubItem), item);
    if ((item.mask & LVIF_IMAGE) != 0) {
        const bool has_image = source_.image && item.iSubItem == 0 && has_row(item.iItem);
        item.iImage = has_image ? source_.image(item.iItem) : I_IMAGENONE;
    }
}

bool VirtualList::has_row(int row) const
{
    return row >= 0 && row < count();
}

std::wstring VirtualList::text_of(int row, int column) const
{
    if (!source_.text || !has_row(row))
        return {};
    return source_.text(row, column);
}

// A virtual list stores no texts, so the system passes the typed text to its owner.
int VirtualList::find(const NMLVFINDITEMW& request) const
{
    const LVFINDINFOW& sought = request.lvfi;
    if ((sought.flags & (LVFI_STRING | find_beginning)) == 0 || sought.psz == nullptr)
        return -1;
    const auto match = (sought.flags & find_beginning) != 0 ? RowMatch::beginning : RowMatch::whole;
    const RowRange range{ count(), request.iStart, (sought.flags & LVFI_WRAP) != 0 };
    return find_row(range, [&](int row) { return row_matches(text_of(row, 0), sought.psz, match); });
}

// A negative row index means all rows. The callback may replace the source or delete this object, so it is
// copied first.
void VirtualList::report(SelectionChange change) const
{
    if (!source_.selected || count() == 0)
        return;
    if (change.first < 0)
        change = { 0, count() - 1, change.is_selected };
    const auto reported = source_.selected;
    reported(change);
}

bool route_list_notice(WndMessage& message)
{
    if (message.message != WM_NOTIFY)
        return false;
    const auto* const header = reinterpret_cast<const NMHDR*>(message.lparam);
    auto* const list = dynamic_cast<VirtualList*>(Wnd::from_handle(header->hwndFrom));
    return list != nullptr && list->on_notice(message);
}

} // namespace ovlib
