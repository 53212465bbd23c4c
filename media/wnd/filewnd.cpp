#include "media/wnd/filewnd.hpp"
#include "core/command_ids.hpp"
#include "core/data_root.hpp"
#include "core/folders.hpp"
#include "core/locks.hpp"
#include "core/settings.hpp"
#include "core/titles.hpp"
#include "ovlib/gui/drag_files.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/handles.hpp"
#include "platform/file.hpp"
#include "platform/scoped_flag.hpp"
#include <utility>

namespace media {

namespace command = core::command;
using platform::Point;

namespace {

// Below the range of ids for which the main window changes a double click into a press.
constexpr int pane_id = 1;
constexpr int corner = 11;
constexpr int double_click_box = 1050; // Enter in this input box counts as a double click on the pane
constexpr auto still_running = L"GifThread is still running.";

platform::Size drag_distance()
{
    static const platform::Size distance{ GetSystemMetrics(SM_CXDRAG), GetSystemMetrics(SM_CYDRAG) };
    return distance;
}

} // namespace

FileWnd::FileWnd(ovlib::Wnd* parent, book::Book* book, const PaneShell& shell)
    : ChildWnd(parent, pane_id)
    , book_(book)
    , file_drag_(shell.drag)
    , loader_(shell.thumbnails, shell.properties, shell.paths)
    , canvas_(*this, loader_)
    , viewer_(this, book, loader_, shell.paths, shell.menu_pictures)
{
}

// A window whose creation failed gets no WM_DESTROY.
FileWnd::~FileWnd()
{
    gif_thread_.stop();
    viewer_.destroy();
}

bool FileWnd::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_CREATE:
        load_mark();
        viewer_.create(L""); // without it the pane works all the same
        return false;
    case WM_DESTROY:
        on_destroy();
        return false;
    case WM_PAINT:
        return on_paint();
    case WM_ERASEBKGND:
        message.result = 1;
        return true;
    case WM_COMMAND:
        return on_command(message);
    case WM_LBUTTONDOWN:
        return on_press(ovlib::mouse_point(message));
    case WM_LBUTTONDBLCLK:
        return on_double_click(ovlib::mouse_point(message));
    case WM_RBUTTONUP:
        parent()->send_command(core::command::show_file_menu, 0, reinterpret_cast<std::intptr_t>(hwnd()));
        return true;
    case WM_MOUSEWHEEL:
        return on_wheel(message);
    case WM_MOUSEMOVE:
        return on_mouse_move(ovlib::mouse_point(message));
    default:
        return false;
    }
}

std::wstring FileWnd::class_info(WNDCLASSEXW& info)
{
    ChildWnd::class_info(info);
    info.style |= CS_DBLCLKS;
    info.hIconSm = parent()->class_small_icon();
    return ovlib::window_class_name(L"filewnd", 1666);
}

void FileWnd::create_params(CREATESTRUCTW& params)
{
    ChildWnd::create_params(params);
    params.x = params.y = params.cx = params.cy = 0;
}

void FileWnd::set_rect(const RECT& rect, bool repaint)
{
    ChildWnd::set_rect(rect, repaint);
    const platform::Size before = canvas_.area();
    if (canvas_.fit() && canvas_.area() != before)
        draw_anew();
    const SIZE whole = size();
    ovlib::UniqueRegion region{ CreateRoundRectRgn(0, 0, whole.cx + 1, whole.cy + 1, corner, corner) };
    if (SetWindowRgn(hwnd(), region.get(), repaint))
        region.release(); // owned by the system from now on
}

void FileWnd::load_mark()
{
    many_files_mark_.renew(ovlib::GDI::load_bitmap(core::folders().res + L"\\files.bmp"));
}

void FileWnd::on_destroy()
{
    gif_thread_.stop();
    viewer_.destroy();
    if (gif_thread_.is_held())
        message_box(still_running, core::message_caption(book_->path), MB_ICONWARNING);
}

void FileWnd::show_selected_file()
{
    loads_.make();
    if (!is_loading_ && load_latest() && viewer_.is_open())
        viewer_.take_new_file();
}

// False if there is nothing to load for, because the Book has no page.
bool FileWnd::load_latest()
{
    const platform::ScopedFlag loading{ is_loading_ };
    auto served = core::LatestRequest::Request::none;
    while (!loads_.is_latest(served) && book_->current_page()) {
        served = loads_.latest();
        load_and_show(served);
    }
    return served != core::LatestRequest::Request::none;
}

