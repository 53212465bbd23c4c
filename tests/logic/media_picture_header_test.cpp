// Picture sizes read from the header.
#include "media/picture_header.hpp"
#include "tests/support/hostile_pictures.hpp"
#include "tests/support/picture_bytes.hpp"
#include <gtest/gtest.h>
#include <string_view>

namespace {

using namespace std::string_view_literals;
using media::can_be_decoded;
using media::can_be_drawn;
using media::decoding_cost;
using media::largest_decoding_cost;
using media::PictureSize;
using media::read_picture_size;
using test_support::GifBytes;
using test_support::PictureBytes;
using test_support::png_header;
using Bytes = std::vector<std::byte>;

PictureBytes bitmap_info(std::uint32_t width, std::uint32_t height)
{
    return PictureBytes{}.little32(40).little32(width).little32(height).zeros(28);
}

Bytes bmp(std::uint32_t width, std::uint32_t height)
{
    return PictureBytes{}.text("BM").zeros(12).append(bitmap_info(width, height).bytes()).bytes();
}

PictureBytes jpeg_start()
{
    return PictureBytes{}.text("\xFF\xD8"sv);
}

void add_segment(PictureBytes& bytes, std::uint32_t marker, std::size_t payload)
{
    bytes.byte(0xFF).byte(marker).big16(static_cast<std::uint32_t>(payload + 2)).zeros(payload);
}

void add_frame(PictureBytes& bytes, std::uint32_t marker, std::uint32_t width, std::uint32_t height)
{
    bytes.byte(0xFF).byte(marker).big16(17).byte(8).big16(height).big16(width).zeros(10);
}

// An icon with one directory entry per picture, which holds its size in one byte per side.
Bytes icon(const std::vector<Bytes>& pictures, std::uint32_t type = 1)
{
    PictureBytes bytes;
    const auto count = static_cast<std::uint32_t>(pictures.size());
    bytes.little16(0).little16(type).little16(count);
    std::uint32_t at = 6 + 16 * count;
    for (const Bytes& picture : pictures) {
        const auto size = static_cast<std::uint32_t>(picture.size());
        bytes.byte(16).byte(16).zeros(6).little32(size).little32(at);
        at += size;
    }
    for (const Bytes& picture : pictures)
        bytes.append(picture);
    return bytes.bytes();
}

// One directory entry: a tag, the type of its value, and its four bytes.
struct TiffEntry {
    std::uint32_t tag;
    std::uint32_t type;
    std::uint32_t value;
};

constexpr std::uint32_t width_tag = 256;
constexpr std::uint32_t height_tag = 257;
constexpr std::uint32_t long_type = 4;

Bytes tiff(const std::vector<TiffEntry>& entries, const Bytes& behind = {})
{
    PictureBytes bytes;
    bytes.text("II*\0"sv).little32(8).little16(static_cast<std::uint32_t>(entries.size()));
    for (const TiffEntry& entry : entries)
        bytes.little16(entry.tag).little16(entry.type).little32(1).little32(entry.value);
    return bytes.little32(0).append(behind).bytes();
}

TEST(PictureHeader, ReadsPng)
{
    EXPECT_EQ(read_picture_size(png_header(640, 480)), (PictureSize{ 640, 480 }));
    EXPECT_EQ(read_picture_size(png_header(30000, 30000)), (PictureSize{ 30000, 30000 }));
    EXPECT_EQ(read_picture_size(png_header(0xFFFFFFFF, 1)), (PictureSize{ 0xFFFFFFFF, 1 }));
}

TEST(PictureHeader, ReadsJpegAfterItsSegments)
{
    PictureBytes bytes = jpeg_start();
    add_segment(bytes, 0xE0, 14);
    add_segment(bytes, 0xE1, 5000);
    bytes.byte(0xFF).byte(0xFF); // padding before a marker
    add_segment(bytes, 0xDB, 65);
    add_segment(bytes, 0xC4, 30); // tables, no frame
    add_segment(bytes, 0xCC, 30);
    add_frame(bytes, 0xC2, 4000, 3000);
    add_frame(bytes, 0xC0, 1, 1);
    EXPECT_EQ(read_picture_size(bytes.bytes()), (PictureSize{ 4000, 3000 }));
}

TEST(PictureHeader, ReadsEveryKindOfJpegFrame)
{
    for (const std::uint32_t marker : { 0xC0, 0xC1, 0xC3, 0xC5, 0xC9, 0xCF }) {
        PictureBytes bytes = jpeg_start();
        bytes.byte(0xFF).byte(0x01).byte(0xFF).byte(0xD0);
        add_frame(bytes, marker, 65535, 65535);
        EXPECT_EQ(read_picture_size(bytes.bytes()), (PictureSize{ 65535, 65535 })) << marker;
    }
}

TEST(PictureHeader, SkipsPaddingBetweenJpegSegments)
{
    PictureBytes filled = jpeg_start();
    add_segment(filled, 0xE0, 14);
    filled.byte(0xFF).byte(0xFF).byte(0xFF);
    add_frame(filled, 0xC0, 32768, 32768);
    EXPECT_EQ(read_picture_size(filled.bytes()), (PictureSize{ 32768, 32768 }));

    PictureBytes padded = jpeg_start();
    add_segment(padded, 0xE0, 14);
    padded.zeros(5).byte(0xFF).byte(0x00).byte(0x77);
    add_frame(padded, 0xC0, 32768, 32768);
    EXPECT_EQ(read_picture_size(padded.bytes()), (PictureSize{ 32768, 32768 }));
    EXPECT_FALSE(can_be_decoded(padded.bytes()));

    PictureBytes at_the_start = jpeg_start().byte(0x12).byte(0xFF);
    add_frame(at_the_start, 0xC0, 4, 3);
    EXPECT_EQ(read_picture_size(at_the_start.bytes()), (PictureSize{ 4, 3 }));
}

TEST(PictureHeader, ReadsNoJpegFrameAfterItsEnd)
{
    PictureBytes ended = jpeg_start().byte(0xFF).byte(0xD9);
    add_frame(ended, 0xC0, 4, 3);
    EXPECT_EQ(read_picture_size(ended.bytes()), std::nullopt);
}

TEST(PictureHeader, ReadsJpegWhoseSegmentClaimsNoLength)
{
    PictureBytes bytes = jpeg_start();
    bytes.byte(0xFF).byte(0xE0).big16(0);
    add_frame(bytes, 0xC0, 3, 4);
    EXPECT_EQ(read_picture_size(bytes.bytes()), (PictureSize{ 3, 4 }));
}

TEST(PictureHeader, ReadsGifWithFramesBeyondItsScreen)
{
    EXPECT_EQ(
        read_picture_size(GifBytes{ 320, 200 }.frame(0, 0, 320, 200).bytes()), (PictureSize{ 320, 200 }));
    EXPECT_EQ(read_picture_size(GifBytes{ 1, 1 }.frame(0, 0, 1, 1).frame(60000, 7, 60000, 9).bytes()),
        (PictureSize{ 120000, 16 }));
}

TEST(PictureHeader, ReadsBothFormsOfBmp)
{
    EXPECT_EQ(read_picture_size(bmp(640, 480)), (PictureSize{ 640, 480 }));
    EXPECT_EQ(read_picture_size(bmp(640, 0 - 480u)), (PictureSize{ 640, 480 }));
    EXPECT_EQ(read_picture_size(bmp(0x80000000, 1)), (PictureSize{ 0x80000000, 1 }));
    const PictureBytes old =
        PictureBytes{}.text("BM").zeros(12).little32(12).little16(300).little16(200).zeros(4);
    EXPECT_EQ(read_picture_size(old.bytes()), (PictureSize{ 300, 200 }));
}

TEST(PictureHeader, ReadsTiffInBothByteOrders)
{
    PictureBytes little;
    little.text("II*\0"sv).little32(10).zeros(2).little16(3);
    little.little16(254).little16(4).little32(1).little32(7);
    little.little16(256).little16(4).little32(1).little32(30000);
    little.little16(257).little16(3).little32(1).little16(20000).little16(0xFFFF);
    EXPECT_EQ(read_picture_size(little.bytes()), (PictureSize{ 30000, 20000 }));
    PictureBytes big;
    big.text("MM\0*"sv).big32(8).big16(2);
    big.big16(256).big16(3).big32(1).big16(640).big16(0xFFFF);
    big.big16(257).big16(1).big32(1).byte(200).zeros(3);
    EXPECT_EQ(read_picture_size(big.bytes()), (PictureSize{ 640, 200 }));
}

TEST(PictureHeader, ReadsTiffSidesOfEveryWholeType)
{
    struct Case {
        std::uint32_t type;
        std::uint32_t value;
    };
    for (const auto& [type, value] :
        { Case{ 1, 200 }, { 3, 32768 }, { 4, 32768 }, { 6, 100 }, { 8, 32767 }, { 9, 32768 } }) {
        const Bytes bytes = tiff({ { width_tag, type, value }, { height_tag, type, value } });
        EXPECT_EQ(read_picture_size(bytes), (PictureSize{ value, value })) << type;
    }
    for (const std::uint32_t type : { 16u, 17u }) {
        const Bytes eight = PictureBytes{}.little32(32768).little32(0).bytes();
        const Bytes bytes = tiff({ { width_tag, type, 38 }, { height_tag, type, 38 } }, eight);
        EXPECT_EQ(read_picture_size(bytes), (PictureSize{ 32768, 32768 })) << type;
    }
}

TEST(PictureHeader, RefusesTiffSidesThatAreNotLengths)
{
    struct Case {
        std::uint32_t type;
        std::uint32_t value;
    };
    const Bytes too_long = PictureBytes{}.little32(5).little32(1).bytes();
    // Text, fraction, floating point and unknown types; negative numbers; eight bytes that are too large or
    // missing.
    for (const auto& [type, value] : { Case{ 2, 5 }, { 5, 5 }, { 11, 5 }, { 99, 5 }, { 6, 0x80 },
             { 8, 0x8000 }, { 9, 0x80000000 }, { 16, 38 }, { 17, 0xFFFF } }) {
        const Bytes bytes = tiff({ { width_tag, long_type, 5 }, { height_tag, type, value } }, too_long);
        EXPECT_EQ(read_picture_size(bytes), std::nullopt) << type;
        EXPECT_FALSE(can_be_decoded(bytes)) << type;
    }
    PictureBytes several;
    several.text("II*\0"sv).little32(8).little16(2);
    several.little16(256).little16(3).little32(2).little16(5).little16(5);
    several.little16(257).little16(3).little32(1).little32(5);
    EXPECT_FALSE(can_be_decoded(several.bytes()));
}

TEST(PictureHeader, UsesTheFirstOfTwoEqualTiffTags)
{
    const Bytes twice = tiff({ { width_tag, long_type, 32768 }, { width_tag, long_type, 8 },
        { height_tag, long_type, 32768 }, { height_tag, long_type, 8 } });
    EXPECT_EQ(read_picture_size(twice), (PictureSize{ 32768, 32768 }));
    EXPECT_FALSE(can_be_decoded(twice));
    EXPECT_FALSE(can_be_decoded(
        tiff({ { width_tag, 2, 8 }, { width_tag, long_type, 8 }, { height_tag, long_type, 8 } })))
        << "the first cannot be read";
}

TEST(PictureHeader, CountsTheTilesOfATiffThatAreLargerThanIt)
{
    constexpr std::uint32_t tile_width = 322;
    constexpr std::uint32_t tile_height = 323;
    const auto tiled = [](std::uint32_t type, std::uint32_t width, std::uint32_t height) {
        return tiff({ { width_tag, long_type, 40 }, { height_tag, long_type, 30 },
            { tile_width, type, width }, { tile_height, type, height } });
    };
    EXPECT_EQ(read_picture_size(tiled(long_type, 16, 16)), (PictureSize{ 40, 30 }));
    EXPECT_EQ(read_picture_size(tiled(long_type, 32768, 64)), (PictureSize{ 32768, 64 }));
    EXPECT_FALSE(can_be_decoded(tiled(long_type, 32768, 32768)));
    EXPECT_FALSE(can_be_decoded(tiled(2, 16, 16)));
}

TEST(PictureHeader, ReadsTheLargestPictureOfAnIcon)
{
    EXPECT_EQ(read_picture_size(icon(
                  { bitmap_info(16, 32).bytes(), bitmap_info(48, 96).bytes(), bitmap_info(32, 64).bytes() })),
        (PictureSize{ 48, 48 }));
    EXPECT_EQ(read_picture_size(icon({ bitmap_info(16, 32).bytes() }, 2)), (PictureSize{ 16, 16 }));
    EXPECT_EQ(read_picture_size(icon({ bitmap_info(16, 32).bytes(), png_header(30000, 30000) })),
        (PictureSize{ 30000, 30000 }));
}

// Some decoders use the entry's size, where 0 means 256, and others the picture's.
TEST(PictureHeader, UsesTheLargerOfAnIconsEntryAndPicture)
{
    Bytes bytes = icon({ bitmap_info(5, 14).bytes() });
    EXPECT_EQ(read_picture_size(bytes), (PictureSize{ 16, 16 }));
    bytes[7] = std::byte{ 0 };
    EXPECT_EQ(read_picture_size(bytes), (PictureSize{ 16, 256 }));
}

TEST(PictureHeader, ReturnsNothingForOtherBytes)
{
    EXPECT_EQ(read_picture_size({}), std::nullopt);
    EXPECT_EQ(read_picture_size(PictureBytes{}.text("just a text, long enough for any header").bytes()),
        std::nullopt);
    EXPECT_EQ(read_picture_size(icon({})), std::nullopt);
    PictureBytes no_frame = jpeg_start();
    add_segment(no_frame, 0xE0, 14);
    EXPECT_EQ(read_picture_size(no_frame.bytes()), std::nullopt);
    EXPECT_EQ(read_picture_size(PictureBytes{}.text("II*\0"sv).little32(0xFFFFFFFF).bytes()), std::nullopt);
}

TEST(PictureHeader, HandlesEveryTruncation)
{
    PictureBytes jpeg = jpeg_start();
    add_segment(jpeg, 0xE0, 14);
    add_frame(jpeg, 0xC0, 40, 30);
    PictureBytes tiff;
    tiff.text("II*\0"sv).little32(8).little16(2);
    tiff.little16(256).little16(4).little32(1).little32(5).little16(257).little16(4).little32(1).little32(6);
    for (const Bytes& whole : { png_header(5, 6), jpeg.bytes(), tiff.bytes(), bmp(5, 6),
             GifBytes{ 5, 6, 0x82 }.delay(1).frame(0, 0, 5, 6, 0x81).bytes(),
             icon({ bitmap_info(5, 12).bytes(), png_header(5, 6) }) }) {
        EXPECT_TRUE(read_picture_size(whole));
        for (std::size_t length = 0; length < whole.size(); ++length) {
            const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
            const auto size = read_picture_size(cut);
            EXPECT_TRUE(!size || size->pixels() <= 1200) << length;
        }
    }
}

TEST(PictureSize, IsTooLargeFromTwoGigabytesOn)
{
    EXPECT_TRUE(can_be_drawn({ 23000, 23000 }));
    EXPECT_TRUE(can_be_drawn({ 23170, 23170 }));
    EXPECT_FALSE(can_be_drawn({ 23171, 23171 }));
    EXPECT_FALSE(can_be_drawn({ 30000, 30000 }));
    EXPECT_FALSE(can_be_drawn({ 1 << 15, 1 << 14 }));
    EXPECT_TRUE(can_be_drawn({ (1 << 15) - 1, 1 << 14 }));
    EXPECT_FALSE(can_be_drawn({ 0xFFFFFFFF, 0xFFFFFFFF }));
    EXPECT_TRUE(can_be_drawn({ 0xFFFFFFFF, 0 }));
}

TEST(PictureSize, RefusesBytesThatClaimTooMuch)
{
    EXPECT_FALSE(can_be_decoded(png_header(30000, 30000)));
    EXPECT_FALSE(can_be_decoded(png_header(11586, 11586)));
    EXPECT_TRUE(can_be_decoded(png_header(11585, 11585)));
    EXPECT_TRUE(can_be_decoded(PictureBytes{}.text("unknown").bytes()));
}

// Decoders disagree about a known format without a readable size.
TEST(PictureSize, RefusesAKnownFormatWhoseSizeCannotBeRead)
{
    PictureBytes late_header;
    late_header.text("\x89PNG\r\n\x1A\n"sv).big32(0).text("aaAa").big32(0);
    late_header.big32(13).text("IHDR").big32(5).big32(5).zeros(9);
    PictureBytes no_frame = jpeg_start();
    add_segment(no_frame, 0xE0, 14);
    const Bytes unreadable[] = { late_header.bytes(), no_frame.bytes(), icon({}),
        PictureBytes{}.text("II*\0"sv).little32(0xFFFFFFFF).bytes(),
        PictureBytes{}.text("II+\0"sv).little16(8).little16(0).little32(16).zeros(40).bytes(),
        PictureBytes{}.text("MM\0+"sv).big16(8).big16(0).zeros(4).big32(16).zeros(40).bytes(),
        tiff({ { width_tag, long_type, 5 } }), tiff({ { height_tag, long_type, 5 } }),
        PictureBytes{}.text("BM").zeros(12).bytes(), PictureBytes{}.text("GIF88a").zeros(20).bytes(),
        icon({ bitmap_info(16, 32).bytes(), Bytes(8) }),
        icon({ bitmap_info(16, 32).bytes(), late_header.bytes() }) };
    for (const Bytes& bytes : unreadable) {
        EXPECT_EQ(read_picture_size(bytes), std::nullopt) << &bytes - unreadable;
        EXPECT_FALSE(can_be_decoded(bytes)) << &bytes - unreadable;
    }
}

TEST(PictureSize, RefusesAPictureWithoutWidthOrHeight)
{
    PictureBytes jpeg = jpeg_start();
    add_frame(jpeg, 0xC0, 5, 0);
    const Bytes empty[] = { png_header(0, 5), png_header(5, 0), jpeg.bytes(), bmp(0, 5), bmp(5, 0),
        tiff({ { width_tag, long_type, 0 }, { height_tag, long_type, 5 } }), GifBytes{ 0, 5 }.bytes(),
        icon({ bitmap_info(16, 32).bytes(), bitmap_info(16, 1).bytes() }) };
    for (const Bytes& bytes : empty)
        EXPECT_FALSE(can_be_decoded(bytes)) << &bytes - empty;
}

TEST(PictureSize, CountsTheFramesOfAGifTogether)
{
    const auto frames = [](std::uint32_t side, int count) {
        GifBytes gif{ side, side };
        for (int i = 0; i < count; ++i)
            gif.frame(0, 0, side, side);
        return gif.bytes();
    };
    EXPECT_TRUE(can_be_decoded(frames(4000, 8)));
    EXPECT_FALSE(can_be_decoded(frames(4000, 9)));
    EXPECT_FALSE(can_be_decoded(frames(4000, 40)));
    EXPECT_TRUE(can_be_decoded(frames(64, 20'000))) << "many small frames are allowed";
    EXPECT_FALSE(can_be_decoded(GifBytes{ 12'000, 12'000 }.frame(0, 0, 1, 1).bytes()))
        << "the screen counts too";
}

// Decoders may find frames there, so they count although they are not played.
TEST(PictureSize, CountsTheFramesAfterDamageInAGif)
{
    PictureBytes gif;
    gif.append(GifBytes{ 4, 4 }.frames(1).bytes_without_end()).zeros(3);
    EXPECT_TRUE(can_be_decoded(gif.bytes()));
    gif.byte(0x2C).zeros(4).little16(60'000).little16(60'000).byte(0).byte(2).byte(0);
    EXPECT_EQ(read_picture_size(gif.bytes()), (PictureSize{ 60'000, 60'000 }));
    EXPECT_FALSE(can_be_decoded(gif.bytes()));
    PictureBytes no_data;
    no_data.append(GifBytes{ 4, 4 }.bytes_without_end());
    no_data.byte(0x2C).zeros(4).little16(4).little16(4).byte(0).byte(13).byte(12);
    no_data.byte(0x2C).zeros(4).little16(60'000).little16(60'000).byte(0).byte(2).byte(0);
    EXPECT_FALSE(can_be_decoded(no_data.bytes()))
        << "13 is no code size, so its 12 bytes are not skipped as data";
}

TEST(PictureSize, CountsThePicturesOfAnIconTogether)
{
    EXPECT_TRUE(can_be_decoded(icon(std::vector<Bytes>(8, png_header(4000, 4000)))));
    EXPECT_FALSE(can_be_decoded(icon(std::vector<Bytes>(9, png_header(4000, 4000)))));
    EXPECT_FALSE(can_be_decoded(icon(std::vector<Bytes>(9, png_header(0xFFFFFFFF, 0xFFFFFFFF)))));
    EXPECT_FALSE(can_be_decoded(icon({ png_header(0xFFFFFFFF, 0xFFFFFFFF) }))) << "one is enough";
}

// Its pictures are decoded when it is drawn, long after the metafile itself was read.
TEST(PictureSize, RefusesAMetafileWithAPictureThatClaimsTooMuch)
{
    using test_support::metafile_with;
    EXPECT_TRUE(can_be_decoded(metafile_with(png_header(64, 64))));
    EXPECT_FALSE(can_be_decoded(metafile_with(png_header(32768, 32768))));
    EXPECT_FALSE(can_be_decoded(metafile_with(png_header(0, 64))));
    EXPECT_FALSE(can_be_decoded(metafile_with(metafile_with(png_header(64, 64))))) << "no picture at all";
    EXPECT_EQ(read_picture_size(metafile_with(png_header(64, 64))), std::nullopt);
    Bytes other = metafile_with(png_header(32768, 32768));
    other[40] = std::byte{ 'x' };
    EXPECT_TRUE(can_be_decoded(other)) << "not a metafile for any decoder";
}

TEST(PictureSize, RefusesAMetafileWithoutThePixelsItClaims)
{
    const auto with_pixels = [](std::uint32_t width, std::uint32_t height, std::uint32_t row,
                                 std::size_t held) {
        PictureBytes placeable;
        placeable.text("\xD7\xCD\xC6\x9A"sv).zeros(18).little32(0xDBC01002).little32(1);
        placeable.little32(width).little32(height).little32(row).little32(0x26200A).little32(0);
        return placeable.zeros(held).bytes();
    };
    EXPECT_TRUE(can_be_decoded(with_pixels(10, 10, 40, 400)));
    EXPECT_FALSE(can_be_decoded(with_pixels(10, 10, 40, 399)));
    EXPECT_TRUE(can_be_decoded(with_pixels(10, 10, 0 - 40u, 400))) << "bottom-up rows";
    EXPECT_FALSE(can_be_decoded(with_pixels(40'000, 40'000, 0, 0)));
}

// A row has a fixed cost, however short it is.
TEST(PictureSize, RefusesExtremelyNarrowPictures)
{
    const auto tiff_of = [](std::uint32_t width, std::uint32_t height) {
        return tiff({ { width_tag, long_type, width }, { height_tag, long_type, height } });
    };
    EXPECT_FALSE(can_be_decoded(tiff_of(1, 30'000'000)));
    EXPECT_FALSE(can_be_decoded(tiff_of(30'000'000, 1)));
    EXPECT_FALSE(can_be_decoded(tiff_of(1, 2'097'153)));
    EXPECT_TRUE(can_be_decoded(tiff_of(1, 2'097'152)));
    EXPECT_TRUE(can_be_decoded(tiff_of(100, 1'000'000)));
    EXPECT_EQ(decoding_cost({ 100, 1'000 }), 100'000u);
    EXPECT_EQ(decoding_cost({ 1, 1'000 }), 64'000u);
    EXPECT_EQ(decoding_cost({ 0xFFFFFFFF, 0xFFFFFFFF }), std::uint64_t{ 0xFFFFFFFF } * 0xFFFFFFFF);
    EXPECT_EQ(largest_decoding_cost * 4, 512u << 20);
}

} // namespace
