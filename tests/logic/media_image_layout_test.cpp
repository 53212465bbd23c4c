// The position of a picture, and what is drawn if there is none.
#include "media/blend.hpp"
#include "media/image_layout.hpp"
#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

using media::Content;
using media::Drawing;
using media::FrameLabel;
using media::ImageLayout;
using media::layout_image;
using media::mode_actual_size;
using media::mode_fit;
using platform::Point;
using platform::Rect;
using platform::Size;

constexpr Rect pane{ 0, 0, 650, 676 };

Rect rect_at(int left, int top, int width, int height)
{
    return { left, top, left + width, top + height };
}

ImageLayout fit(Size image, Rect client = pane, Content content = Content::picture)
{
    return layout_image({ mode_fit, 100, content, image, client });
}

ImageLayout actual(Size image, int percent = 100, Rect client = pane, Content content = Content::picture)
{
    return layout_image({ mode_actual_size, percent, content, image, client });
}

TEST(FitLayout, FillsTheNarrowerSide)
{
    EXPECT_EQ(fit({ 100, 100 }).draw_rect, rect_at(0, 13, 650, 650));
    EXPECT_EQ(fit({ 1920, 1080 }).draw_rect, rect_at(0, 155, 650, 365));
    EXPECT_EQ(fit({ 640, 480 }).draw_rect, rect_at(0, 94, 650, 487));
    EXPECT_EQ(fit({ 333, 777 }).draw_rect, rect_at(180, 0, 289, 676));
}

TEST(FitLayout, EnlargesSmallPicturesWithoutLimit)
{
    const ImageLayout layout = fit({ 1, 1 });
    EXPECT_EQ(layout.draw_rect, rect_at(0, 13, 650, 650));
    EXPECT_EQ(layout.image_rect, rect_at(0, 0, 1, 1));
    EXPECT_DOUBLE_EQ(layout.scale, 650.0);
}

TEST(FitLayout, TruncatesEachSideOnceAtTheEnd)
{
    EXPECT_EQ(fit({ 37, 53 }).draw_rect, rect_at(89, 0, 471, 676));
    EXPECT_EQ(fit({ 1, 36 }).draw_rect, rect_at(316, 0, 18, 675));
}

TEST(FitLayout, MayShrinkAThinSideToNothing)
{
    EXPECT_EQ(fit({ 30000, 1 }).draw_rect, rect_at(0, 338, 650, 0));
    EXPECT_EQ(fit({ 1, 30000 }).draw_rect, rect_at(325, 0, 0, 676));
    EXPECT_DOUBLE_EQ(fit({ 30000, 1 }).scale, 650.0 / 30000);
}

TEST(FitLayout, LeavesAPictureWithoutHeightUndrawn)
{
    EXPECT_EQ(fit({ 5, 0 }).draw_rect, Rect{});
    EXPECT_EQ(fit({ 5, 0 }).scale, 0);
    EXPECT_EQ(fit({ 0, 5 }).draw_rect, rect_at(325, 338, 0, 0));
    EXPECT_EQ(fit({ 0, 5 }).scale, 0);
    EXPECT_EQ(fit({ 0, 0 }).draw_rect, Rect{});
    EXPECT_EQ(fit({ 5, 0 }, pane, Content::thumbnail).draw_rect, Rect{});
}

TEST(FitLayout, CountsFromTheClientsOwnCorner)
{
    EXPECT_EQ(fit({ 100, 100 }, { 10, 20, 111, 71 }).draw_rect, rect_at(35, 20, 51, 51));
    EXPECT_EQ(fit({ 100, 100 }, { 0, 0, 0, 0 }).draw_rect, Rect{});
    EXPECT_EQ(fit({ 100, 50 }, { 0, 0, 7, 100 }).draw_rect, rect_at(0, 48, 7, 3));
}

TEST(FitLayout, GivesAThumbnailFourFifthsInTheMiddle)
{
    const ImageLayout wide = fit({ 800, 600 }, pane, Content::thumbnail);
    EXPECT_EQ(wide.draw_rect, rect_at(65, 67 + 75, 520, 390));
    EXPECT_DOUBLE_EQ(wide.scale, 0.65);
    EXPECT_EQ(fit({ 10, 20 }, { 0, 0, 100, 100 }, Content::thumbnail).draw_rect, rect_at(30, 10, 40, 80));
    // 3 x 0.8 is 2.4 and 2 x 0.8 is 1.6: the box is rounded.
    EXPECT_EQ(fit({ 1, 1 }, { 0, 0, 3, 2 }, Content::thumbnail).draw_rect, rect_at(0, 0, 2, 2));
}

