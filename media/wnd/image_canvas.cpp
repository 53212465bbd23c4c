#include "media/wnd/image_canvas.hpp"
#include "core/locks.hpp"
#include "look/theme.hpp"
#include "media/blend.hpp"
#include "media/display_name.hpp"
#include "ovlib/gui/gdip.hpp"
#include "ovlib/gui/shicon.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/gui/text_stream.hpp"
#include <algorithm>
#include <commctrl.h>
#include <shellapi.h>
#include <span>

namespace media {

using look::palette;
using look::SharedFont;
using ovlib::ObjectSelection;
using ovlib::to_rect;
using platform::Point;
using platform::Rect;
using platform::Size;

namespace {

constexpr ovlib::Color black{ 0x000000 };
constexpr ovlib::Color white{ 0xFFFFFF };
constexpr SharedFont label_font = SharedFont::ui_9_bold;
constexpr SharedFont missing_font = SharedFont::ui_10_bold;

Size text_size(const ovlib::DC& dc, HFONT font, const std::wstring& text)
{
    const ObjectSelection selected{ dc, font };
    SIZE size{};
    GetTextExtentPoint32W(dc.handle(), text.c_str(), static_cast<int>(text.size()), &size);
    return ovlib::to_size(size);
}

int font_height(const ovlib::DC& dc, HFONT font)
{
    const ObjectSelection selected{ dc, font };
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc.handle(), &metrics);
    return static_cast<int>(metrics.tmHeight);
}

void draw_icon(const ovlib::DC& dc, const ovlib::SHIcon& icon, Point at)
{
    DrawIconEx(dc.handle(), at.x, at.y, icon.icon(), icon.width(), icon.height(), 0, nullptr, DI_NORMAL);
}

// A metafile is drawn as a whole: its own units are not pixels.
bool is_bitmap(Gdiplus::GpImage* picture)
{
    Gdiplus::ImageType type = Gdiplus::ImageTypeUnknown;
    return Gdiplus::DllExports::GdipGetImageType(picture, &type) == Gdiplus::Ok
        && type == Gdiplus::ImageTypeBitmap;
}

Gdiplus::RectF on_canvas(const VisiblePart& part)
{
    return { static_cast<float>(part.left), static_cast<float>(part.top), static_cast<float>(part.width),
        static_cast<float>(part.height) };
}

// Sets the stretch mode for the length of a scope.
class StretchMode {
public:
    StretchMode(const ovlib::DC& dc, int mode)
        : dc_(dc)
        , previous_(SetStretchBltMode(dc.handle(), mode))
    {
    }
    StretchMode(const StretchMode&) = delete;
    StretchMode& operator=(const StretchMode&) = delete;
    ~StretchMode() { SetStretchBltMode(dc_.handle(), previous_); }

private:
    const ovlib::DC& dc_;
    int previous_;
};

} // namespace

ImageCanvas::ImageCanvas(const ovlib::Wnd& owner, ImageLoader& loader)
    : owner_(owner)
    , loader_(loader)
{
}

bool ImageCanvas::fit()
{
    const std::scoped_lock hold{ core::drawing_lock() };
    const SIZE client = owner_.client_size();
    const Size wanted{ std::max<int>(client.cx, 1), std::max<int>(client.cy, 1) };
    if (is_created() && area() == wanted)
        return true;
    release();
    if (!create(wanted.width, wanted.height))
        return false;
    clear();
    return true;
}

void ImageCanvas::layout(std::int32_t mode, std::int32_t percent)
{
    const std::scoped_lock hold{ core::drawing_lock() };
    layout_ = layout_image(
        { mode, percent, loader_.content(), loader_.size(), ovlib::from_rect(owner_.client_rect()) });
}

void ImageCanvas::draw(int x_offset, int y_offset)
{
    const std::scoped_lock hold{ core::drawing_lock() };
    frames_.clear();
    if (!fit())
        return;
    clear();
    const Rect target = draw_target(layout_, { x_offset, y_offset });
    switch (drawing_of(layout_.mode, loader_.content())) {
    case Drawing::picture:
        draw_picture(target);
        break;
    case Drawing::thumbnail:
        draw_placeholder(target);
        draw_frame(target);
        break;
    case Drawing::missing_text:
        draw_missing();
        break;
    }
    ovlib::finish_drawing();
}

