// Reads the committed pictures: their headers, and the pixels of bitmaps. Independent of the program's
// decoders.
#pragma once
#include "tests/support/temp_folder.hpp"
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace test_support {

// Numbers from a file's bytes; reading past the end fails the test.
class FileBytes {
public:
    explicit FileBytes(Bytes bytes)
        : bytes_(std::move(bytes))
    {
    }
    std::size_t size() const { return bytes_.size(); }
    const Bytes& all() const { return bytes_; }
    std::uint32_t byte(std::size_t at) const
    {
        if (at >= bytes_.size())
            throw std::runtime_error("the file is too short");
        return std::to_integer<std::uint32_t>(bytes_[at]);
    }
    std::uint32_t little(std::size_t at, std::size_t length) const
    {
        std::uint32_t value = 0;
        for (std::size_t i = length; i-- > 0;)
            value = value << 8 | byte(at + i);
        return value;
    }
    std::uint32_t big(std::size_t at, std::size_t length) const
    {
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < length; ++i)
            value = value << 8 | byte(at + i);
        return value;
    }

private:
    Bytes bytes_;
};

struct PicturePixel {
    std::uint32_t red = 0, green = 0, blue = 0, alpha = 0;
    friend bool operator==(const PicturePixel&, const PicturePixel&) = default;
};

// A bottom-up bitmap file without a colour table.
class BmpFile {
public:
    explicit BmpFile(const std::wstring& path)
        : bytes_(read_bytes(path))
    {
        if (bytes_.little(0, 2) != 0x4D42 || bytes_.little(14, 4) != header_size)
            throw std::runtime_error("not a bitmap file: " + platform::to_utf8(path));
    }
    int width() const { return static_cast<int>(bytes_.little(18, 4)); }
    int height() const { return static_cast<int>(bytes_.little(22, 4)); }
    std::uint32_t bits() const { return bytes_.little(28, 2); }
    std::uint32_t compression() const { return bytes_.little(30, 4); }
    const Bytes& bytes() const { return bytes_.all(); }
    // Opaque if the file has no alpha.
    PicturePixel at(int x, int y) const
    {
        const std::size_t channels = bits() / 8;
        const std::size_t stride = (static_cast<std::size_t>(width()) * channels + 3) / 4 * 4;
        const std::size_t row = static_cast<std::size_t>(height() - 1 - y) * stride;
        const std::size_t start = bytes_.little(10, 4) + row + static_cast<std::size_t>(x) * channels;
        return { bytes_.byte(start + 2), bytes_.byte(start + 1), bytes_.byte(start),
            channels == 4 ? bytes_.byte(start + 3) : 255u };
    }

private:
    static constexpr std::uint32_t header_size = 40;
    FileBytes bytes_;
};

// The contents of a PNG's first chunk.
struct PngHeader {
    std::uint32_t width = 0, height = 0, depth = 0, color = 0;
};

inline bool is_png(const FileBytes& bytes, std::size_t at = 0)
{
    return bytes.big(at, 4) == 0x89504E47 && bytes.big(at + 4, 4) == 0x0D0A1A0A;
}

inline PngHeader png_header(const std::wstring& path)
{
    const FileBytes bytes{ read_bytes(path) };
    if (!is_png(bytes))
        throw std::runtime_error("not a PNG: " + platform::to_utf8(path));
    return { bytes.big(16, 4), bytes.big(20, 4), bytes.byte(24), bytes.byte(25) };
}

} // namespace test_support