TEST(ActualSizeLayout, CentresWithDivisionsThatTruncate)
{
    EXPECT_EQ(actual({ 101, 33 }).draw_rect, rect_at(275, 322, 101, 33));
    EXPECT_EQ(actual({ 4, 4 }, 100, { 0, 0, 101, 101 }).draw_rect, rect_at(48, 48, 4, 4));
    EXPECT_EQ(actual({ 4, 4 }, 100, { 10, 20, 31, 41 }).draw_rect, rect_at(18, 28, 4, 4));
    EXPECT_DOUBLE_EQ(actual({ 101, 33 }).scale, 1.0);
}

TEST(ActualSizeLayout, LetsALargePictureExceedTheClient)
{
    EXPECT_EQ(actual({ 1001, 800 }).draw_rect, rect_at(325 - 500, 338 - 400, 1001, 800));
}

TEST(ActualSizeLayout, RoundsEachZoomedSideHalfAwayFromZero)
{
    EXPECT_EQ(actual({ 101, 33 }, 150).draw_rect, rect_at(325 - 76, 338 - 25, 152, 50));
    EXPECT_EQ(actual({ 5, 1 }, 10).draw_rect, rect_at(325, 338, 1, 0));
    EXPECT_DOUBLE_EQ(actual({ 100, 50 }, 250).scale, 2.5);
}

TEST(ActualSizeLayout, IsTheSameForThumbnails)
{
    EXPECT_EQ(actual({ 101, 33 }, 100, pane, Content::thumbnail), actual({ 101, 33 }));
}

TEST(ActualSizeLayout, HandlesAnySizeAndZoom)
{
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_GT(actual({ 30000, 30000 }, most).draw_rect.width(), 1000000);
    EXPECT_EQ(actual({ 30000, 30000 }, -5).draw_rect.width(), 0);
    EXPECT_EQ(actual({ 30000, 0 }).scale, 1.0);
}

TEST(ImageLayout, IsEmptyWithoutAnImage)
{
    const ImageLayout layout = fit({ 5, 5 }, pane, Content::nothing);
    EXPECT_EQ(layout, (ImageLayout{ mode_fit, {}, {}, 0 }));
    EXPECT_EQ(layout_image({ 2102, 100, Content::picture, { 5, 5 }, pane }).draw_rect, Rect{});
}

TEST(DrawTarget, FollowsTheScrollingAtActualSizeOnly)
{
    EXPECT_EQ(media::draw_target(actual({ 50, 76 }), { 3, 4 }), rect_at(303, 304, 50, 76));
    EXPECT_EQ(media::draw_target(actual({ 1000, 800 }), { -20, -30 }), rect_at(-20, -30, 1000, 800));
    EXPECT_EQ(media::draw_target(fit({ 100, 100 }), { -20, -30 }), rect_at(0, 13, 650, 650));
}

TEST(VisiblePart, IsTheWholePictureInsideTheCanvas)
{
    EXPECT_EQ(media::visible_part({ 10, 20, 110, 70 }, { 100, 50 }, { 200, 100 }),
        (media::VisiblePart{ { 0, 0, 100, 50 }, 10, 20, 100, 50 }));
}

TEST(VisiblePart, HasAMarginOfPicturePixelsAroundTheCanvas)
{
    // At 400 % the canvas shows the picture's pixels 25 to 75.
    EXPECT_EQ(media::visible_part({ -100, 0, 300, 400 }, { 100, 100 }, { 200, 200 }),
        (media::VisiblePart{ { 24, 0, 76, 51 }, -4, 0, 208, 204 }));
    // A reduced picture needs more of them: at 50 % these are 50 to 150.
    EXPECT_EQ(media::visible_part({ -25, -5, 175, 195 }, { 400, 400 }, { 50, 500 }),
        (media::VisiblePart{ { 42, 2, 158, 400 }, -4, -4, 58, 199 }));
}

