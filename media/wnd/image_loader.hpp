// The file that is shown: from an entry of a file list to something that can be drawn.
#pragma once
#include "media/image_layout.hpp"
#include "media/image_load.hpp"
#include "media/wnd/shell_thumbnail.hpp"
#include "ovlib/gui/gdip_image.hpp"
#include <cstdint>
#include <string>
#include <vector>

namespace media {

// Loads on the user interface thread, under the loader lock. While an animation plays, every call that uses
// the picture itself needs the drawing lock. The facts were recorded during the load and can be queried at
// any time.
class ImageLoader : private ImageSource {
public:
    // All must outlive the loader.
    ImageLoader(ThumbnailSource& thumbnails, PropertySource& properties, PathAnswers& paths);
    ImageLoader(const ImageLoader&) = delete;
    ImageLoader& operator=(const ImageLoader&) = delete;
    ~ImageLoader() override;

    // True if there is something to draw. The shell may dispatch messages meanwhile.
    bool load(const std::wstring& entry);
    // Whether a load runs: messages that are dispatched meanwhile must not use what is loaded.
    bool is_loading() const { return is_loading_; }
    // Changes with each load.
    std::uint64_t load_number() const { return load_number_; }
    // Keeps the path.
    void clear();

    const LoadedEntry& loaded() const { return loaded_; }
    LoaderState state() const { return loaded_.state; }
    const std::wstring& path() const { return loaded_.path; }
    // The facts of what was loaded; empty if loading failed.
    const FileFacts& facts() const { return facts_; }
    // The facts to show. If loading failed, they are queried for the entry.
    FileFacts facts_to_show() const;

    Content content() const;
    platform::Size size() const { return size_; }
    // Null unless a picture or an animation is loaded.
    Gdiplus::GpImage* picture() const;
    const ShellThumbnail& thumbnail() const { return thumbnail_; }

    // For an animation; 0 and empty otherwise.
    std::uint32_t frame_count() const { return static_cast<std::uint32_t>(delays_.size()); }
    const std::vector<std::uint32_t>& delays() const { return delays_; } // milliseconds
    bool select_frame(std::uint32_t frame) { return gif_.select_frame(frame); }

    std::int32_t interpolation_mode = 0; // as numbered by GDI+

private:
    std::wstring absolute(const std::wstring& path) override;
    bool decode_animation(const std::wstring& path) override;
    bool decode_picture(const std::wstring& path) override;
    bool fetch_thumbnail(const std::wstring& path) override;
    bool load_animation(const std::wstring& path);
    bool load_picture(const std::wstring& path);
    bool note_size(const ovlib::GDIPImage& image);

    ThumbnailSource& thumbnails_;
    PropertySource& properties_;
    PathAnswers& paths_;
    LoadedEntry loaded_;
    // The pictures decode from this memory as long as they live.
    ovlib::GDIPMemory memory_;
    ovlib::GDIPGif gif_;
    ovlib::GDIPImage image_;
    ShellThumbnail thumbnail_;
    platform::Size size_;
    std::vector<std::uint32_t> delays_;
    FileFacts facts_;
    bool is_loading_ = false;
    std::uint64_t load_number_ = 0;
};

} // namespace media