std::uint32_t ImageCanvas::draw_animation_step(const AnimationStep& step)
{
    const std::scoped_lock hold{ core::drawing_lock() };
    draw_frame_of_animation(step);
    if (step.is_paused)
        draw_labelled_text(look::shared_font(label_font), paused_text, paused_text_place(layout_.draw_rect),
            white, paused_text_alpha);
    if (step.has_overlay) {
        draw_text(look::shared_font(label_font), delay_text(step.delay), delay_text_rect(area()),
            palette().viewer_text);
        draw_seek_bar(step.run, step.frame);
    }
    ovlib::finish_drawing();
    return step.is_paused ? paused_wait : frame_time(step.delay);
}

// From the second time on a frame is copied.
void ImageCanvas::draw_frame_of_animation(const AnimationStep& step)
{
    frames_.use({ area(), layout_.draw_rect, loader_.interpolation_mode, palette().viewer_back });
    const std::span<std::uint8_t> pixels{ bits,
        is_created() ? static_cast<std::size_t>(stride) * static_cast<std::size_t>(height) : 0 };
    ovlib::finish_drawing();
    if (const auto kept = frames_.find(step.frame); !kept.empty() && kept.size() == pixels.size()) {
        std::ranges::copy(kept, pixels.begin());
        return;
    }
    clear();
    draw_picture(layout_.draw_rect);
    ovlib::finish_drawing();
    if (step.is_decoded)
        frames_.keep(step.frame, pixels);
}

void ImageCanvas::clear()
{
    const std::scoped_lock hold{ core::drawing_lock() };
    ovlib::fill_rect(*this, palette().viewer_back, { 0, 0, width, height });
}

void ImageCanvas::draw_picture(const Rect& target)
{
    Gdiplus::GpImage* const picture = loader_.picture();
    if (!picture || !is_created())
        return;
    ovlib::GDIP gdip{ dc().handle() };
    gdip.set_interpolation(static_cast<Gdiplus::InterpolationMode>(loader_.interpolation_mode));
    const bool is_inside =
        target.left >= 0 && target.top >= 0 && target.right <= width && target.bottom <= height;
    if (is_inside || !is_bitmap(picture))
        gdip.draw_image(picture, to_rect(target));
    else if (const auto part = visible_part(target, loader_.size(), area()))
        gdip.draw_image(picture, to_rect(part->source), on_canvas(*part));
}

void ImageCanvas::draw_placeholder(const Rect& rect)
{
    const std::scoped_lock hold{ core::drawing_lock() };
    if (placeholder_of(loader_.path()) == Placeholder::address_icon)
        draw_address_icon(rect);
    else
        draw_thumbnail(rect);
}

// Drawn in its natural size: an enlarged icon would not be clearer.
void ImageCanvas::draw_address_icon(const Rect& rect)
{
    ovlib::SHIcon icon;
    icon.load(address_icon_file, SHIL_JUMBO);
    if (icon)
        draw_icon(dc(), icon, icon_place(rect, { icon.width(), icon.height() }));
}

void ImageCanvas::draw_thumbnail(const Rect& rect)
{
    const ShellThumbnail& from = loader_.thumbnail();
    // Created for each drawing, because the background colour follows the theme.
    const ovlib::GDI::Bitmap of_icon =
        from.icon() ? icon_picture(*from.icon(), palette().viewer_back) : ovlib::GDI::Bitmap{};
    const ovlib::MemDC source{ dc().handle() };
    const ObjectSelection selected{ source, of_icon ? of_icon.handle() : from.bitmap() };
    const StretchMode mode{ dc(), HALFTONE };
    StretchBlt(dc().handle(), rect.left, rect.top, rect.width(), rect.height(), source.handle(), 0, 0,
        from.width(), from.height(), SRCCOPY);
}

