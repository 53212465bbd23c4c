#include "media/image_layout.hpp"
#include "media/entry_text.hpp"
#include <algorithm>
#include <cmath>

namespace media {

using platform::Point;
using platform::Rect;
using platform::Size;

namespace {

constexpr int longest_side = 1 << 30; // so that adding two coordinates cannot overflow
constexpr double thumbnail_share = 0.8;
constexpr int text_margin = 8;
constexpr int label_margin = 4;
constexpr int label_slant = 2; // the last letter may extend past the measured width
constexpr int icon_gap = 2;

// 0 for NaN too, because a comparison with it is false.
int whole_pixels(double length)
{
    return length > 0 ? static_cast<int>(std::min<double>(length, longest_side)) : 0;
}

int zoomed(int side, std::int32_t percent)
{
    return percent == 100 ? side : whole_pixels(std::round(side * (percent / 100.0)));
}

Rect actual_size(const LayoutRequest& request)
{
    const int width = zoomed(request.image.width, request.percent);
    const int height = zoomed(request.image.height, request.percent);
    const Rect& client = request.client;
    const int left = (client.left + client.right) / 2 - width / 2;
    const int top = (client.top + client.bottom) / 2 - height / 2;
    return { left, top, left + width, top + height };
}

// Rounds only at the end: with the width truncated first, the height could be whole rows too small.
Rect fitted(Size image, const Rect& box)
{
    if (image.height == 0)
        return {};
    const double aspect = static_cast<double>(image.width) / image.height;
    const double fitted_width = std::min<double>(box.height() * aspect, box.width());
    const int width = whole_pixels(fitted_width);
    const int height = whole_pixels(fitted_width / aspect);
    const int left = (box.width() - width) / 2 + box.left;
    const int top = (box.height() - height) / 2 + box.top;
    return { left, top, left + width, top + height };
}

// A thumbnail leaves room for its frame and its name.
Rect thumbnail_box(const Rect& client)
{
    const int width = static_cast<int>(std::round(client.width() * thumbnail_share));
    const int height = static_cast<int>(std::round(client.height() * thumbnail_share));
    const int left = (client.width() - width) / 2 + client.left;
    const int top = (client.height() - height) / 2 + client.top;
    return { left, top, left + width, top + height };
}

Rect draw_rect_of(const LayoutRequest& request)
{
    if (request.mode == mode_actual_size)
        return actual_size(request);
    if (request.mode != mode_fit)
        return {};
    const bool is_picture = request.content == Content::picture;
    return fitted(request.image, is_picture ? request.client : thumbnail_box(request.client));
}

double proportion(int drawn, int whole)
{
    return whole == 0 ? 0 : static_cast<double>(drawn) / whole;
}

struct VisibleSpan {
    int from = 0; // in image pixels
    int to = 0;
    double start = 0; // on the canvas
    double length = 0;
};

// One direction of a visible part. When a picture is reduced, several of its pixels are mixed into one. When
// it is enlarged, each further one would cost a strip as wide as the enlarged pixel.
VisibleSpan visible_span(int target_from, int target_to, int image, int canvas)
{
    constexpr double mixed_pixels = 4;
    const double scale = (static_cast<double>(target_to) - target_from) / image;
    const double margin = scale < 1 ? std::ceil(mixed_pixels / scale) : 1;
    const double first = std::floor((0.0 - target_from) / scale) - margin;
    const double last = std::ceil((static_cast<double>(canvas) - target_from) / scale) + margin;
    const auto from = static_cast<int>(std::clamp<double>(first, 0, image));
    const auto to = static_cast<int>(std::clamp<double>(last, 0, image));
    return { from, to, target_from + from * scale, (to - from) * scale };
}

} // namespace

ImageLayout layout_image(const LayoutRequest& request)
{
    ImageLayout layout;
    layout.mode = request.mode;
    if (request.content == Content::nothing)
        return layout;
    layout.image_rect = { 0, 0, request.image.width, request.image.height };
    layout.draw_rect = draw_rect_of(request);
    layout.scale = std::max(proportion(layout.draw_rect.width(), request.image.width),
        proportion(layout.draw_rect.height(), request.image.height));
    return layout;
}

Rect draw_target(const ImageLayout& layout, Point offset)
{
    // At actual size a picture larger than the client area begins at the scroll offset; a smaller one stays
    // centred.
    const Rect& drawn = layout.draw_rect;
    if (layout.mode != mode_actual_size)
        return drawn;
    const int left = offset.x + std::max(drawn.left, 0);
    const int top = offset.y + std::max(drawn.top, 0);
    return { left, top, left + drawn.width(), top + drawn.height() };
}

std::optional<VisiblePart> visible_part(const Rect& target, Size image, Size canvas)
{
    const bool meets = target.left < canvas.width && target.right > 0 && target.top < canvas.height
        && target.bottom > 0 && target.left < target.right && target.top < target.bottom;
    if (!meets || image.width <= 0 || image.height <= 0)
        return std::nullopt;
    const VisibleSpan across = visible_span(target.left, target.right, image.width, canvas.width);
    const VisibleSpan down = visible_span(target.top, target.bottom, image.height, canvas.height);
    return VisiblePart{ { across.from, down.from, across.to, down.to }, across.start, down.start,
        across.length, down.length };
}

Drawing drawing_of(std::int32_t mode, Content content)
{
    if ((mode != mode_actual_size && mode != mode_fit) || content == Content::nothing)
        return Drawing::missing_text;
    return content == Content::picture ? Drawing::picture : Drawing::thumbnail;
}

Placeholder placeholder_of(const std::wstring& path)
{
    return is_url(path) ? Placeholder::address_icon : Placeholder::thumbnail;
}

Point icon_place(const Rect& rect, Size icon)
{
    return { rect.left + (rect.width() - icon.width) / 2, rect.top + (rect.height() - icon.height) / 2 };
}

FrameLabel frame_label(
    const Rect& frame, const std::wstring& path, int font_height, int icon_width, int canvas_width)
{
    FrameLabel label;
    label.has_icon = !is_url(path);
    label.icon = { frame.left - label_margin, frame.top - font_height - label_margin };
    const int left = label.icon.x + (label.has_icon ? icon_width + icon_gap : 0);
    label.text = { left, label.icon.y, std::max(left, canvas_width), label.icon.y + font_height };
    return label;
}

MissingText missing_text(const std::wstring& path)
{
    if (path.empty())
        return { L"- No Files -", false };
    std::wstring text = L"Err: ファイルが見つかりません";
    if (!is_url(path))
        text += L" (ダブルクリックで探索を試行)";
    return { text + L"\r\n" + path, true };
}

Rect missing_text_rect(Size canvas)
{
    return { text_margin, text_margin, canvas.width - text_margin, canvas.height };
}

Rect label_box(Point text, Size size)
{
    return { text.x - label_margin, text.y - label_margin, text.x + size.width + label_margin + label_slant,
        text.y + size.height + label_margin };
}

} // namespace media
