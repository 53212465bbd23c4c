#include "ovlib/gui/scrollbar.hpp"

namespace ovlib {

ScrollBar::ScrollBar(Wnd* bar_owner, int which)
    : owner(bar_owner)
    , bar(which)
{
}

std::optional<ScrollRange> ScrollBar::range() const
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    if (owner == nullptr || !GetScrollInfo(owner->hwnd(), bar, &info))
        return {};
    return ScrollRange{ info.nMin, info.nMax, info.nPage, info.nPos };
}

int ScrollBar::pos() const
{
    const auto told = range();
    return told ? told->pos : 0;
}

double ScrollBar::fraction() const
{
    const auto told = range();
    return told ? scroll_fraction(*told) : 0.0;
}

int ScrollBar::clamp(int pos) const
{
    const auto told = range();
    return told ? clamp_scroll(*told, pos) : pos;
}

void ScrollBar::scroll_by(int delta)
{
    if (owner == nullptr)
        return;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_POS;
    info.nPos = pos() + delta;
    SetScrollInfo(owner->hwnd(), bar, &info, TRUE);
}

bool ScrollBar::is_visible() const
{
    SCROLLBARINFO info{};
    info.cbSize = sizeof info;
    const LONG object = static_cast<LONG>(bar == SB_HORZ ? OBJID_HSCROLL : OBJID_VSCROLL);
    if (owner == nullptr || !GetScrollBarInfo(owner->hwnd(), object, &info))
        return false;
    return (info.rgstate[0] & STATE_SYSTEM_INVISIBLE) == 0;
}

} // namespace ovlib
