#include "media/wnd/viewer.hpp"
#include "core/settings.hpp"
#include "media/display_name.hpp"
#include "ovlib/gui/owner_drawn.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "platform/scoped_flag.hpp"
#include <utility>
#include <vector>

namespace media {

using ovlib::from_rect;
using platform::Point;
using platform::Rect;

namespace {

constexpr int first_side = 500; // of the window's rectangle

BOOL CALLBACK note_screen(HMONITOR, HDC, RECT* place, LPARAM screens) noexcept
{
    reinterpret_cast<std::vector<Rect>*>(screens)->push_back(from_rect(*place));
    return TRUE;
}

std::vector<Rect> all_screens()
{
    std::vector<Rect> screens;
    EnumDisplayMonitors(nullptr, nullptr, &note_screen, reinterpret_cast<LPARAM>(&screens));
    return screens;
}

} // namespace

Viewer::Viewer(ovlib::Wnd* parent, book::Book* book, ImageLoader& loader, PathAnswers& paths,
    const ovlib::MenuPictures* menu_pictures)
    : SubWnd(parent, 0)
    , book_(book)
    , loader_(loader)
    , paths_(paths)
    , menu_pictures_(menu_pictures)
    , canvas_(*this, loader)
    , buttons_(this)
    , bars_(this)
{
}

bool Viewer::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_CREATE:
        on_create();
        return false;
    case WM_DESTROY:
        end_drag();
        state_.close();
        return false;
    case WM_CLOSE:
        close();
        return true;
    // The system shows all windows again when their owner is restored, even one that was closed meanwhile.
    case WM_SHOWWINDOW:
        return message.lparam == SW_PARENTOPENING && !state_.may_return_with_owner();
    case WM_ERASEBKGND:
        message.result = 1;
        return true;
    case WM_PAINT:
        return on_paint();
    case WM_SIZE:
        return on_size(message.wparam);
    case WM_EXITSIZEMOVE:
        store_place();
        return true;
    case WM_MEASUREITEM:
    case WM_DRAWITEM:
        return on_draw_item(message);
    case WM_COMMAND:
        return on_command(LOWORD(message.wparam), HIWORD(message.wparam));
    case WM_KEYDOWN:
        return on_key(message.wparam);
    case WM_CONTEXTMENU:
        return on_menu_key(message);
    case WM_HSCROLL:
        return on_scroll(SB_HORZ, message);
    case WM_VSCROLL:
        return on_scroll(SB_VERT, message);
    default:
        return on_frame_message(message) || on_mouse(message);
    }
}

std::wstring Viewer::class_info(WNDCLASSEXW& info)
{
    SubWnd::class_info(info);
    info.style |= CS_DBLCLKS;
    info.hIcon = main_window().class_icon();
    info.hIconSm = main_window().class_small_icon();
    return ovlib::window_class_name(L"viewer", 1);
}

void Viewer::create_params(CREATESTRUCTW& params)
{
    SubWnd::create_params(params);
    params.style |= WS_CLIPCHILDREN;
    params.cx = params.cy = first_side;
}

void Viewer::on_create()
{
    buttons_.create();
    buttons_.enable(zoom_choices(zoom_));
    look::color_caption(hwnd());
    is_ready_ = false;
    was_placed_ = false;
}

void Viewer::open()
{
    if (!is_window() && !create(L""))
        return;
    is_ready_ = false; // nothing is drawn until the window has its place
    if (is_minimized())
        show_cmd(SW_RESTORE);
    place();
    state_.open();
    show_cmd(SW_SHOW);
    take_new_file();
    SetForegroundWindow(hwnd());
}

// The first place is the stored one. Later the window keeps its own, unless that screen is no longer there.
void Viewer::place()
{
    const std::vector<Rect> screens = all_screens();
    if (!std::exchange(was_placed_, true)) {
        if (const auto stored = first_viewer_place(core::settings().view_rect, screens))
            set_rect(ovlib::to_rect(*stored), false);
    } else if (!is_on_screen(from_rect(rect()), screens)) {
        bring_into_view(false);
    }
}

// When the active window is hidden, the system may activate a window of another program. So the main window
// is activated first.
void Viewer::close()
{
    end_drag();
    state_.close();
    if (GetActiveWindow() == hwnd() && main_window().is_enabled())
        SetForegroundWindow(main_window().hwnd());
    show_cmd(SW_HIDE);
}

