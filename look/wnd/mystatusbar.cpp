#include "look/wnd/mystatusbar.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "ovlib/gui/text_stream.hpp"
#include <commctrl.h>
#include <utility>

namespace look {

MyStatusBar::MyStatusBar(ovlib::Wnd* parent, int control_id, const book::Book* book)
    : StatusBar(parent, control_id)
    , book_(book)
{
}

bool MyStatusBar::create(const std::wstring& title)
{
    if (!StatusBar::create(title))
        return false;
    set_parts({ status_right_edges.begin(), status_right_edges.end() });
    rewrite_parts();
    return true;
}

void MyStatusBar::create_params(CREATESTRUCTW& params)
{
    StatusBar::create_params(params);
    params.style &= ~static_cast<LONG>(SBARS_SIZEGRIP);
}

void MyStatusBar::rewrite_parts()
{
    for (int index = 0; index < status_part_count; ++index)
        set_part_text(index, L"", SBT_OWNERDRAW);
}

void MyStatusBar::show_changes()
{
    for (int index = 0; index < status_part_count; ++index) {
        if (take_change(index))
            invalidate_part(index);
    }
    UpdateWindow(hwnd());
}

bool MyStatusBar::draw_item(const DRAWITEMSTRUCT& item)
{
    if (hwnd() == nullptr || item.hwndItem != hwnd())
        return false;
    const auto index = static_cast<int>(item.itemID);
    // The system may ask for only a piece of the part. If the text has changed, the old text would remain
    // beside the new piece, so the whole part is invalidated.
    if (take_change(index))
        invalidate_part(index);
    draw_part(index, item.hDC, item.rcItem);
    return true;
}

// Whether the part's content differs from what it shows. From now on the new content counts as shown.
bool MyStatusBar::take_change(int index)
{
    const auto at = static_cast<std::size_t>(index);
    if (at >= shown_.size())
        return false;
    StatusPart now = part_of_book(index);
    if (now == shown_[at])
        return false;
    shown_[at] = std::move(now);
    return true;
}

void MyStatusBar::invalidate_part(int index) const
{
    const RECT place = part_rect(index);
    InvalidateRect(hwnd(), &place, FALSE);
}

StatusPart MyStatusBar::part_of_book(int index) const
{
    return book_ != nullptr ? status_part(*book_, index) : StatusPart{};
}

void MyStatusBar::draw_part(int index, HDC dc, const RECT& rect)
{
    if (part_count() < index)
        return;
    const ovlib::GDI::Brush ground(ovlib::GDI::solid_brush(palette().status_back));
    FillRect(dc, &rect, ground.handle());
    const StatusPart part = part_of_book(index);
    ovlib::GDI::TextStream stream{ ovlib::DC(dc) };
    stream.back_mode = TRANSPARENT;
    stream.x = stream.origin_x = rect.left + part.left;
    if (part.is_path) {
        stream.width = static_cast<int>(rect.right - rect.left) - path_margin;
        stream.flags |= DT_PATH_ELLIPSIS;
    }
    for (const StatusRun& run : part.runs) {
        stream.y = rect.top + run.top;
        stream.font = shared_font(run.font);
        stream.color = run.tone == StatusTone::value ? palette().status_value : palette().status_label;
        stream << run.text;
    }
}

} // namespace look
