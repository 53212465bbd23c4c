// Where a picture stands in its pane, and what stands there when there is none.
#pragma once
#include "platform/color.hpp"
#include "platform/geometry.hpp"
#include <cstdint>
#include <string>

namespace media {

inline constexpr std::int32_t mode_actual_size = 2100;
inline constexpr std::int32_t mode_fit = 2101;

enum class Content { nothing, picture, thumbnail };

// The client area is that of the window; `percent` counts at actual size only.
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
    double scale = 0; // what draw_rect is in proportion to image_rect

    friend bool operator==(const ImageLayout&, const ImageLayout&) = default;
};

ImageLayout layout_image(const LayoutRequest& request);

// Where to draw when the view is scrolled; only at actual size does it scroll.
platform::Rect draw_target(const ImageLayout& layout, platform::Point offset);

// What a canvas shows of what is loaded. Any other mode than the two shows the missing text.
enum class Drawing { picture, thumbnail, missing_text };
Drawing drawing_of(std::int32_t mode, Content content);

// In the place of a thumbnail an address has the icon that the shell gives to a file of this name.
inline constexpr wchar_t address_icon_file[] = L"dummy.url";
enum class Placeholder { address_icon, thumbnail };
Placeholder placeholder_of(const std::wstring& path);
// An icon in its natural size, in the middle of `rect`.
platform::Point icon_place(const platform::Rect& rect, platform::Size icon);

// The name above a framed thumbnail: one line, ending in an ellipsis when longer than its room. Names are
// shown as they stand; no ampersand underlines.
struct FrameLabel {
    bool has_icon = false; // the small icon of the file goes first
    platform::Point icon;
    platform::Rect text;

    friend bool operator==(const FrameLabel&, const FrameLabel&) = default;
};

inline constexpr int frame_pen_width = 2;
FrameLabel frame_label(
    const platform::Rect& frame, const std::wstring& path, int font_height, int icon_width, int canvas_width);

// What stands in an empty pane. Lines end with CR LF, and no ampersand underlines.
struct MissingText {
    std::wstring text;
    bool is_error = false; // in the colour of errors, not of plain text

    friend bool operator==(const MissingText&, const MissingText&) = default;
};

MissingText missing_text(const std::wstring& path);
platform::Rect missing_text_rect(platform::Size canvas);

// The box that is darkened behind a text of this size; none for opaque texts.
inline constexpr int opaque_label = 255;
platform::Rect label_box(platform::Point text, platform::Size size);

} // namespace media
