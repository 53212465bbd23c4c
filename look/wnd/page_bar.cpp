#include "look/wnd/page_bar.hpp"
#include "core/folders.hpp"
#include "look/page_bar_runs.hpp"
#include "look/theme.hpp"
#include "ovlib/gui/strokes.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "platform/process_log.hpp"
#include <algorithm>

namespace look {

namespace {

constexpr COLORREF see_through = 0xFFFFFF;

ovlib::Color color_of(book::PageSelection selected)
{
    return selected == book::PageSelection::selected ? palette().selected_bar : palette().pasted_bar;
}

} // namespace

PageBar::PageBar(const book::Book* book)
    : book_(book)
    , indicator_(ovlib::GDI::load_bitmap(core::folders().res + L"\\indicator.bmp"))
{
    view_.create(page_bar_size.width, page_bar_size.height);
    strip_.create(page_bar_size.width, page_bar_size.height);
    if (!indicator_)
        ovlib::WinApp::process_log().append(L"イメージの作成に失敗: indicator_bmp_\r\n");
}

void PageBar::redraw_strip()
{
    if (!strip_.is_created())
        return;
    ovlib::fill_rect(strip_, palette().bar_back, { 0, 0, strip_.width, strip_.height });
    ovlib::draw_strokes(strip_.dc(), page_bar_frame(palette().panel_back), 1);
    if (book_ == nullptr)
        return;
    for (const PageRun& run : page_runs(book_->pages))
        ovlib::fill_rect(strip_, color_of(run.selected), ovlib::to_rect(run.rect));
}

void PageBar::draw(std::size_t first, std::size_t last, std::size_t current)
{
    if (!strip_.is_created() || !view_.is_created())
        return;
    strip_.copy_to(view_.dc());
    if (page_count() == 0)
        return;
    blend(ovlib::to_rect(page_span(first, last, page_count())));
    draw_indicator(current);
}

// Mixes the colour of the span into the pixels of the strip, directly in memory: 24 bits each, in the order
// blue, green, red. GDI may not have drawn everything yet, so its batch is finished first. The span has the
// full height of the strip, so it does not matter that the rows are stored bottom-up.
void PageBar::blend(const RECT& span)
{
    ovlib::finish_drawing();
    const ovlib::Color color = palette().bar_view;
    const LONG right = std::min<LONG>(span.right, view_.width);
    for (LONG y = span.top; y < span.bottom; ++y) {
        std::uint8_t* at =
            view_.bits + static_cast<std::ptrdiff_t>(y) * view_.stride + std::ptrdiff_t{ span.left } * 3;
        for (LONG x = span.left; x < right; ++x, at += 3) {
            at[0] = blend_span(at[0], color.blue());
            at[1] = blend_span(at[1], color.green());
            at[2] = blend_span(at[2], color.red());
        }
    }
}

void PageBar::draw_indicator(std::size_t current)
{
    BITMAP facts{};
    if (!indicator_ || GetObjectW(indicator_.handle(), sizeof facts, &facts) == 0)
        return;
    const int width = static_cast<int>(facts.bmWidth);
    const int height = static_cast<int>(facts.bmHeight);
    const platform::Point place = indicator_place(current, page_count(), width);
    const ovlib::MemDC source;
    const ovlib::ObjectSelection selected(source, indicator_);
    TransparentBlt(view_.dc().handle(), place.x, place.y, width, height, source.handle(), 0, 0, width, height,
        see_through);
}

} // namespace look
