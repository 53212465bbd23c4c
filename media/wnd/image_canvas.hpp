// The bitmap that a pane paints from, and how what is loaded gets onto it.
#pragma once
#include "look/wnd/fonts.hpp"
#include "media/gif_play.hpp"
#include "media/image_layout.hpp"
#include "media/wnd/image_loader.hpp"
#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/wnd.hpp"
#include <cstdint>
#include <string>

namespace media {

// One step of an animation: a frame and what is drawn over it.
struct AnimationStep {
    const GifRun& run;
    std::uint32_t frame = 0;
    std::uint32_t delay = 0; // as stored, in milliseconds
    bool is_paused = false;
    bool has_overlay = false;
};

// Its operations take the drawing lock. A failed drawing leaves what stood there.
class ImageCanvas : public ovlib::BackBuffer {
public:
    // Both outlive the canvas, which fills the owner's client area.
    ImageCanvas(const ovlib::Wnd& owner, ImageLoader& loader);

    // Makes the bitmap anew where it has another size than the client area; false when there is none then.
    bool fit();
    // `percent` counts at actual size only.
    void layout(std::int32_t mode, std::int32_t percent);
    // What is loaded, scrolled by the offset.
    void draw(int x_offset, int y_offset);
    // The frame that is active, with what stands over it. How long it is to be seen, in milliseconds.
    std::uint32_t draw_animation_step(const AnimationStep& step);

    void clear();
    void draw_placeholder(const platform::Rect& rect);
    // A border round a thumbnail, with the file's icon and name below it.
    void draw_frame(const platform::Rect& rect);
    void draw_missing();
    void draw_labelled_text(
        HFONT font, const std::wstring& text, platform::Point at, ovlib::Color color, int alpha);
    void draw_seek_bar(const GifRun& run, std::uint32_t frame);

    const ovlib::Wnd& owner() const { return owner_; }
    ImageLoader& loader() const { return loader_; }
    const ImageLayout& placed() const { return layout_; }
    platform::Size area() const { return { width, height }; }

private:
    void draw_picture(const platform::Rect& target);
    void draw_address_icon(const platform::Rect& rect);
    void draw_thumbnail(const platform::Rect& rect);
    void draw_text(HFONT font, const std::wstring& text, const platform::Rect& rect, ovlib::Color color,
        UINT flags = DT_SINGLELINE | DT_NOPREFIX);

    const ovlib::Wnd& owner_;
    ImageLoader& loader_;
    ImageLayout layout_;
};

} // namespace media
