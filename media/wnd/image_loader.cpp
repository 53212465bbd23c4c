#include "media/wnd/image_loader.hpp"
#include "core/data_root.hpp"
#include "core/locks.hpp"
#include "media/gif_play.hpp"
#include "media/gif_walker.hpp"
#include "media/picture_header.hpp"
#include "ovlib/gui/gdip.hpp"
#include "platform/file.hpp"
#include "platform/process_log.hpp"
#include "platform/scoped_flag.hpp"
#include <algorithm>

namespace media {

using namespace Gdiplus::DllExports;

namespace {

constexpr int thumbnail_side = 800;

// Gives access to the bytes of a file for the length of a scope.
class BlockView {
public:
    explicit BlockView(const ovlib::GDIPMemory& memory)
        : lock_(memory.handle())
        , bytes_(lock_.data(), lock_.data() ? GlobalSize(memory.handle()) : 0)
    {
    }
    std::span<const std::byte> bytes() const { return bytes_; }

private:
    ovlib::GlobalMemoryLock lock_;
    std::span<const std::byte> bytes_;
};

// The delays that are stored in the file; nullopt for what the decoder cannot play. In a damaged file only
// the frames count that both the reader of the file and the decoder found.
std::optional<std::vector<std::uint32_t>> delays_of(const GifWalk& walk, const ovlib::GDIPGif& gif)
{
    const std::vector<std::uint32_t> told(walk.delays.begin(), walk.delays.end());
    return frame_delays(std::min(walk.frame_count(), gif.frame_count()), told, gif.has_delays());
}

std::uint32_t pixel_format_of(const ovlib::GDIPImage& image)
{
    Gdiplus::PixelFormat format = 0;
    GdipGetImagePixelFormat(image.image(), &format);
    return static_cast<std::uint32_t>(format);
}

} // namespace

ImageLoader::ImageLoader(ThumbnailSource& thumbnails, PropertySource& properties, PathAnswers& paths)
    : thumbnails_(thumbnails)
    , properties_(properties)
    , paths_(paths)
{
}

ImageLoader::~ImageLoader()
{
    clear();
}

bool ImageLoader::load(const std::wstring& entry)
{
    const std::scoped_lock hold{ core::loader_lock() };
    ++load_number_;
    const platform::ScopedFlag loading{ is_loading_ };
    clear();
    core::set_current_directory(L"");
    LoadedEntry loaded = load_entry(entry, ovlib::image_extensions, *this, paths_);
    if (loaded.state == LoaderState::nothing) {
        if (!loaded.path.empty())
            ovlib::WinApp::process_log() << failed_load_line;
        clear();
    }
    loaded_ = std::move(loaded);
    return loaded_.state != LoaderState::nothing;
}

// The pictures decode from the memory, so they are released before it.
void ImageLoader::clear()
{
    loaded_.state = LoaderState::nothing;
    gif_.clear();
    image_.clear();
    thumbnail_.clear();
    memory_.free();
    size_ = {};
    delays_.clear();
    facts_ = {};
}

FileFacts ImageLoader::facts_to_show() const
{
    core::set_current_directory(L"");
    return media::facts_to_show(loaded_, facts_, properties_, paths_);
}

Content ImageLoader::content() const
{
    switch (loaded_.state) {
    case LoaderState::animation:
    case LoaderState::picture:
        return Content::picture;
    case LoaderState::thumbnail:
        return Content::thumbnail;
    default:
        return Content::nothing;
    }
}

Gdiplus::GpImage* ImageLoader::picture() const
{
    switch (loaded_.state) {
    case LoaderState::animation:
        return gif_.image();
    case LoaderState::picture:
        return image_.image();
    default:
        return nullptr;
    }
}

std::wstring ImageLoader::absolute(const std::wstring& path)
{
    return core::full_path(path);
}

bool ImageLoader::decode_animation(const std::wstring& path)
{
    if (load_animation(path))
        return true;
    clear();
    return false;
}

bool ImageLoader::decode_picture(const std::wstring& path)
{
    if (load_picture(path))
        return true;
    clear();
    return false;
}

// Only data with a plausible size claim reaches the decoder.
bool ImageLoader::load_animation(const std::wstring& path)
{
    if (!memory_.read_file(path))
        return false;
    std::optional<GifWalk> walk;
    {
        const BlockView block{ memory_ };
        walk = walk_gif(block.bytes());
        if (!walk || !can_be_decoded(walk->claim()))
            return false;
    }
    if (!gif_.load_frames(memory_) || !note_size(gif_))
        return false;
    std::optional<std::vector<std::uint32_t>> delays = delays_of(*walk, gif_);
    if (!delays)
        return false;
    delays_ = std::move(*delays);
    facts_ = facts_for_animation(path, gif_.width(), gif_.height(), frame_count());
    return true;
}

bool ImageLoader::load_picture(const std::wstring& path)
{
    if (!memory_.read_file(path) || !can_be_decoded(BlockView{ memory_ }.bytes()))
        return false;
    if (!image_.load(memory_) || !note_size(image_))
        return false;
    facts_ = facts_for_picture(path, image_.width(), image_.height(), pixel_format_of(image_));
    return true;
}

// The decoder may have found another size than the one in the header.
bool ImageLoader::note_size(const ovlib::GDIPImage& image)
{
    const PictureSize size{ image.width(), image.height() };
    size_ = { static_cast<int>(size.width), static_cast<int>(size.height) };
    return can_be_drawn(size);
}

bool ImageLoader::fetch_thumbnail(const std::wstring& path)
{
    ovlib::GDI::Bitmap picture = thumbnails_.picture_of(path, thumbnail_side);
    if (!picture)
        return false;
    if (!thumbnail_.take(std::move(picture)) && !thumbnail_.take_icon(path))
        return false;
    size_ = { thumbnail_.width(), thumbnail_.height() };
    facts_ = read_file_facts(path, properties_, paths_);
    return true;
}

} // namespace media
