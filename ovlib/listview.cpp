#include "ovlib/gui/listview.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include <array>

namespace ovlib {

namespace {

constexpr std::size_t cell_capacity = 1024;
constexpr std::size_t title_capacity = 260;

// The system only reads the text, except where a message fills a buffer.
wchar_t* as_buffer(const std::wstring& text)
{
    return const_cast<wchar_t*>(text.c_str());
}

} // namespace

ListView::ListView(Wnd* parent, int control_id, DWORD style)
    : SysControl(parent, control_id)
    , style_(style)
{
}

std::wstring ListView::class_info(WNDCLASSEXW&)
{
    return WC_LISTVIEWW;
}

void ListView::create_params(CREATESTRUCTW& params)
{
    SysControl::create_params(params);
    params.style |= static_cast<LONG>(style_);
}

int ListView::add_row(const std::wstring& text, int image, int index)
{
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE;
    item.iItem = index;
    item.iImage = image;
    item.pszText = as_buffer(text);
    return static_cast<int>(ask(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
}

void ListView::set_cell(int row, int column, const std::wstring& text)
{
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = as_buffer(text);
    ask(LVM_SETITEMTEXTW, as_wparam(row), reinterpret_cast<LPARAM>(&item));
}

std::wstring ListView::cell_text(int row, int column) const
{
    std::array<wchar_t, cell_capacity> buffer{};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = buffer.data();
    item.cchTextMax = static_cast<int>(buffer.size());
    ask(LVM_GETITEMTEXTW, as_wparam(row), reinterpret_cast<LPARAM>(&item));
    return { buffer.data() };
}

int ListView::count() const
{
    return static_cast<int>(ask(LVM_GETITEMCOUNT));
}

void ListView::clear()
{
    ask(LVM_DELETEALLITEMS);
}

void ListView::select(int row)
{
    constexpr UINT chosen = LVIS_SELECTED | LVIS_FOCUSED;
    constexpr int all_rows = -1;
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED;
    ask(LVM_SETITEMSTATE, as_wparam(all_rows), reinterpret_cast<LPARAM>(&item));
    if (row < 0)
        return;
    item.state = item.stateMask = chosen;
    ask(LVM_SETITEMSTATE, as_wparam(row), reinterpret_cast<LPARAM>(&item));
    ask(LVM_ENSUREVISIBLE, as_wparam(row), FALSE);
}

int ListView::selected() const
{
    return static_cast<int>(ask(LVM_GETNEXTITEM, as_wparam(-1), LVNI_SELECTED));
}

void ListView::set_extended_style(DWORD style)
{
    ask(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(style));
}

void ListView::set_images(HIMAGELIST images)
{
    ask(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(images));
}

void ListView::set_colors(Color back, Color text)
{
    ask(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(back.value));
    ask(LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(back.value));
    ask(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(text.value));
}

ReportListView::ReportListView(Wnd* parent, int control_id, DWORD style)
    : ListView(parent, control_id, style | LVS_REPORT)
{
}

bool ReportListView::create(const std::wstring& title)
{
    if (!ListView::create(title))
        return false;
    set_extended_style(LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    return true;
}

int ReportListView::add_column(const std::wstring& title, int width)
{
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    column.cx = width;
    column.iSubItem = column_count();
    column.pszText = as_buffer(title);
    return static_cast<int>(
        ask(LVM_INSERTCOLUMNW, as_wparam(column.iSubItem), reinterpret_cast<LPARAM>(&column)));
}

int ReportListView::column_count() const
{
    HWND const header = reinterpret_cast<HWND>(ask(LVM_GETHEADER));
    return static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
}

int ReportListView::column_width(int column) const
{
    return static_cast<int>(ask(LVM_GETCOLUMNWIDTH, as_wparam(column)));
}

void ReportListView::set_column_width(int column, int width)
{
    ask(LVM_SETCOLUMNWIDTH, as_wparam(column), width);
}

ListView::Header::Header(ListView* list)
    : SysControl(list, 0)
{
}

bool ListView::Header::create(const std::wstring& title)
{
    if (!SysControl::create(title))
        return false;
    set_subclassed(true);
    return is_subclassed();
}

HWND ListView::Header::create_window(const std::wstring&, CREATESTRUCTW&)
{
    return reinterpret_cast<HWND>(SendMessageW(parent()->hwnd(), LVM_GETHEADER, 0, 0));
}

std::wstring ListView::Header::class_info(WNDCLASSEXW&)
{
    return WC_HEADERW;
}

bool ListView::Header::on_message(WndMessage& message)
{
    switch (message.message) {
    case WM_ERASEBKGND:
        message.result = TRUE;
        return true;
    case WM_PAINT:
        return paint();
    default:
        return false;
    }
}

bool ListView::Header::paint()
{
    const PaintDC dc(*this);
    const SIZE size = client_size();
    if (!buffer_.fit(size.cx, size.cy))
        return true;
    draw(buffer_);
    buffer_.copy_to(dc);
    return true;
}

std::vector<platform::Rect> ListView::Header::cells() const
{
    std::vector<platform::Rect> rects(static_cast<std::size_t>(ask(HDM_GETITEMCOUNT)));
    for (std::size_t i = 0; i < rects.size(); ++i) {
        RECT rect{};
        ask(HDM_GETITEMRECT, i, reinterpret_cast<LPARAM>(&rect));
        rects[i] = from_rect(rect);
    }
    return rects;
}

std::wstring ListView::Header::title_of(int cell) const
{
    std::array<wchar_t, title_capacity> buffer{};
    HDITEMW item{};
    item.mask = HDI_TEXT;
    item.pszText = buffer.data();
    item.cchTextMax = static_cast<int>(buffer.size());
    ask(HDM_GETITEMW, as_wparam(cell), reinterpret_cast<LPARAM>(&item));
    return { buffer.data() };
}

} // namespace ovlib
