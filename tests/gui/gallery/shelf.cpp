#include "shelf.hpp"
#include "ovlib/gui/dc.hpp"
#include <algorithm>

namespace gallery {

namespace {

constexpr int title_height = 20;
constexpr int caption_height = 17;
constexpr int gap_x = 10;
constexpr int gap_y = 5;

int width_of(const std::wstring& text)
{
    const ovlib::MemDC dc;
    const ovlib::ObjectSelection font{ dc, shared_font(SharedFont::ui_8) };
    SIZE size{};
    GetTextExtentPoint32W(dc.handle(), text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
}

} // namespace

Shelf::Shelf(GalleryWnd& wnd, const RECT& area)
    : wnd_(wnd)
    , area_(area)
    , x_(area.left)
    , y_(area.top)
{
}

void Shelf::group(const std::wstring& title)
{
    end_row();
    wnd_.write({ x_, y_, area_.right, y_ + title_height }, title, SharedFont::ui_9_bold);
    y_ += title_height;
}

RECT Shelf::place(int width, int height, const std::wstring& caption)
{
    const int room = std::max(width, width_of(caption));
    if (x_ != area_.left && x_ + room > area_.right)
        end_row();
    const int above = caption.empty() ? 0 : caption_height;
    if (above != 0)
        wnd_.write({ x_, y_, x_ + room, y_ + above }, caption, SharedFont::ui_8);
    const RECT made{ x_, y_ + above, x_ + width, y_ + above + height };
    x_ += room + gap_x;
    row_height_ = std::max(row_height_, above + height);
    return made;
}

void Shelf::end_row()
{
    x_ = area_.left;
    y_ += row_height_ == 0 ? 0 : row_height_ + gap_y;
    row_height_ = 0;
}

} // namespace gallery
