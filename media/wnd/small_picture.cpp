#include "media/wnd/small_picture.hpp"
#include "look/theme.hpp"
#include "media/blend.hpp"
#include "media/image_layout.hpp"
#include "platform/path_text.hpp"
#include <cstdint>
#include <shellapi.h>
#include <vector>

namespace media {

using ovlib::ObjectSelection;
using platform::Point;
using platform::Rect;

namespace {

constexpr COLORREF film_gap = RGB(255, 0, 255); // transparent parts of the film strip

Rect square_at(Point at)
{
    return { at.x, at.y, at.x + small_picture_side, at.y + small_picture_side };
}

// The file whose icon represents a path without its own picture. If the path must not be queried, this is
// only its name, from which the shell finds the icon of its kind.
std::wstring icon_file_of(const std::wstring& path, bool is_silent)
{
    if (placeholder_of(path) == Placeholder::address_icon)
        return address_icon_file;
    return is_silent ? std::wstring{ platform::file_name(path) } : path;
}

// Reads the pixels as 32 bits; a bitmap without alpha gives 0 in every alpha byte.
bool has_alpha(const ShellThumbnail& thumbnail)
{
    constexpr WORD bits_with_alpha = 32;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = thumbnail.width();
    info.bmiHeader.biHeight = thumbnail.height();
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = bits_with_alpha;
    std::vector<std::uint8_t> pixels(
        static_cast<std::size_t>(thumbnail.width()) * static_cast<std::size_t>(thumbnail.height()) * 4);
    const ovlib::MemDC dc;
    const int rows = GetDIBits(dc.handle(), thumbnail.bitmap(), 0, static_cast<UINT>(thumbnail.height()),
        pixels.data(), &info, DIB_RGB_COLORS);
    return rows != 0 && has_any_alpha(pixels);
}

} // namespace

void SmallPicture::fetch(
    const std::wstring& path, FileKind kind, ThumbnailSource& thumbnails, const PathAnswers& paths)
{
    clear();
    if (path.empty())
        return;
    const auto fetch = fetches_.make();
    const std::wstring icon_file = icon_file_of(path, paths.is_silent(path));
    ShellThumbnail thumbnail;
    auto icon = std::make_unique<ovlib::SHIcon>();
    if (icon_file != path || !thumbnail.take(thumbnails.picture_of(path, small_picture_side)))
        icon->load(icon_file, SHIL_LARGE);
    // Messages dispatched meanwhile may have started a later fetch.
    if (!fetches_.is_latest(fetch))
        return;
    kind_ = kind;
    is_blended_ = thumbnail.bitmap() && has_alpha(thumbnail);
    thumbnail_ = std::move(thumbnail);
    icon_ = std::move(icon);
}

void SmallPicture::clear()
{
    fetches_.make();
    thumbnail_.clear();
    icon_.reset();
    kind_ = FileKind::unknown;
}

void SmallPicture::draw(const ovlib::DC& dc, Point at) const
{
    if (thumbnail_)
        draw_thumbnail(dc, at);
    else if (icon_ && *icon_)
        DrawIconEx(dc.handle(), at.x, at.y, icon_->icon(), small_picture_side, small_picture_side, 0, nullptr,
            DI_NORMAL);
}

void SmallPicture::draw_thumbnail(const ovlib::DC& dc, Point at) const
{
    const bool is_video = kind_ == FileKind::video;
    if (is_video) {
        const ovlib::GDI::Brush ground{ ovlib::GDI::solid_brush(look::palette().viewer_back) };
        const RECT square{ at.x, at.y, at.x + small_picture_side, at.y + small_picture_side };
        FillRect(dc.handle(), &square, ground.handle());
    }
    const Point place = icon_place(square_at(at), { thumbnail_.width(), thumbnail_.height() });
    const ovlib::MemDC source{ dc.handle() };
    const ObjectSelection selected{ source, thumbnail_.bitmap() };
    const int width = thumbnail_.width();
    const int height = thumbnail_.height();
    if (is_blended_)
        AlphaBlend(dc.handle(), place.x, place.y, width, height, source.handle(), 0, 0, width, height,
            BLENDFUNCTION{ AC_SRC_OVER, 0, 255, AC_SRC_ALPHA });
    else
        BitBlt(dc.handle(), place.x, place.y, width, height, source.handle(), 0, 0, SRCCOPY);
    if (is_video)
        draw_film(dc, at);
}

void SmallPicture::draw_film(const ovlib::DC& dc, Point at) const
{
    if (!film_)
        return;
    const ovlib::MemDC source{ dc.handle() };
    const ObjectSelection selected{ source, film_ };
    TransparentBlt(dc.handle(), at.x, at.y, small_picture_side, small_picture_side, source.handle(), 0, 0,
        small_picture_side, small_picture_side, film_gap);
}

} // namespace media
