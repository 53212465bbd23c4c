// The position of a picture in its pane, and what is drawn if there is none.
#pragma once
#include "platform/color.hpp"
#include "platform/geometry.hpp"
#include <cstdint>
#include <optional>
#include <string>

namespace media {

inline constexpr std::int32_t mode_actual_size = 2100;
inline constexpr std::int32_t mode_fit = 2101;

enum class Content { nothing, picture, thumbnail };

// `client` is the window's client area; `percent` is used only at actual size.
struct LayoutRequest {
    std::int32_t mode = mode_fit;
    std::int32_t percent = 100;
    Content content = Content::nothing;
    platform::Size image;
    platform::Rect client;
};

struct ImageLayout {
    std::int32_t mode = 0;
    platform::Rect image_rect; // in image pixels
    platform::Rect draw_rect; // in client pixels, before any scrolling
    double scale = 0; // size of draw_rect divided by the size of image_rect

    friend bool operator==(const ImageLayout&, const ImageLayout&) = default;
};

ImageLayout layout_image(const LayoutRequest& request);

// Where to draw in a view scrolled by `offset`. Only actual size scrolls.
platform::Rect draw_target(const ImageLayout& layout, platform::Point offset);

// The part of a picture that has to be drawn to fill a canvas.
struct VisiblePart {
    platform::Rect source; // in image pixels
    // Where the source is drawn, in canvas pixels.
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    friend bool operator==(const VisiblePart&, const VisiblePart&) = default;
};
// For a picture that is drawn into `target` and may be larger than the canvas. The part includes the pixels
// around the canvas that smooth scaling mixes into those at its edge. nullopt if nothing is visible.
std::optional<VisiblePart> visible_part(
    const platform::Rect& target, platform::Size image, platform::Size canvas);

// What a canvas draws for its mode and content. An unknown mode draws the missing text.
enum class Drawing { picture, thumbnail, missing_text };
Drawing drawing_of(std::int32_t mode, Content content);

// Instead of a thumbnail, an address shows the icon that the shell has for a file of this name.
inline constexpr wchar_t address_icon_file[] = L"dummy.url";
enum class Placeholder { address_icon, thumbnail };
Placeholder placeholder_of(const std::wstring& path);
// The position of an icon in its natural size, centred in `rect`.
platform::Point icon_place(const platform::Rect& rect, platform::Size icon);

// The name above a framed thumbnail: one line that ends in an ellipsis if it does not fit. To be drawn with
// DT_NOPREFIX: an ampersand in a name is shown.
struct FrameLabel {
    bool has_icon = false; // the small icon of the file is drawn before the name
    platform::Point icon;
    platform::Rect text;

    friend bool operator==(const FrameLabel&, const FrameLabel&) = default;
};

inline constexpr int frame_pen_width = 2;
FrameLabel frame_label(
    const platform::Rect& frame, const std::wstring& path, int font_height, int icon_width, int canvas_width);

// The text of a pane without picture. Its lines end with CR LF. To be drawn with DT_NOPREFIX.
struct MissingText {
    std::wstring text;
    bool is_error = false; // drawn in the error colour

    friend bool operator==(const MissingText&, const MissingText&) = default;
};

MissingText missing_text(const std::wstring& path);
platform::Rect missing_text_rect(platform::Size canvas);

// The box that is darkened under a text of this size. Opaque texts (`opaque_label`) have none.
inline constexpr int opaque_label = 255;
platform::Rect label_box(platform::Point text, platform::Size size);

} // namespace media
