#include "book/wnd/historywnd.hpp"
#include "book/history_rows.hpp"
#include "book/history_view.hpp"
#include "core/folders.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "look/wnd/themed.hpp"
#include "ovlib/gui/dc.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "platform/process_log.hpp"
#include <algorithm>

namespace book {

namespace {

constexpr int list_id = 1;
constexpr int image_size = 16;
constexpr int image_count = 2;
constexpr int name_column_width = 130;
constexpr LONG window_style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN;

} // namespace

HistoryWnd::HistoryWnd(ovlib::Wnd* parent, int control_id, const HistoryList* history)
    : SubWnd(parent, control_id)
    , history_(history)
    , list_(this, list_id, LVS_SINGLESEL | LVS_SHAREIMAGELISTS)
{
}

std::wstring HistoryWnd::class_info(WNDCLASSEXW& info)
{
    SubWnd::class_info(info);
    info.hIconSm = parent()->class_small_icon();
    return ovlib::window_class_name(L"historywnd", 53);
}

void HistoryWnd::create_params(CREATESTRUCTW& params)
{
    SubWnd::create_params(params);
    params.style = window_style;
    params.dwExStyle = WS_EX_TOOLWINDOW;
    RECT outer{ 0, 0, history_client_size.width, history_client_size.height };
    AdjustWindowRectEx(&outer, static_cast<DWORD>(params.style), FALSE, params.dwExStyle);
    params.cx = outer.right - outer.left;
    params.cy = outer.bottom - outer.top;
}

bool HistoryWnd::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_CREATE:
        message.result = on_create() ? 0 : -1;
        return true;
    case WM_SIZE:
        place_list();
        return true;
    case WM_NOTIFY:
        return on_notify(*reinterpret_cast<const NMHDR*>(message.lparam));
    case WM_ENABLE:
        list_.apply_theme();
        return true;
    case WM_ERASEBKGND:
        message.result = 1;
        return on_erase_background(reinterpret_cast<HDC>(message.wparam));
    case WM_CLOSE:
        show(false);
        return true;
    default:
        return false;
    }
}

bool HistoryWnd::on_create()
{
    if (!list_.create(L""))
        return false;
    list_.set_font(look::shared_font(look::SharedFont::ui_9));
    list_.add_column(L"Book", name_column_width);
    list_.add_column(L"場所", 0);
    create_images();
    place_list();
    look::color_caption(hwnd());
    return true;
}

void HistoryWnd::create_images()
{
    if (!images_.create(image_size, image_size, image_count)) {
        ovlib::WinApp::process_log().append(L"Failed to create ImageList\r\n");
        return;
    }
    const bool has_book = add_image(L"\\book.bmp", L"HistoryWnd: Failed to create bitmap1\r\n");
    const bool has_clock = add_image(L"\\history.bmp", L"HistoryWnd: Failed to create bitmap2\r\n");
    if (has_book && has_clock)
        list_.set_images(images_.handle());
}

bool HistoryWnd::add_image(const wchar_t* file, const wchar_t* failure)
{
    const ovlib::GDI::Bitmap picture{ ovlib::GDI::load_bitmap(core::folders().res + file) };
    if (images_.add(picture.handle()) >= 0)
        return true;
    ovlib::WinApp::process_log().append(failure);
    return false;
}

// The second column takes what the first and a scroll bar leave.
void HistoryWnd::place_list()
{
    if (!list_.hwnd())
        return;
    const SIZE client = client_size();
    const platform::Rect place = history_list_rect({ client.cx, client.cy });
    list_.set_rect(ovlib::to_rect(place), true);
    const int rest = place.width() - list_.column_width(0) - GetSystemMetrics(SM_CXVSCROLL);
    list_.set_column_width(1, std::max(rest, 0));
}

bool HistoryWnd::on_notify(const NMHDR& notice)
{
    if (notice.hwndFrom != list_.hwnd() || notice.code != NM_CLICK)
        return false;
    const int row = reinterpret_cast<const NMITEMACTIVATE&>(notice).iItem;
    if (const std::optional<int> command = book::history_command(row))
        parent()->post(WM_COMMAND, static_cast<std::uint64_t>(*command), 0);
    return true;
}

bool HistoryWnd::on_erase_background(HDC dc)
{
    const ovlib::GDI::Brush brush{ ovlib::GDI::solid_brush(look::palette().caption) };
    const RECT client = client_rect();
    FillRect(dc, &client, brush.handle());
    return true;
}

void HistoryWnd::show(bool visible)
{
    if (!visible) {
        SubWnd::show(false);
        return;
    }
    if (!is_visible()) {
        come_to_cursor();
        SubWnd::show(true);
        refill();
    }
    SetForegroundWindow(hwnd());
}

void HistoryWnd::come_to_cursor()
{
    POINT cursor{};
    GetCursorPos(&cursor);
    const platform::Point corner = history_corner({ cursor.x, cursor.y }, size().cx);
    move(corner.x, corner.y, false);
    bring_into_view(false);
}

void HistoryWnd::refill()
{
    if (!is_visible())
        return;
    list_.set_redraw(false);
    list_.clear();
    for (std::size_t i = 0; i < history_->entries().size(); ++i) {
        const book::HistoryRow row = book::history_row(history_->entries()[i]);
        list_.set_cell(list_.add_row(row.name, history_image(i)), 1, row.folder);
    }
    list_.set_redraw(true);
    InvalidateRect(list_.hwnd(), nullptr, TRUE);
    UpdateWindow(list_.hwnd());
    set_text(book::history_title(history_->entries().size()));
}

void HistoryWnd::BookList::apply_theme()
{
    MyListView::apply_theme();
    const look::ThemePalette& colors = look::palette();
    set_colors(
        colors.box_back, book::history_text_color(colors.list_text, colors.box_back, parent()->is_enabled()));
}

} // namespace book
