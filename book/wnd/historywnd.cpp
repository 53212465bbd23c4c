#include "book/wnd/historywnd.hpp"
#include "book/history_view.hpp"
#include "core/folders.hpp"
#include "look/theme.hpp"
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
constexpr look::ToolFrame frame{ history_client_size,
    WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN, WS_EX_TOOLWINDOW };

} // namespace

HistoryWnd::HistoryWnd(ovlib::Wnd* parent, int control_id, const HistoryList* history)
    : ToolWindow(parent, control_id, frame)
    , history_(history)
    , list_(this, list_id, LVS_SINGLESEL | LVS_SHAREIMAGELISTS)
{
}

std::wstring HistoryWnd::class_info(WNDCLASSEXW& info)
{
    ToolWindow::class_info(info);
    return ovlib::window_class_name(L"historywnd", 53);
}

bool HistoryWnd::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_NOTIFY:
        return on_notify(*reinterpret_cast<const NMHDR*>(message.lparam));
    case WM_ENABLE:
        list_.apply_theme();
        return true;
    default:
        return ToolWindow::on_message(message);
    }
}

bool HistoryWnd::make_controls()
{
    if (!add_controls({ { &list_, L"", history_list_rect(history_client_size) } }))
        return false;
    list_.add_column(L"Book", name_column_width);
    list_.add_column(L"場所", 0);
    create_images();
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

// The second column gets the width that the first one and a scroll bar leave.
void HistoryWnd::lay_out(platform::Size client)
{
    const platform::Rect place = history_list_rect(client);
    list_.set_rect(ovlib::to_rect(place), true);
    const int rest = place.width() - list_.column_width(0) - GetSystemMetrics(SM_CXVSCROLL);
    list_.set_column_width(1, std::max(rest, 0));
}

bool HistoryWnd::on_notify(const NMHDR& notice)
{
    if (notice.hwndFrom != list_.hwnd() || notice.code != NM_CLICK)
        return false;
    open_row(reinterpret_cast<const NMITEMACTIVATE&>(notice).iItem);
    return true;
}

bool HistoryWnd::on_enter()
{
    open_row(list_.selected());
    return true;
}

void HistoryWnd::open_row(int row)
{
    if (const std::optional<int> command = book::history_command(row))
        parent()->post(WM_COMMAND, static_cast<std::uint64_t>(*command), 0);
}

ovlib::Color HistoryWnd::ground() const
{
    return look::palette().caption;
}

void HistoryWnd::on_opening()
{
    place_at_cursor(history_corner({}, size().cx));
    fill();
}

void HistoryWnd::refill()
{
    if (is_open())
        fill();
}

void HistoryWnd::fill()
{
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
