#include "ovlib/gui/gdip_image.hpp"
#include "read_all.hpp"
#include <cstring>

namespace ovlib {

using namespace Gdiplus::DllExports;

namespace {

constexpr std::uint64_t largest_block = 0xFFFFFFFF;
constexpr PROPID frame_delay = 0x5100;
constexpr UINT default_delay = 100; // milliseconds

// A file stores a delay in 16 bits. The system may sign-extend it, so only the low word is used.
UINT milliseconds(LONG hundredths)
{
    const UINT delay = LOWORD(hundredths);
    return delay == 0 ? default_delay : delay * 10;
}

} // namespace

GDIPMemory::~GDIPMemory() = default;

void GDIPMemory::free()
{
    handle_.reset();
}

bool GDIPMemory::assign(std::span<const std::byte> bytes)
{
    if (handle_ || bytes.empty())
        return false;
    handle_.reset(GlobalAlloc(GMEM_MOVEABLE, bytes.size()));
    GlobalMemoryLock lock(handle_.get());
    const bool locked = lock.data() != nullptr;
    if (locked)
        std::memcpy(lock.data(), bytes.data(), bytes.size());
    lock.release();
    if (!locked)
        free();
    return locked;
}

bool GDIPMemory::read_file(const std::wstring& path)
{
    if (handle_)
        return false;
    platform::File file = platform::File::open_read(path);
    const std::uint64_t size = file.is_open() ? file.size().value_or(0) : 0;
    if (size == 0 || size > largest_block)
        return false;
    handle_.reset(GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, static_cast<std::size_t>(size)));
    GlobalMemoryLock lock(handle_.get());
    const bool read =
        lock.data() != nullptr && read_all(file, std::span(lock.data(), static_cast<std::size_t>(size))) != 0;
    lock.release();
    if (!read)
        free();
    return read;
}

GlobalMemoryLock::GlobalMemoryLock(HGLOBAL handle)
    : data_(handle != nullptr ? static_cast<std::byte*>(GlobalLock(handle)) : nullptr)
    , lock_(data_ != nullptr ? handle : nullptr)
{
}

void GlobalMemoryLock::release()
{
    lock_.reset();
    data_ = nullptr;
}

GDIPImage::~GDIPImage() = default;

bool GDIPImage::load(const GDIPMemory& memory)
{
    if (loaded_ != 0)
        return false;
    // The memory object owns the block, so the stream must not free it.
    if (!memory || CreateStreamOnHGlobal(memory.handle(), FALSE, &stream_) != S_OK)
        return keep(Gdiplus::GenericError);
    return keep(GdipLoadImageFromStream(stream_.Get(), image_.put()));
}

bool GDIPImage::load(const std::wstring& path)
{
    if (loaded_ != 0)
        return false;
    return keep(GdipLoadImageFromFile(path.c_str(), image_.put()));
}

bool GDIPImage::copy_from(const GDIPImage& image)
{
    if (loaded_ != 0)
        return false;
    if (!image.image_)
        return keep(Gdiplus::InvalidParameter);
    return keep(GdipCloneImage(image.image_.get(), image_.put()));
}

void GDIPImage::clear()
{
    release();
}

bool GDIPImage::keep(Gdiplus::GpStatus status)
{
    if (status != Gdiplus::Ok)
        clear();
    status_ = status;
    loaded_ = status == Gdiplus::Ok ? 1 : 0;
    return loaded_ != 0;
}

// The picture reads from the stream, so it is released first.
void GDIPImage::release()
{
    image_.reset();
    stream_.Reset();
    loaded_ = 0;
}

UINT GDIPImage::width() const
{
    UINT width = 0;
    if (image_)
        status_ = GdipGetImageWidth(image_.get(), &width);
    return width;
}

UINT GDIPImage::height() const
{
    UINT height = 0;
    if (image_)
        status_ = GdipGetImageHeight(image_.get(), &height);
    return height;
}

GDIPGif::~GDIPGif() = default;

bool GDIPGif::load(const GDIPMemory& memory)
{
    return GDIPImage::load(memory) && read_frames();
}

bool GDIPGif::load_frames(const GDIPMemory& memory)
{
    return GDIPImage::load(memory) && count_frames();
}

bool GDIPGif::load(const std::wstring& path)
{
    return GDIPImage::load(path) && read_frames();
}

bool GDIPGif::copy_from(const GDIPImage& image)
{
    return GDIPImage::copy_from(image) && read_frames();
}

void GDIPGif::clear()
{
    GDIPImage::clear();
    dimension_ = {};
    frame_count_ = 0;
    delays_.clear();
}

bool GDIPGif::select_frame(UINT frame)
{
    return is_loaded() && GdipImageSelectActiveFrame(image(), &dimension_, frame) == Gdiplus::Ok;
}

bool GDIPGif::has_delays() const
{
    UINT size = 0;
    return is_loaded() && GdipGetPropertyItemSize(image(), frame_delay, &size) == Gdiplus::Ok
        && size >= sizeof(Gdiplus::PropertyItem);
}

bool GDIPGif::count_frames()
{
    Gdiplus::GpStatus status = GdipImageGetFrameDimensionsList(image(), &dimension_, 1);
    if (status == Gdiplus::Ok)
        status = GdipImageGetFrameCount(image(), &dimension_, &frame_count_);
    if (status == Gdiplus::Ok && frame_count_ == 0)
        status = Gdiplus::PropertyNotFound;
    return keep(status);
}

bool GDIPGif::read_frames()
{
    return count_frames() && (read_delays() || keep(Gdiplus::PropertyNotFound));
}

bool GDIPGif::read_delays()
{
    UINT size = 0;
    if (GdipGetPropertyItemSize(image(), frame_delay, &size) != Gdiplus::Ok
        || size < sizeof(Gdiplus::PropertyItem))
        return false;
    // One block for the record and the values to which it points, aligned for any type.
    std::vector<std::max_align_t> memory(size / sizeof(std::max_align_t) + 1);
    auto* const item = reinterpret_cast<Gdiplus::PropertyItem*>(memory.data());
    if (GdipGetPropertyItem(image(), frame_delay, size, item) != Gdiplus::Ok)
        return false;
    const auto* const values = static_cast<const LONG*>(item->value);
    const std::size_t known = item->length / sizeof(LONG);
    for (UINT frame = 0; frame < frame_count_; ++frame)
        delays_.push_back(milliseconds(frame < known ? values[frame] : 0));
    return true;
}

} // namespace ovlib
