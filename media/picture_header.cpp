#include "media/picture_header.hpp"
#include "media/gif_walker.hpp"
#include "platform/byte_view.hpp"
#include <algorithm>
#include <array>
#include <string_view>

// A decoder allocates what a header claims, so a small file can claim gigabytes. The readers below find that
// claim in the file's bytes before any decoder sees them, and what is too large is refused.
//
// They are right if no decoder ever finds a larger picture than they do. So they are stricter than a decoder
// where decoders disagree about damaged files: they take the larger of two sizes, or give none, which refuses
// the file. A fuzz test compares them with a decoder. They are our own because a decoder reports the size
// only after it has opened the picture, when it may have allocated it, and because the program uses no
// libraries but the system's.

namespace media {

using platform::ByteOrder;
using platform::ByteView;

namespace {

using namespace std::string_view_literals;
using enum ByteOrder;
using Size = std::optional<PictureSize>;
using Claim = std::optional<PictureClaim>;

constexpr auto png_signature = "\x89PNG\r\n\x1A\n"sv;

// Signature, length and name of the first chunk, then width and height. The first chunk must be IHDR:
// decoders disagree about others before it.
Size png_size(ByteView bytes, std::uint64_t at = 0)
{
    if (!bytes.begins_with("IHDR", at + 12) || !bytes.has(at + 16, 8))
        return std::nullopt;
    return PictureSize{ bytes.number32(at + 16, big), bytes.number32(at + 20, big) };
}

bool starts_frame(std::uint8_t marker)
{
    constexpr std::uint8_t huffman_tables = 0xC4;
    constexpr std::uint8_t reserved = 0xC8;
    constexpr std::uint8_t arithmetic_tables = 0xCC;
    return marker >= 0xC0 && marker <= 0xCF && marker != huffman_tables && marker != reserved
        && marker != arithmetic_tables;
}

bool stands_alone(std::uint8_t marker)
{
    return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

// The offset of the first marker at or after `at`: a byte after FF that is neither FF (padding) nor 0 (a data
// byte FF). Bytes before it are skipped, as decoders do. bytes.size() if there is none.
std::uint64_t next_marker(ByteView bytes, std::uint64_t at)
{
    while (at < bytes.size()) {
        const bool follows_ff = at > 0 && bytes.byte(at - 1) == 0xFF;
        if (follows_ff && bytes.byte(at) != 0 && bytes.byte(at) != 0xFF)
            return at;
        ++at;
    }
    return bytes.size();
}

// Skips segments by their lengths up to the first that starts a frame: precision, height, width.
Size jpeg_size(ByteView bytes)
{
    constexpr std::uint8_t end_of_image = 0xD9;
    constexpr std::uint64_t shortest = 2; // the length counts itself
    std::uint64_t at = next_marker(bytes, 3);
    while (bytes.has(at, 1) && bytes.byte(at) != end_of_image) {
        const std::uint8_t marker = bytes.byte(at);
        if (starts_frame(marker)) {
            if (!bytes.has(at + 4, 4))
                return std::nullopt;
            return PictureSize{ bytes.number16(at + 6, big), bytes.number16(at + 4, big) };
        }
        if (!stands_alone(marker))
            at += std::max<std::uint64_t>(bytes.number16(at + 1, big), shortest);
        // The FF of the next marker is right after this marker or its segment, so the search starts one
        // further.
        at = next_marker(bytes, at + 2);
    }
    return std::nullopt;
}

// The magnitude of a signed side: a negative height only means top-down rows.
std::uint32_t length_of(std::uint32_t side)
{
    return (side & 0x80000000) != 0 ? 0 - side : side;
}

// The header that BMP and ICO share. Its length field identifies the old form (BITMAPCOREHEADER), with 16-bit
// sides.
Size bitmap_size(ByteView bytes, std::uint64_t at)
{
    constexpr std::uint32_t old_header = 12;
    if (!bytes.has(at, old_header))
        return std::nullopt;
    if (bytes.number32(at, little) == old_header)
        return PictureSize{ bytes.number16(at + 4, little), bytes.number16(at + 6, little) };
    return PictureSize{ length_of(bytes.number32(at + 4, little)),
        length_of(bytes.number32(at + 8, little)) };
}

// An icon's bitmap holds the colours and the mask one above the other, so the picture has half its height.
Size icon_picture_size(ByteView bytes, std::uint64_t at)
{
    if (bytes.begins_with(png_signature, at))
        return png_size(bytes, at);
    Size size = bitmap_size(bytes, at);
    if (size)
        size->height /= 2;
    return size;
}

// The larger of the size in the directory entry, one byte per side, and the size in the picture itself:
// decoders differ in which one they use. nullopt for a picture without width or height.
Size icon_entry_size(ByteView bytes, std::uint64_t entry)
{
    const Size size = icon_picture_size(bytes, bytes.number32(entry + 12, little));
    if (!size || size->pixels() == 0)
        return std::nullopt;
    constexpr std::uint32_t side_of_zero = 256;
    const auto told = [&](std::uint64_t at) {
        return bytes.byte(at) == 0 ? side_of_zero : std::uint32_t{ bytes.byte(at) };
    };
    return PictureSize{ std::max(size->width, told(entry)), std::max(size->height, told(entry + 1)) };
}

// The decoder chooses which picture of an icon it shows, so a single unreadable one refuses the icon.
Claim icon_claim(ByteView bytes)
{
    constexpr std::uint64_t header = 6;
    constexpr std::uint64_t entry = 16;
    constexpr std::uint64_t too_much = largest_decoding_cost + 1; // caps the sum, so that it cannot overflow
    const std::uint64_t told = bytes.number16(4, little);
    const std::uint64_t count = std::min(told, (std::max(bytes.size(), header) - header) / entry);
    Claim claim;
    for (std::uint64_t i = 0; i < count; ++i) {
        const Size size = icon_entry_size(bytes, header + i * entry);
        if (!size)
            return std::nullopt;
        if (!claim)
            claim.emplace();
        if (size->pixels() > claim->size.pixels())
            claim->size = *size;
        claim->cost = std::min(claim->cost + std::min(decoding_cost(*size), too_much), too_much);
    }
    return claim;
}

// An integer of any width. It is in the entry itself, or, if it has eight bytes, at the offset there. nullopt
// for other types, for arrays, and for a value that is negative or exceeds 32 bits.
std::optional<std::uint32_t> tiff_number(ByteView bytes, std::uint64_t entry, ByteOrder order)
{
    struct Type {
        unsigned bytes;
        std::uint16_t number;
        bool has_sign;
    };
    static constexpr Type types[] = { { 1, 1, false }, { 2, 3, false }, { 4, 4, false }, { 1, 6, true },
        { 2, 8, true }, { 4, 9, true }, { 8, 16, false }, { 8, 17, true } };
    const auto type = std::ranges::find(types, bytes.number16(entry + 2, order), &Type::number);
    if (type == std::end(types) || bytes.number32(entry + 4, order) != 1)
        return std::nullopt;
    const std::uint64_t at = type->bytes == 8 ? bytes.number32(entry + 8, order) : entry + 8;
    if (!bytes.has(at, type->bytes))
        return std::nullopt;
    const std::uint64_t value = bytes.number(at, type->bytes, order);
    const std::uint64_t limit =
        type->has_sign ? std::uint64_t{ 1 } << (type->bytes * 8 - 1) : std::uint64_t{ 1 } << 32;
    return value < std::min(limit, std::uint64_t{ 1 } << 32)
        ? std::optional{ static_cast<std::uint32_t>(value) }
        : std::nullopt;
}

// The value of the first entry with this tag, or `absent` if there is none.
std::optional<std::uint32_t> tiff_value(ByteView bytes, std::uint64_t directory, std::uint16_t tag,
    ByteOrder order, std::optional<std::uint32_t> absent)
{
    constexpr std::uint64_t size = 12;
    const std::uint64_t count = bytes.number16(directory, order);
    for (std::uint64_t i = 0; i < count; ++i) {
        const std::uint64_t entry = directory + 2 + i * size;
        if (bytes.number16(entry, order) == tag)
            return bytes.has(entry, size) ? tiff_number(bytes, entry, order) : std::nullopt;
    }
    return absent;
}

// Reads the first directory only: the program shows the first page. Tiles are decoded whole, so one that is
// larger than the picture counts instead of it.
Size tiff_size(ByteView bytes, ByteOrder order)
{
    const std::uint64_t directory = bytes.number32(4, order);
    if (!bytes.has(directory, 2))
        return std::nullopt;
    const auto value = [&](std::uint16_t tag, std::optional<std::uint32_t> absent) {
        return tiff_value(bytes, directory, tag, order, absent);
    };
    const auto width = value(256, std::nullopt);
    const auto height = value(257, std::nullopt);
    const auto tile_width = value(322, 0);
    const auto tile_height = value(323, 0);
    if (!width || !height || *width == 0 || *height == 0 || !tile_width || !tile_height)
        return std::nullopt;
    return PictureSize{ std::max(*width, *tile_width), std::max(*height, *tile_height) };
}

Claim claim_of(Size size)
{
    return size ? Claim{ { *size, decoding_cost(*size) } } : std::nullopt;
}

Claim gif_claim(ByteView bytes)
{
    const std::optional<GifWalk> gif = walk_gif(bytes.bytes());
    return gif ? Claim{ gif->claim() } : std::nullopt;
}

struct Kind {
    std::string_view signature;
    Claim (*read)(ByteView bytes);
};

// "II+" and "MM+" are BigTIFF. The system's decoders do not read it, and it is refused in case one ever does.
constexpr Kind kinds[] = {
    { png_signature, [](ByteView bytes) { return claim_of(png_size(bytes)); } },
    { "\xFF\xD8"sv, [](ByteView bytes) { return claim_of(jpeg_size(bytes)); } },
    { "GIF8"sv, gif_claim },
    { "BM"sv, [](ByteView bytes) { return claim_of(bitmap_size(bytes, 14)); } },
    { "II*\0"sv, [](ByteView bytes) { return claim_of(tiff_size(bytes, little)); } },
    { "MM\0*"sv, [](ByteView bytes) { return claim_of(tiff_size(bytes, big)); } },
    { "II+\0"sv, [](ByteView) { return Claim{}; } },
    { "MM\0+"sv, [](ByteView) { return Claim{}; } },
    { "\0\0\1\0"sv, icon_claim },
    { "\0\0\2\0"sv, icon_claim },
};

const Kind* kind_of(ByteView bytes)
{
    const auto found =
        std::ranges::find_if(kinds, [&](const Kind& kind) { return bytes.begins_with(kind.signature); });
    return found == std::end(kinds) ? nullptr : &*found;
}

bool is_metafile(ByteView bytes)
{
    return (bytes.begins_with("\1\0\0\0"sv) && bytes.begins_with(" EMF", 40))
        || bytes.begins_with("\xD7\xCD\xC6\x9A"sv) || bytes.begins_with("\1\0\x09\0"sv)
        || bytes.begins_with("\2\0\x09\0"sv);
}

// Checks an EMF+ bitmap: version, 1, width, height, bytes per row, format, then 0 before raw pixels or 1
// before an encoded picture. A header that is cut off draws nothing.
bool can_draw_inner_picture(ByteView bytes, std::uint64_t at)
{
    constexpr std::uint64_t header = 28;
    const std::uint64_t rest = bytes.size() - at;
    if (rest < header)
        return true;
    const std::uint32_t packing = bytes.number32(at + 24, little);
    if (packing != 0) {
        const ByteView inner{ bytes.bytes().subspan(static_cast<std::size_t>(at + header)) };
        const Kind* const kind = kind_of(inner);
        const Claim claim = kind ? kind->read(inner) : std::nullopt;
        return claim && can_be_decoded(*claim);
    }
    const PictureSize size{ bytes.number32(at + 8, little), bytes.number32(at + 12, little) };
    const std::uint64_t row = length_of(bytes.number32(at + 16, little));
    return decoding_cost(size) <= largest_decoding_cost && row * size.height <= rest - header;
}

// A bitmap may be an object of its own or part of a brush or of an inner metafile. Everywhere it begins with
// the same two numbers at an even offset, so the whole file is scanned for them instead of parsing its
// records.
bool can_draw_inner_pictures(ByteView bytes)
{
    constexpr std::uint32_t version = 0xDBC01; // the low 12 bits vary with the version of GDI+
    constexpr std::uint32_t bitmap = 1;
    for (std::uint64_t at = 0; at + 8 <= bytes.size(); at += 2) {
        const bool begins_bitmap =
            bytes.number32(at, little) >> 12 == version && bytes.number32(at + 4, little) == bitmap;
        if (begins_bitmap && !can_draw_inner_picture(bytes, at))
            return false;
    }
    return true;
}

} // namespace

std::optional<PictureSize> read_picture_size(std::span<const std::byte> bytes)
{
    const Kind* const kind = kind_of(ByteView{ bytes });
    const Claim claim = kind ? kind->read(ByteView{ bytes }) : std::nullopt;
    return claim ? Size{ claim->size } : std::nullopt;
}

bool can_be_decoded(std::span<const std::byte> bytes)
{
    const ByteView view{ bytes };
    if (const Kind* const kind = kind_of(view)) {
        const Claim claim = kind->read(view);
        return claim && can_be_decoded(*claim);
    }
    return !is_metafile(view) || can_draw_inner_pictures(view);
}

} // namespace media
