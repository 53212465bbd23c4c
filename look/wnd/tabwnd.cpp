#include "look/wnd/tabwnd.hpp"
#include "core/command_ids.hpp"
#include "look/wnd/fonts.hpp"
#include "ovlib/gui/system_geometry.hpp"

namespace look {

namespace {

namespace command = core::command;

} // namespace

TabWnd::TabWnd(ovlib::Wnd* parent, book::Book* book)
    : ChildWnd(parent, 0)
    , book_(book)
    , swatches_(make_swatches())
{
}

void TabWnd::create_params(CREATESTRUCTW& params)
{
    ChildWnd::create_params(params);
    params.x = params.y = params.cx = params.cy = 0;
}

bool TabWnd::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_CREATE:
        make_tip_and_menu();
        return false;
    case WM_DESTROY:
        destroy_children();
        return false;
    case WM_KILLFOCUS:
        set_hover(0);
        return false;
    case WM_PAINT:
        return on_paint();
    case WM_ERASEBKGND:
        message.result = 1;
        return true;
    case WM_COMMAND:
        return on_command(LOWORD(message.wparam));
    case WM_MOUSEMOVE:
        return on_mouse_move(ovlib::mouse_point(message));
    case WM_LBUTTONDOWN:
        return on_press(ovlib::mouse_point(message));
    case WM_RBUTTONUP:
        return on_right_release(ovlib::mouse_point(message));
    case WM_MOUSELEAVE:
        return on_mouse_leave();
    case WM_KEYDOWN:
    case WM_CHAR:
        return hand_on_key(message);
    default:
        return false;
    }
}

// A tip that cannot be created is no failure: the strip works without it.
void TabWnd::make_tip_and_menu()
{
    if (tip_.create(L""))
        tip_.set_font(shared_font(SharedFont::jp_9_bold));
    menu_.clear();
    menu_.add_rows(tab_menu());
    for (std::size_t i = 0; i < swatches_.size(); ++i) {
        const int id = core::command::first_tab_color + static_cast<int>(i);
        menu_.set_check_bitmaps(id, swatches_[i].unchecked.handle(), swatches_[i].checked.handle());
    }
}

void TabWnd::rebuild()
{
    const SIZE client = client_size();
    TabItems tabs = make_tabs(*book_, { client.cx, client.cy });
    items_ = std::move(tabs.items);
    current_tab_ = tabs.current_tab;
    hover_tab_ = 0;
    menu_tab_ = 0;
    fit_buffer();
    if (!items_.empty())
        hover_at_cursor();
    repaint();
}

void TabWnd::fit_buffer()
{
    const SIZE client = client_size();
    if (buffer_.is_created() && buffer_.width == client.cx && buffer_.height == client.cy)
        return;
    buffer_.release();
    buffer_.create(client.cx, client.cy);
}

void TabWnd::repaint()
{
    InvalidateRect(hwnd(), nullptr, FALSE);
}

bool TabWnd::on_paint()
{
    const ovlib::PaintDC dc(*this);
    if (!buffer_.is_created())
        return true;
    draw_tabs(buffer_.dc(), { buffer_.width, buffer_.height }, items_, { current_tab_, hover_tab_ });
    buffer_.copy_to(dc);
    return true;
}

void TabWnd::set_hover(std::uint64_t tab)
{
    if (tab == hover_tab_)
        return;
    hover_tab_ = tab;
    repaint();
}

void TabWnd::hover_at_cursor()
{
    set_hover(tab_at(items_, ovlib::to_point(cursor_pos())));
    if (hover_tab_ != 0)
        track_leave();
}

// If the mouse is over another window, the system posts WM_MOUSELEAVE at once.
void TabWnd::track_leave()
{
    TRACKMOUSEEVENT track{ sizeof track, TME_LEAVE, hwnd(), 0 };
    TrackMouseEvent(&track);
}

bool TabWnd::on_mouse_move(platform::Point point)
{
    set_hover(tab_at(items_, point));
    show_tip(hover_tab_);
    track_leave();
    return true;
}

void TabWnd::show_tip(std::uint64_t tab)
{
    const TabItem* const item = find_tab(items_, tab);
    if (item == nullptr) {
        tip_.show(L"", {});
        return;
    }
    constexpr int right = 10;
    constexpr int up = 8;
    constexpr Color white{ 0xFFFFFF };
    POINT place{};
    GetCursorPos(&place);
    place.x += right;
    place.y += GetSystemMetrics(SM_CYCURSOR) - up;
    tip_.set_colors({ white, item->color, white });
    tip_.show(item->caption, place);
}

bool TabWnd::on_mouse_leave()
{
    if (tip_.is_visible())
        tip_.show(L"", {});
    if (menu_.is_showing())
        return false;
    set_hover(0);
    return true;
}

bool TabWnd::on_press(platform::Point point)
{
    const std::uint64_t tab = tab_at(items_, point);
    const ovlib::WndWatch alive(this);
    if (tab != 0 && tab != current_tab_)
        parent()->send_command(core::command::go_to_tab, 0, static_cast<std::int64_t>(tab));
    if (alive)
        set_focus();
    return true;
}

bool TabWnd::on_right_release(platform::Point point)
{
    const ovlib::WndWatch alive(this);
    if (const TabItem* const item = find_tab(items_, tab_at(items_, point)))
        show_menu(*item);
    if (alive)
        set_focus();
    return true;
}

// A click leaves the keyboard on the strip, which has nothing to type into. With the first key the parent
// gives the keyboard to one of its fields. The key is sent, not posted: the message loop has translated it
// already.
bool TabWnd::hand_on_key(const ovlib::WndMessage& message)
{
    if (focus() == hwnd())
        parent()->set_focus();
    const HWND field = focus();
    if (!field || field == hwnd() || field == parent()->hwnd())
        return false;
    SendMessageW(field, message.message, message.wparam, message.lparam);
    return true;
}

void TabWnd::show_menu(const TabItem& item)
{
    menu_tab_ = item.number;
    for (std::size_t i = 0; i < named_tab_color_count; ++i)
        menu_.check(core::command::first_tab_color + static_cast<int>(i), tab_color(i) == item.color);
    tip_.show(L"", {});
    const ovlib::WndWatch alive(this);
    menu_.show(*this, 0);
    // The mouse may have left during the menu, and the system reports that only once.
    if (alive)
        hover_at_cursor();
}

// The parent removes the tab, because it asks the user first.
bool TabWnd::on_command(int id)
{
    book::Page* const page = book_->page_of_tab(menu_tab_);
    if (page == nullptr)
        return false;
    if (id == core::command::remove_tab) {
        parent()->send_command(core::command::remove_tab, 0, reinterpret_cast<std::intptr_t>(page));
        return false;
    }
    if (!chosen_.choose(id, *page))
        return false;
    if (menu_tab_ <= items_.size())
        items_[static_cast<std::size_t>(menu_tab_ - 1)].color = chosen_.color();
    menu_tab_ = 0;
    repaint();
    return true;
}

} // namespace look