void FileWnd::load_and_show(core::LatestRequest::Request load)
{
    // The player holds the loader lock.
    gif_thread_.stop();
    loader_.load(selected_entry());
    // While the shell was queried, another file may have been requested, or the window may have been
    // destroyed.
    if (!loads_.is_latest(load) || !is_window())
        return;
    lay_out_and_draw();
    InvalidateRect(hwnd(), nullptr, TRUE);
    UpdateWindow(hwnd());
    if (loader_.state() == LoaderState::animation)
        gif_thread_.play(canvas_, first_state(book_->header.gif_autoplay != 0));
}

void FileWnd::lay_out_and_draw()
{
    const std::scoped_lock hold{ core::drawing_lock() };
    loader_.interpolation_mode = core::interpolation_mode(core::settings().interpolation_command);
    canvas_.layout(mode_fit, 0);
    canvas_.draw(0, 0);
}

void FileWnd::draw_anew()
{
    lay_out_and_draw();
    gif_thread_.redraw();
}

void FileWnd::scale_anew()
{
    draw_anew();
    InvalidateRect(hwnd(), nullptr, TRUE);
    UpdateWindow(hwnd());
    viewer_.draw_anew();
}

// The caller repaints.
void FileWnd::apply_theme()
{
    draw_anew();
}

std::wstring FileWnd::selected_entry() const
{
    const book::Page* page = book_->current_page();
    const std::wstring* entry = page ? book::selected_entry(*page) : nullptr;
    return entry ? *entry : std::wstring{};
}

bool FileWnd::on_paint()
{
    const ovlib::PaintDC dc{ *this };
    const std::scoped_lock hold{ core::drawing_lock() };
    const book::Page* page = book_->current_page();
    if (page && page->files.size() > 1)
        draw_many_files_mark();
    canvas_.copy_to(dc);
    return true;
}

// Draws into the canvas itself. The next frame of an animation clears the mark, and the next paint draws it
// again.
void FileWnd::draw_many_files_mark()
{
    BITMAP mark{};
    if (!many_files_mark_ || !canvas_.is_created()
        || GetObjectW(many_files_mark_.handle(), sizeof mark, &mark) == 0)
        return;
    const ovlib::MemDC source{ canvas_.dc().handle() };
    const ovlib::ObjectSelection selected{ source, many_files_mark_ };
    constexpr UINT transparent = RGB(0, 0, 0);
    TransparentBlt(canvas_.dc().handle(), canvas_.width - mark.bmWidth, 0, mark.bmWidth, mark.bmHeight,
        source.handle(), 0, 0, mark.bmWidth, mark.bmHeight, transparent);
}

bool FileWnd::on_command(const ovlib::WndMessage& message)
{
    if (LOWORD(message.wparam) != double_click_box
        || HIWORD(message.wparam) != core::command::input_form_enter)
        return false;
    send(WM_LBUTTONDBLCLK, 0, 0);
    return true;
}

bool FileWnd::on_press(Point at)
{
    gif_thread_.click(at);
    if (file_drag_)
        drag_.press(at);
    return true;
}

bool FileWnd::on_double_click(Point at)
{
    switch (double_click(loader_.loaded())) {
    case DoubleClick::press:
        return on_press(at);
    case DoubleClick::open:
        parent()->send_command(core::command::open_file, 0, 0);
        return true;
    case DoubleClick::search:
        parent()->send_command(core::command::search_moved_file, 0, 0);
        return true;
    default:
        return true;
    }
}

bool FileWnd::on_wheel(const ovlib::WndMessage& message)
{
    const int step = ovlib::wheel_step(wheel_, message);
    if (const auto wanted = wheel_command(step, GetAsyncKeyState(VK_CONTROL) < 0))
        parent()->send_command(*wanted, 0, 0);
    return true;
}

bool FileWnd::on_mouse_move(Point at)
{
    const ovlib::WndWatch alive{ this };
    if (book_->current_page() && drag_.is_due(at, drag_distance()))
        drag_file();
    if (!alive || !is_window())
        return true;
    TRACKMOUSEEVENT track{ sizeof track, TME_LEAVE, hwnd(), 0 };
    TrackMouseEvent(&track);
    return true;
}

void FileWnd::drag_file()
{
    core::set_current_directory(L"");
    const std::wstring entry = selected_entry();
    if (!platform::exists(entry))
        return;
    const std::wstring path = core::full_path(entry);
    drag_.disarm();
    if (const ovlib::DragScope drag; drag)
        file_drag_->run(path);
}

} // namespace media