TEST(VisiblePart, IsNothingOutsideTheCanvas)
{
    constexpr Size canvas{ 200, 100 };
    for (const Rect& target : { rect_at(200, 0, 10, 10), rect_at(-10, 0, 10, 10), rect_at(0, 100, 10, 10),
             rect_at(0, -10, 10, 10), rect_at(5, 5, 0, 10), rect_at(5, 5, 10, 0) })
        EXPECT_EQ(media::visible_part(target, { 10, 10 }, canvas), std::nullopt);
    EXPECT_EQ(media::visible_part(rect_at(0, 0, 10, 10), { 0, 10 }, canvas), std::nullopt);
    EXPECT_EQ(media::visible_part(rect_at(0, 0, 10, 10), { 10, 0 }, canvas), std::nullopt);
}

// The scale is the same in the part and in the whole, and the part covers the canvas.
TEST(VisiblePart, DrawsEachPixelWhereTheWholePictureWould)
{
    constexpr Size image{ 4000, 3000 };
    constexpr Size canvas{ 1600, 1000 };
    for (const int zoom : { 10, 25, 33, 75, 100, 125, 2000 }) {
        const int width = image.width * zoom / 100;
        const int height = image.height * zoom / 100;
        for (const int scroll : { 0, 1, 77, width / 3, std::max(width - canvas.width, 0) }) {
            const auto part = media::visible_part(rect_at(-scroll, 0, width, height), image, canvas);
            ASSERT_TRUE(part) << zoom;
            const double scale = static_cast<double>(width) / image.width;
            EXPECT_NEAR(part->left, part->source.left * scale - scroll, 1e-6);
            EXPECT_NEAR(part->width, part->source.width() * scale, 1e-6);
            EXPECT_LE(part->left, std::max(-scroll, 0));
            EXPECT_GE(part->left + part->width, std::min(canvas.width, width - scroll) - 1e-6);
            EXPECT_LE(part->source.width(), (canvas.width + 8) / scale + 12);
        }
    }
}

TEST(Drawing, IsTheMissingTextWithoutAnImageAndInAnyOtherMode)
{
    EXPECT_EQ(media::drawing_of(mode_fit, Content::picture), Drawing::picture);
    EXPECT_EQ(media::drawing_of(mode_actual_size, Content::picture), Drawing::picture);
    EXPECT_EQ(media::drawing_of(mode_fit, Content::thumbnail), Drawing::thumbnail);
    EXPECT_EQ(media::drawing_of(mode_fit, Content::nothing), Drawing::missing_text);
    EXPECT_EQ(media::drawing_of(2102, Content::picture), Drawing::missing_text);
}

TEST(Placeholder, IsAnIconForAddresses)
{
    EXPECT_EQ(media::placeholder_of(L"https://example.com/"), media::Placeholder::address_icon);
    EXPECT_EQ(media::placeholder_of(L"C:\\a.txt"), media::Placeholder::thumbnail);
    EXPECT_STREQ(media::address_icon_file, L"dummy.url");
    EXPECT_EQ(media::icon_place({ 10, 10, 111, 61 }, { 48, 48 }), (Point{ 36, 11 }));
    EXPECT_EQ(media::icon_place({ 0, 0, 100, 100 }, { 256, 256 }), (Point{ -78, -78 }));
}

TEST(FrameLabel, IsAboveTheFrameAfterItsIcon)
{
    const FrameLabel file = media::frame_label({ 65, 142, 585, 532 }, L"C:\\R&D.txt", 15, 16, 650);
    EXPECT_EQ(file, (FrameLabel{ true, { 61, 123 }, { 79, 123, 650, 138 } }));
    const FrameLabel address = media::frame_label({ 65, 142, 585, 532 }, L"http://x", 15, 16, 650);
    EXPECT_EQ(address, (FrameLabel{ false, { 61, 123 }, { 61, 123, 650, 138 } }));
    EXPECT_EQ(media::frame_pen_width, 2);
}

TEST(MissingText, OffersTheSearchForFilesOnly)
{
    EXPECT_EQ(media::missing_text(L"C:\\R&D\\a.png").text,
        L"Err: ファイルが見つかりません (ダブルクリックで探索を試行)\r\nC:\\R&D\\a.png");
    EXPECT_TRUE(media::missing_text(L"a").is_error);
    EXPECT_EQ(media::missing_text(L"http://x.invalid/a.png").text,
        L"Err: ファイルが見つかりません\r\nhttp://x.invalid/a.png");
}

