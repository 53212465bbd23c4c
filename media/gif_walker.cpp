#include "media/gif_walker.hpp"
#include "platform/byte_view.hpp"
#include <algorithm>

// A GIF is a sequence of blocks whose sizes are in the file, so its frames can be counted without decoding:
// compressed data is skipped by its length bytes. Two kinds of facts are gathered, and they need opposite
// care with a damaged file.
//
// The claim (`covered`, `frames_cost`) limits what a decoder may be given. Some decoders go on after a
// damaged block, so the walk does too, byte by byte, and counts whatever could begin a frame. The delays must
// belong to frames that every decoder finds, so they end at the first damaged block.

namespace media {

using platform::ByteOrder;
using platform::ByteView;

namespace {

constexpr std::uint8_t extension_block = 0x21;
constexpr std::uint8_t image_block = 0x2C;
constexpr std::uint8_t trailer = 0x3B;
constexpr std::uint8_t graphic_control = 0xF9;
constexpr std::uint64_t screen_size = 13; // signature and logical screen
constexpr std::uint64_t descriptor_size = 10;

// The size in bytes of the colour table that these flags announce.
std::uint64_t color_table_size(std::uint8_t flags)
{
    return (flags & 0x80) != 0 ? std::uint64_t{ 3 } << ((flags & 7) + 1) : 0;
}

class Walker {
public:
    explicit Walker(ByteView bytes)
        : bytes_(bytes)
    {
    }

    GifWalk run()
    {
        walk_.screen = { bytes_.number16(6, ByteOrder::little), bytes_.number16(8, ByteOrder::little) };
        walk_.covered = walk_.screen;
        at_ = screen_size + color_table_size(bytes_.byte(10));
        while (step()) { }
        return std::move(walk_);
    }

private:
    // Reads one block; false at the trailer and at the end. Bytes that begin no block are skipped one by one,
    // as some decoders do.
    bool step()
    {
        if (bytes_.byte(at_) == extension_block)
            return read_extension();
        if (bytes_.byte(at_) == image_block)
            return read_image();
        is_broken_ = true;
        return bytes_.byte(at_) != trailer && ++at_ < bytes_.size();
    }

    // A graphic control extension holds the delay of the next frame only.
    bool read_extension()
    {
        if (bytes_.byte(at_ + 1) == graphic_control && bytes_.byte(at_ + 2) >= 4 && bytes_.has(at_ + 3, 4))
            delay_ = bytes_.number16(at_ + 4, ByteOrder::little);
        at_ += 2;
        return skip_pieces();
    }

    bool read_image()
    {
        if (!bytes_.has(at_, descriptor_size))
            return false;
        const auto number = [&](std::uint64_t offset) {
            return std::uint32_t{ bytes_.number16(at_ + offset, ByteOrder::little) };
        };
        walk_.covered.width = std::max(walk_.covered.width, number(1) + number(5));
        walk_.covered.height = std::max(walk_.covered.height, number(3) + number(7));
        walk_.frames_cost += decoding_cost({ number(5), number(7) });
        if (!is_broken_)
            walk_.delays.push_back(delay_);
        delay_ = 0;
        at_ += descriptor_size + color_table_size(bytes_.byte(at_ + 9));
        constexpr std::uint8_t most_bits = 12;
        if (bytes_.byte(at_++) <= most_bits)
            return skip_pieces();
        // An invalid code size: decoders give up the frame and look for the next block in its data.
        is_broken_ = true;
        return at_ < bytes_.size();
    }

    // Skips sub-blocks, each a length byte and that many bytes, up to the empty one. False at the end of the
    // file.
    bool skip_pieces()
    {
        while (at_ < bytes_.size()) {
            const std::uint8_t length = bytes_.byte(at_);
            at_ += 1 + std::uint64_t{ length };
            if (length == 0)
                return true;
        }
        return false;
    }

    ByteView bytes_;
    std::uint64_t at_ = 0;
    std::uint16_t delay_ = 0;
    bool is_broken_ = false;
    GifWalk walk_;
};

} // namespace

std::optional<GifWalk> walk_gif(std::span<const std::byte> bytes)
{
    const ByteView view{ bytes };
    const bool is_gif = view.begins_with("GIF87a") || view.begins_with("GIF89a");
    if (!is_gif || !view.has(0, screen_size))
        return std::nullopt;
    return Walker{ view }.run();
}

} // namespace media
