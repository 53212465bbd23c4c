#include "ovlib/gui/statusbar.hpp"
#include <commctrl.h>

namespace ovlib {

StatusBar::StatusBar(Wnd* parent, int control_id)
    : SysControl(parent, control_id)
{
}

std::wstring StatusBar::class_info(WNDCLASSEXW&)
{
    return L"msctls_statusbar32";
}

void StatusBar::create_params(CREATESTRUCTW& params)
{
    SysControl::create_params(params);
    params.style |= SBARS_SIZEGRIP | CCS_BOTTOM | SBT_TOOLTIPS;
}

void StatusBar::borders(Borders& out) const
{
    int widths[3] = {};
    ask(SB_GETBORDERS, 0, reinterpret_cast<LPARAM>(widths));
    out = { widths[0], widths[1], widths[2] };
}

int StatusBar::part_count() const
{
    return static_cast<int>(ask(SB_GETPARTS));
}

RECT StatusBar::part_rect(int index) const
{
    RECT rect{};
    ask(SB_GETRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect));
    return rect;
}

std::wstring StatusBar::part_text(int index) const
{
    const auto at = static_cast<std::size_t>(index);
    return at < texts_.size() ? texts_[at] : std::wstring{};
}

void StatusBar::set_part_text(int index, const std::wstring& text, int flags)
{
    if (index < 0)
        return;
    const auto at = static_cast<std::size_t>(index);
    if (at >= texts_.size())
        texts_.resize(at + 1);
    texts_[at] = text;
    // For an owner-drawn part the parameter is a value of the program, not a text.
    const auto lparam =
        flags == SBT_OWNERDRAW ? static_cast<LPARAM>(index) : reinterpret_cast<LPARAM>(texts_[at].c_str());
    send(SB_SETTEXTW, static_cast<WPARAM>(index | flags), lparam);
}

void StatusBar::set_parts(const std::vector<int>& right_edges)
{
    send(SB_SETPARTS, right_edges.size(), reinterpret_cast<LPARAM>(right_edges.data()));
}

void StatusBar::draw_part(int, HDC, const RECT&) { }

} // namespace ovlib
