// The banner's fades, layout and colours.
#include "look/banner.hpp"
#include <gtest/gtest.h>
#include <vector>

namespace {

using look::BannerFade;
using platform::Point;
using platform::Rect;
using platform::Size;
using State = BannerFade::State;
using Tick = BannerFade::Tick;

constexpr Tick goes_on{ true, 0, false };

std::vector<std::int32_t> alphas_of(BannerFade& fade, int ticks)
{
    std::vector<std::int32_t> alphas;
    for (int i = 0; i < ticks; ++i) {
        fade.tick();
        alphas.push_back(fade.alpha());
    }
    return alphas;
}

TEST(BannerText, RemovesEveryLineEnd)
{
    EXPECT_EQ(look::banner_text(L"\r\na\r\n\r\nb\r\n"), L"ab");
    EXPECT_EQ(look::banner_text(L"\r\n"), L"");
    EXPECT_EQ(look::banner_text(L"\r\n\r\n"), L"");
    EXPECT_EQ(look::banner_text(L"一致条件: <京都 && 寺>"), L"一致条件: <京都 && 寺>");
}

TEST(BannerText, RemovesALineEndThatFormsWhenAnotherIsRemoved)
{
    EXPECT_EQ(look::banner_text(L"a\r\r\n\nb"), L"ab");
}

TEST(BannerText, KeepsALoneCrOrLf)
{
    EXPECT_EQ(look::banner_text(L"a\rb\nc\n\r"), L"a\rb\nc\n\r");
}

TEST(BannerFade, FadesInWithinSixTicks)
{
    BannerFade fade;
    EXPECT_EQ(fade.begin(), 30u);
    EXPECT_EQ(alphas_of(fade, 6), (std::vector<std::int32_t>{ 40, 80, 120, 160, 200, 230 }));
    EXPECT_EQ(fade.state(), State::staying);
}

TEST(BannerFade, TakesSixTicksThenTwoSecondsThenSixTicks)
{
    BannerFade fade;
    fade.begin();
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(fade.tick(), goes_on) << i;
    EXPECT_EQ(fade.tick(), (Tick{ true, 2000, false }));
    EXPECT_EQ(fade.tick(), (Tick{ false, 30, false }));
    EXPECT_EQ(fade.state(), State::fading_out);
    EXPECT_EQ(fade.alpha(), 230);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(fade.tick(), goes_on) << i;
    EXPECT_EQ(fade.alpha(), 30);
    EXPECT_EQ(fade.tick(), (Tick{ true, 0, true }));
    EXPECT_EQ(fade.alpha(), 0);
}

TEST(BannerFade, FadesOutWithinSixTicks)
{
    BannerFade fade;
    fade.begin();
    alphas_of(fade, 7);
    EXPECT_EQ(alphas_of(fade, 6), (std::vector<std::int32_t>{ 190, 150, 110, 70, 30, 0 }));
}

TEST(BannerFade, RestartsFromTheCurrentAlpha)
{
    BannerFade fade;
    fade.begin();
    alphas_of(fade, 9);
    ASSERT_EQ(fade.alpha(), 150);
    fade.begin();
    EXPECT_EQ(fade.state(), State::fading_in);
    EXPECT_EQ(alphas_of(fade, 2), (std::vector<std::int32_t>{ 190, 230 }));
}

TEST(BannerFade, IsInvisibleAfterAReset)
{
    BannerFade fade;
    fade.begin();
    alphas_of(fade, 8);
    fade.reset();
    EXPECT_EQ(fade.alpha(), 0);
    EXPECT_EQ(fade.state(), State::fading_in);
}

TEST(BannerLayout, IsWiderThanItsTextByThirty)
{
    EXPECT_EQ(look::banner_size(200, 64), (Size{ 230, 80 }));
    EXPECT_EQ(look::banner_size(3000, 64), (Size{ 3030, 80 }));
}

TEST(BannerLayout, IsNeverTooNarrowForItsTitle)
{
    EXPECT_EQ(look::banner_size(64, 64), (Size{ 94, 80 }));
    EXPECT_EQ(look::banner_size(63, 64), (Size{ 94, 80 }));
    EXPECT_EQ(look::banner_size(0, 64), (Size{ 94, 80 }));
}

TEST(BannerLayout, PlacesItsParts)
{
    const look::BannerLayout layout = look::banner_layout({ 230, 80 });
    EXPECT_EQ(layout.line_start, (Point{ 6, 25 }));
    EXPECT_EQ(layout.line_end, (Point{ 224, 25 }));
    EXPECT_EQ(layout.icon, (Rect{ 6, 6, 22, 22 }));
    EXPECT_EQ(layout.title, (Rect{ 24, 6, 224, 25 }));
    EXPECT_EQ(layout.headline, (Rect{ 0, 40, 230, 62 }));
    EXPECT_EQ(layout.text, (Rect{ 0, 62, 230, 80 }));
}

TEST(BannerColors, AreComputedFromTheViewersBackground)
{
    for (std::int32_t theme = 6000; theme <= 6005; ++theme) {
        const look::ThemePalette palette = look::theme_colors(theme);
        const auto step = [](look::Color color, std::uint32_t factor, std::uint32_t lift) {
            return ovlib::rgb((color.red() * factor + lift) >> 8, (color.green() * factor + lift) >> 8,
                (color.blue() * factor + lift) >> 8);
        };
        const look::BannerColors colors = look::banner_colors(palette);
        EXPECT_EQ(colors.fill, step(palette.viewer_back, 205, 13005)) << theme;
        EXPECT_EQ(colors.frame, step(colors.fill, 205, 13005)) << theme;
        EXPECT_EQ(colors.line, step(colors.fill, 223, 8415)) << theme;
        EXPECT_EQ(colors.title.value, 0xFFFFFFu) << theme;
        EXPECT_EQ(colors.text, palette.accent) << theme;
    }
}

TEST(BannerTexts, AreThoseOfASearch)
{
    EXPECT_STREQ(look::banner_title, L"Book内検索");
    EXPECT_STREQ(look::banner_headline, L"検索終了");
}

} // namespace
