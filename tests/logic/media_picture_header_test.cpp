// Sizes told by the first bytes of a picture.
#include "media/picture_header.hpp"
#include "tests/support/picture_bytes.hpp"
#include <gtest/gtest.h>
#include <string_view>

namespace {

using namespace std::string_view_literals;
using media::can_be_decoded;
using media::can_be_drawn;
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

// One entry for each picture, with what it claims of its size in one byte.
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

TEST(PictureHeader, ReadsPng)
{
    EXPECT_EQ(read_picture_size(png_header(640, 480)), (PictureSize{ 640, 480 }));
    EXPECT_EQ(read_picture_size(png_header(30000, 30000)), (PictureSize{ 30000, 30000 }));
    EXPECT_EQ(read_picture_size(png_header(0xFFFFFFFF, 1)), (PictureSize{ 0xFFFFFFFF, 1 }));
}

TEST(PictureHeader, ReadsJpegBehindItsSegments)
{
    PictureBytes bytes = jpeg_start();
    add_segment(bytes, 0xE0, 14);
    add_segment(bytes, 0xE1, 5000);
    bytes.byte(0xFF).byte(0xFF); // filling before a marker
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

TEST(PictureHeader, ReadsTheLargestPictureOfAnIcon)
{
    EXPECT_EQ(read_picture_size(icon(
                  { bitmap_info(16, 32).bytes(), bitmap_info(48, 96).bytes(), bitmap_info(32, 64).bytes() })),
        (PictureSize{ 48, 48 }));
    EXPECT_EQ(read_picture_size(icon({ bitmap_info(16, 32).bytes() }, 2)), (PictureSize{ 16, 16 }));
    EXPECT_EQ(read_picture_size(icon({ bitmap_info(16, 32).bytes(), png_header(30000, 30000) })),
        (PictureSize{ 30000, 30000 }));
}

TEST(PictureHeader, KnowsNothingOfOtherBytes)
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

TEST(PictureHeader, BearsEveryCut)
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
    EXPECT_TRUE(can_be_decoded(png_header(23000, 23000)));
    EXPECT_TRUE(can_be_decoded(PictureBytes{}.text("unknown").bytes()));
}

} // namespace
