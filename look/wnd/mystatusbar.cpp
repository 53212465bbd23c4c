#include "look/wnd/mystatusbar.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "ovlib/gui/text_stream.hpp"
#include <commctrl.h>
#include <stdexcept>

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

bool MyStatusBar::draw_item(const DRAWITEMSTRUCT& item)
{
    if (hwnd() == nullptr || item.hwndItem != hwnd())
        return false;
    draw_part(static_cast<int>(item.itemID), item.hDC, item.rcItem);
    return true;
}

// The dates of a damaged stamp raise; nothing may pass from here into the system's painting.
StatusPart MyStatusBar::part_of_book(int index) const
try {
    return book_ != nullptr ? status_part(*book_, index) : StatusPart{};
} catch (const std::out_of_range&) {
    return {};
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
