// The bitmap from which a pane paints, and the drawing of what is loaded into it.
#pragma once
#include "look/wnd/fonts.hpp"
#include "media/frame_cache.hpp"
#include "media/gif_play.hpp"
#include "media/image_layout.hpp"
#include "media/wnd/image_loader.hpp"
#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/shicon.hpp"
#include "ovlib/gui/wnd.hpp"
#include <cstdint>
#include <optional>
#include <string>

namespace media {

// One step of an animation: a frame and its overlay.
struct AnimationStep {
    const GifRun& run;
    std::uint32_t frame = 0;
    std::uint32_t delay = 0; // as stored, in milliseconds
    bool is_paused = false;
    bool has_overlay = false;
    bool is_decoded = true; // the loader has this frame
};

// The operations take the drawing lock. A failed drawing leaves the previous content.
class ImageCanvas : public ovlib::BackBuffer {
public:
    // Both must outlive the canvas, which has the size of the owner's client area.
    ImageCanvas(const ovlib::Wnd& owner, ImageLoader& loader);

    // Creates the bitmap again if the client area has another size. False if there is no bitmap afterwards.
    bool fit();
    // `percent` is used only at actual size.
    void layout(std::int32_t mode, std::int32_t percent);
    // Draws what is loaded, scrolled by the offset. To be called after each load.
    void draw(int x_offset, int y_offset);
    // Draws the selected frame and its overlay. Returns how long to show it, in milliseconds.
    std::uint32_t draw_animation_step(const AnimationStep& step);

    void clear();
    void draw_placeholder(const platform::Rect& rect);
    // Draws a border around a thumbnail, with the file's icon and name below it.
    void draw_frame(const platform::Rect& rect);
    void draw_missing();
    void draw_labelled_text(
        HFONT font, const std::wstring& text, platform::Point at, ovlib::Color color, int alpha);
    void draw_seek_bar(const GifRun& run, std::uint32_t frame);

    const ovlib::Wnd& owner() const { return owner_; }
    ImageLoader& loader() const { return loader_; }
    const ImageLayout& placed() const { return layout_; }
    platform::Size area() const { return { width, height }; }
    std::size_t kept_frames() const { return frames_.size(); }

private:
    void draw_picture(const platform::Rect& target);
    void draw_frame_of_animation(const AnimationStep& step);
    // Queries name and icon of the file, once for each load.
    void note_label();
    void draw_address_icon(const platform::Rect& rect);
    void draw_thumbnail(const platform::Rect& rect);
    void draw_text(HFONT font, const std::wstring& text, const platform::Rect& rect, ovlib::Color color,
        UINT flags = DT_SINGLELINE | DT_NOPREFIX);

    const ovlib::Wnd& owner_;
    ImageLoader& loader_;
    ImageLayout layout_;
    FrameCache frames_; // of the animation
    std::optional<ovlib::SHIcon> label_icon_; // below a thumbnail
    std::wstring label_name_;
    std::uint64_t labelled_load_ = 0;
};

} // namespace media