// The rectangle of a maximised window would become that of an ordinary one.
void Viewer::store_place() const
{
    if (!is_maximized() && !is_minimized())
        core::settings().view_rect = from_rect(rect());
}

bool Viewer::is_at_actual_size() const
{
    return effective_view_mode(core::settings().view_mode) == mode_actual_size;
}

void Viewer::take_new_file()
{
    if (!is_window())
        return;
    is_ready_ = true;
    if (loader_.is_loading()) // it is called again after the load
        return;
    name_ = loader_.path().empty() ? std::wstring{} : display_name(loader_.path(), paths_);
    zoom_ = actual_zoom;
    bars_.center();
    refresh(KeepView::ratio);
}

void Viewer::set_view(std::int32_t mode, std::int32_t zoom)
{
    end_drag();
    core::settings().view_mode = mode;
    zoom_ = zoom;
    if (!is_at_actual_size())
        buttons_.show(false);
    refresh(KeepView::ratio);
}

// In fit mode the first step starts from the size that the picture has there.
void Viewer::zoom_by(ZoomStep step)
{
    take_focus_from_buttons();
    const std::int32_t shown = is_at_actual_size() ? zoom_ : zoom_of_scale(canvas_.placed().scale);
    const std::int32_t wanted = next_zoom(shown, step);
    if (!is_at_actual_size() || wanted != zoom_)
        set_view(mode_actual_size, wanted);
}

// While the shell loads a file the window keeps its bitmap, and a minimised one has no client area. Both are
// followed by another refresh.
void Viewer::refresh(KeepView keep)
{
    buttons_.enable(zoom_choices(zoom_));
    if (is_minimized()) {
        set_text(viewer_title(name_, {}, 0));
        is_stale_ = true;
    }
    if (is_minimized() || loader_.is_loading())
        return;
    lay_out(keep);
    invalidate();
    if (!is_ready_)
        return;
    UpdateWindow(hwnd());
    show_title();
}

// The bars take room from the client area, in which the picture is centred after that.
void Viewer::lay_out(KeepView keep)
{
    const platform::ScopedFlag laying_out{ is_laying_out_ };
    if (!is_at_actual_size()) {
        bars_.hide();
        canvas_.layout(mode_fit, 0);
        return;
    }
    canvas_.layout(mode_actual_size, zoom_);
    const Rect& drawn = canvas_.placed().draw_rect;
    bars_.fit({ drawn.width(), drawn.height() }, keep);
    canvas_.layout(mode_actual_size, zoom_);
}

void Viewer::draw_anew()
{
    if (!is_window())
        return;
    invalidate();
    UpdateWindow(hwnd());
}

void Viewer::invalidate()
{
    is_stale_ = true;
    InvalidateRect(hwnd(), nullptr, FALSE);
}

void Viewer::show_title()
{
    const ImageLayout& layout = canvas_.placed();
    const platform::Size image{ layout.image_rect.width(), layout.image_rect.height() };
    const std::wstring title = viewer_title(name_, image, layout.scale);
    if (title != text())
        set_text(title);
}

// Drawing here merges the moves of a drag that arrive faster than a picture can be drawn.
bool Viewer::on_paint()
{
    const ovlib::PaintDC dc{ *this };
    if (!is_ready_)
        return true;
    if (is_stale_ && !loader_.is_loading()) {
        const Point scrolled = bars_.position();
        canvas_.draw(-scrolled.x, -scrolled.y);
        is_stale_ = !canvas_.is_created(); // without memory for it the next paint tries again
    }
    canvas_.copy_to(dc);
    return true;
}

bool Viewer::on_size(std::uint64_t kind)
{
    if (is_laying_out_ || kind == SIZE_MINIMIZED)
        return true;
    if (!is_stale_ && canvas_.area() == ovlib::to_size(client_size()))
        return true;
    refresh(kind == SIZE_RESTORED || kind == SIZE_MAXIMIZED ? KeepView::ratio : KeepView::position);
    return true;
}

bool Viewer::on_draw_item(ovlib::WndMessage& message)
{
    if (message.message == WM_DRAWITEM && ovlib::route_draw_item(message))
        return true;
    return menu_pictures_ && menu_pictures_->on_message(message);
}

} // namespace media