void ImageCanvas::draw_frame(const Rect& rect)
{
    const std::scoped_lock hold{ core::drawing_lock() };
    {
        const ovlib::GDI::Pen line{ ovlib::GDI::solid_pen(frame_pen_width, white) };
        const ObjectSelection pen{ dc(), line };
        const ObjectSelection hollow{ dc(), GetStockObject(HOLLOW_BRUSH) };
        Rectangle(dc().handle(), rect.left, rect.top, rect.right, rect.bottom);
    }
    note_label();
    const ovlib::SHIcon& icon = *label_icon_;
    HFONT const font = look::shared_font(label_font);
    const FrameLabel label = frame_label(rect, loader_.path(), font_height(dc(), font), icon.width(), width);
    if (label.has_icon && icon)
        draw_icon(dc(), icon, label.icon);
    draw_text(
        font, label_name_, label.text, palette().viewer_text, DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
}

// Both query the disk, which may be a share that does not answer any more.
void ImageCanvas::note_label()
{
    if (label_icon_ && labelled_load_ == loader_.load_number())
        return;
    labelled_load_ = loader_.load_number();
    label_name_ = display_name(loader_.path());
    label_icon_.emplace();
    label_icon_->load(loader_.path(), SHIL_SMALL);
}

// DT_EDITCONTROL breaks a path without blanks at the edge of the pane, so that all of it can be read.
void ImageCanvas::draw_missing()
{
    const std::scoped_lock hold{ core::drawing_lock() };
    const MissingText text = missing_text(loader_.path());
    draw_text(look::shared_font(missing_font), text.text, missing_text_rect(area()),
        text.is_error ? palette().viewer_error : palette().viewer_text,
        DT_NOPREFIX | DT_WORDBREAK | DT_EDITCONTROL);
}

void ImageCanvas::draw_labelled_text(
    HFONT font, const std::wstring& text, Point at, ovlib::Color color, int alpha)
{
    const std::scoped_lock hold{ core::drawing_lock() };
    // Blending writes into the bits, so GDI must have finished drawing.
    if (alpha < opaque_label) {
        ovlib::finish_drawing();
        blend_rect({ bits, stride, width, height }, black, alpha, label_box(at, text_size(dc(), font, text)));
    }
    draw_text(font, text, { at.x, at.y, width, height }, color);
}

void ImageCanvas::draw_seek_bar(const GifRun& run, std::uint32_t frame)
{
    const std::scoped_lock hold{ core::drawing_lock() };
    if (run.first_frame() > run.last_frame())
        return;
    const SeekBarLook look = seek_bar_look(run, frame);
    const SeekBarColors colors = seek_bar_colors(palette().accent, palette().panel_back);
    ovlib::finish_drawing();
    const PixelRows rows{ bits, stride, width, height };
    blend_rect(rows, colors.played, seek_bar_alpha, look.played);
    blend_rect(rows, colors.rest, seek_bar_alpha, look.rest);
    ovlib::fill_rect(*this, colors.thumb,
        { look.thumb_start.x, look.thumb_start.y, look.thumb_end.x + 1, look.thumb_end.y });
    const Rect& edge = look.outline;
    ovlib::fill_rect(*this, colors.left_and_top, { edge.left, edge.top, edge.left + 1, edge.bottom });
    ovlib::fill_rect(*this, colors.left_and_top, { edge.left, edge.top, edge.right, edge.top + 1 });
    ovlib::fill_rect(*this, colors.right_and_bottom, { edge.right - 1, edge.top, edge.right, edge.bottom });
    ovlib::fill_rect(*this, colors.right_and_bottom, { edge.left, edge.bottom - 1, edge.right, edge.bottom });
}

void ImageCanvas::draw_text(
    HFONT font, const std::wstring& text, const Rect& rect, ovlib::Color color, UINT flags)
{
    ovlib::GDI::TextStream stream{ dc() };
    stream.back_mode = TRANSPARENT;
    stream.color = color;
    stream.font = font;
    stream.flags = flags;
    stream.draw(text, to_rect(rect));
}

} // namespace media
