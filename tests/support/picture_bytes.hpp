// Picture headers as bytes, with any sizes.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace test_support {

// Builds a byte sequence number by number.
class PictureBytes {
public:
    PictureBytes& text(std::string_view added)
    {
        for (const char c : added)
            byte(static_cast<std::uint8_t>(c));
        return *this;
    }
    PictureBytes& byte(std::uint32_t value)
    {
        bytes_.push_back(static_cast<std::byte>(value & 0xFF));
        return *this;
    }
    PictureBytes& little16(std::uint32_t value) { return byte(value).byte(value >> 8); }
    PictureBytes& little32(std::uint32_t value) { return little16(value).little16(value >> 16); }
    PictureBytes& big16(std::uint32_t value) { return byte(value >> 8).byte(value); }
    PictureBytes& big32(std::uint32_t value) { return big16(value >> 16).big16(value); }
    PictureBytes& zeros(std::size_t count)
    {
        bytes_.resize(bytes_.size() + count);
        return *this;
    }
    PictureBytes& append(const std::vector<std::byte>& added)
    {
        bytes_.insert(bytes_.end(), added.begin(), added.end());
        return *this;
    }

    std::vector<std::byte> bytes() const { return bytes_; }

private:
    std::vector<std::byte> bytes_;
};

inline std::vector<std::byte> png_header(std::uint32_t width, std::uint32_t height)
{
    using namespace std::string_view_literals;
    PictureBytes png;
    png.text("\x89PNG\r\n\x1A\n"sv).big32(13).text("IHDR").big32(width).big32(height);
    return png.byte(8).byte(6).zeros(7).bytes();
}

// Builds the blocks of a GIF. Frames have the shortest possible data.
class GifBytes {
public:
    GifBytes(std::uint32_t width, std::uint32_t height, std::uint32_t flags = 0)
    {
        bytes_.text("GIF89a").little16(width).little16(height).byte(flags).zeros(2);
        if ((flags & 0x80) != 0)
            bytes_.zeros(std::size_t{ 3 } << ((flags & 7) + 1));
    }
    GifBytes& delay(std::uint32_t hundredths)
    {
        bytes_.byte(0x21).byte(0xF9).byte(4).byte(0).little16(hundredths).zeros(2);
        return *this;
    }
    GifBytes& comment(std::string_view text)
    {
        bytes_.byte(0x21).byte(0xFE).byte(static_cast<std::uint32_t>(text.size())).text(text).byte(0);
        return *this;
    }
    GifBytes& frame(std::uint32_t left, std::uint32_t top, std::uint32_t width, std::uint32_t height,
        std::uint32_t flags = 0)
    {
        bytes_.byte(0x2C).little16(left).little16(top).little16(width).little16(height).byte(flags);
        if ((flags & 0x80) != 0)
            bytes_.zeros(std::size_t{ 3 } << ((flags & 7) + 1));
        bytes_.byte(2).byte(2).byte(0x4C).byte(0x01).byte(0);
        return *this;
    }
    GifBytes& frames(std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            frame(0, 0, 1, 1);
        return *this;
    }
    std::vector<std::byte> bytes() const { return PictureBytes{ bytes_ }.byte(0x3B).bytes(); }
    std::vector<std::byte> bytes_without_end() const { return bytes_.bytes(); }

private:
    PictureBytes bytes_;
};

} // namespace test_support