TEST(MissingText, NamesAnEmptyListWithoutAnError)
{
    EXPECT_EQ(media::missing_text(L""), (media::MissingText{ L"- No Files -", false }));
    EXPECT_EQ(media::missing_text_rect({ 650, 676 }), (Rect{ 8, 8, 642, 676 }));
}

TEST(LabelBox, LeavesRoomAroundTheText)
{
    EXPECT_EQ(media::label_box({ 10, 20 }, { 60, 15 }), (Rect{ 6, 16, 76, 39 }));
}

class Blend : public testing::Test {
protected:
    static constexpr int width = 3;
    static constexpr int height = 2;
    static constexpr int stride = 12; // three bytes of each row are padding

    std::vector<std::uint8_t> after(ovlib::Color color, int alpha, Rect rect, std::uint8_t old = 200)
    {
        std::vector<std::uint8_t> bytes(stride * height, old);
        media::blend_rect({ bytes.data(), stride, width, height }, color, alpha, rect);
        return bytes;
    }
};

TEST_F(Blend, WeighsTheOldPixelsAgainstTheColour)
{
    const std::vector<std::uint8_t> bytes = after(ovlib::rgb(10, 100, 255), 120, { 0, 0, 3, 2 });
    EXPECT_EQ(bytes[0], ((200 - 255) * 120 + (255 << 8)) >> 8);
    EXPECT_EQ(bytes[1], ((200 - 100) * 120 + (100 << 8)) >> 8);
    EXPECT_EQ(bytes[2], ((200 - 10) * 120 + (10 << 8)) >> 8);
    EXPECT_EQ(bytes[0], 229);
    EXPECT_EQ(bytes[1], 146);
    EXPECT_EQ(bytes[2], 99);
}

TEST_F(Blend, ReachesBothEnds)
{
    EXPECT_EQ(after(ovlib::rgb(0, 0, 0), 256, { 0, 0, 3, 2 })[0], 200);
    EXPECT_EQ(after(ovlib::rgb(7, 7, 7), 0, { 0, 0, 3, 2 })[0], 7);
    EXPECT_EQ(after(ovlib::rgb(0, 0, 0), 255, { 0, 0, 3, 2 }, 255)[0], 254);
}

TEST_F(Blend, CountsRowsFromTheTop)
{
    const std::vector<std::uint8_t> bytes = after(ovlib::rgb(0, 0, 0), 0, { 1, 0, 2, 1 });
    for (std::size_t i = 0; i < bytes.size(); ++i)
        EXPECT_EQ(bytes[i], i >= stride + 3 && i < stride + 6 ? 0 : 200) << i;
}

TEST_F(Blend, ChangesOnlyTheInside)
{
    constexpr int most = std::numeric_limits<int>::max();
    const std::vector<std::uint8_t> all = after(ovlib::rgb(0, 0, 0), 0, { -most, -most, most, most });
    for (int i = 0; i < stride * height; ++i)
        EXPECT_EQ(all[static_cast<std::size_t>(i)], i % stride < width * 3 ? 0 : 200) << i;
    const std::vector<std::uint8_t> untouched(stride * height, 200);
    EXPECT_EQ(after(ovlib::rgb(0, 0, 0), 0, { 2, 0, 2, 2 }), untouched);
    EXPECT_EQ(after(ovlib::rgb(0, 0, 0), 0, { 2, 1, 1, 0 }), untouched);
    EXPECT_EQ(after(ovlib::rgb(0, 0, 0), 0, { 3, 0, 9, 2 }), untouched);
    EXPECT_EQ(after(ovlib::rgb(0, 0, 0), 0, { 0, 2, 3, 9 }), untouched);
    media::blend_rect({}, ovlib::rgb(0, 0, 0), 0, { 0, 0, 1, 1 });
}

TEST(AnyAlpha, IsANonZeroAlphaByteOfAnyPixel)
{
    EXPECT_FALSE(media::has_any_alpha({}));
    std::vector<std::uint8_t> pixels(4 * 3, 200);
    EXPECT_TRUE(media::has_any_alpha(pixels));
    pixels[3] = pixels[7] = pixels[11] = 0;
    EXPECT_FALSE(media::has_any_alpha(pixels)) << "colours do not count";
    pixels[11] = 1;
    EXPECT_TRUE(media::has_any_alpha(pixels));
}

} // namespace
