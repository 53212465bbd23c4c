// Pictures decoded by GDI+.
#pragma once
#include "ovlib/gui/gdiplus.hpp"
#include <windows.h>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>
#include <wrl/client.h>

namespace ovlib {

// A block of movable global memory.
class GDIPMemory {
public:
    GDIPMemory() = default;
    GDIPMemory(const GDIPMemory&) = delete;
    GDIPMemory& operator=(const GDIPMemory&) = delete;
    virtual ~GDIPMemory();

    // False if a block is held already or `bytes` is empty.
    bool assign(std::span<const std::byte> bytes);
    // Reads a whole file, from 1 byte to 4 GiB minus 1. False if a block is held already.
    bool read_file(const std::wstring& path);
    void free();

    HGLOBAL handle() const { return handle_.get(); }
    explicit operator bool() const { return static_cast<bool>(handle_); }

private:
    UniqueGlobalMemory handle_;
};

// Locks a block for the length of a scope.
class GlobalMemoryLock {
public:
    explicit GlobalMemoryLock(HGLOBAL handle);
    GlobalMemoryLock(const GlobalMemoryLock&) = delete;
    GlobalMemoryLock& operator=(const GlobalMemoryLock&) = delete;
    void release();
    std::byte* data() const { return data_; }

private:
    std::byte* data_;
    UniqueGlobalLock lock_;
};

// A picture is loaded once: load and copy_from fail while one is held; clear releases it. A failed load
// leaves the object empty.
class GDIPImage {
public:
    GDIPImage() = default;
    GDIPImage(const GDIPImage&) = delete;
    GDIPImage& operator=(const GDIPImage&) = delete;
    virtual ~GDIPImage();
    // Decodes on demand from the block, so the memory must outlive the picture.
    virtual bool load(const GDIPMemory& memory);
    virtual bool load(const std::wstring& path);
    virtual bool copy_from(const GDIPImage& image);
    virtual void clear();

    bool is_loaded() const { return loaded_ != 0; }
    Gdiplus::GpImage* image() const { return image_.get(); }
    Gdiplus::GpStatus status() const { return status_; }
    // In pixels; 0 without a picture.
    UINT width() const;
    UINT height() const;

protected:
    bool keep(Gdiplus::GpStatus status);

private:
    void release();

    Microsoft::WRL::ComPtr<IStream> stream_; // outlives the picture, which reads from it
    UniqueGdipImage image_;
    std::uint8_t loaded_ = 0;
    mutable Gdiplus::GpStatus status_ = Gdiplus::Ok;
};

// An animation. Loading a picture without frame delays fails.
class GDIPGif : public GDIPImage {
public:
    ~GDIPGif() override;
    bool load(const GDIPMemory& memory) override;
    // Does not need delays, which the system does not report for every animation.
    bool load_frames(const GDIPMemory& memory);
    bool load(const std::wstring& path) override;
    bool copy_from(const GDIPImage& image) override;
    void clear() override;

    UINT frame_count() const { return frame_count_; }
    // In milliseconds, one for each frame; 100 if the file says 0.
    const std::vector<UINT>& delays() const { return delays_; }
    // Whether the system reports any.
    bool has_delays() const;
    bool select_frame(UINT frame);

private:
    bool count_frames();
    bool read_frames();
    bool read_delays();

    GUID dimension_{};
    UINT frame_count_ = 0;
    std::vector<UINT> delays_;
};

} // namespace ovlib
