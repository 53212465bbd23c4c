// Buttons and check boxes of the program, painted in every theme and state.
#include "core/folders.hpp"
#include "look/wnd/image_button.hpp"
#include "look/wnd/my_check_box.hpp"
#include "look/wnd/themed.hpp"
#include "tests/support/gui_button.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_copies.hpp"
#include "tests/support/gui_folder.hpp"
#include "tests/support/gui_look.hpp"
#include "tests/support/gui_pump.hpp"
#include <gtest/gtest.h>

extern "C" void* __imp_GdipSetSmoothingMode;

namespace {

using namespace look;
using gui::count_pixels_in;
using gui::ItemCanvas;
using gui::pixel;

constexpr SIZE size{ 40, 26 };
constexpr RECT whole{ 0, 0, size.cx, size.cy };
constexpr int half = 12; // the side of each of the two pictures in the sheet
constexpr Color enabled_ink{ 0x10A020 };
constexpr Color disabled_ink{ 0x2010A0 };

// Two squares next to each other, each in one colour.
std::vector<unsigned char> sheet_file()
{
    auto bytes = gui::bmp_file(2 * half, half, enabled_ink);
    for (int y = 0; y < half; ++y) {
        for (int x = half; x < 2 * half; ++x) {
            unsigned char* const at = &bytes[static_cast<std::size_t>(54 + y * 2 * half * 3 + x * 3)];
            at[0] = disabled_ink.blue();
            at[1] = disabled_ink.green();
            at[2] = disabled_ink.red();
        }
    }
    return bytes;
}

void expect_color(const ItemCanvas& canvas, int x, int y, Color wanted, const char* what)
{
    EXPECT_EQ(pixel(canvas.picture, x, y), wanted) << what << " at " << x << ", " << y;
}

// Checks points of a face without picture and text: outside the corner, on the border, inside.
void expect_face(const ItemCanvas& canvas, Color fill, const char* state)
{
    expect_color(canvas, 0, 0, palette().panel_back, state);
    expect_color(canvas, size.cx - 1, size.cy - 1, palette().panel_back, state);
    const Color border = palette().button_face.shade(-130);
    expect_color(canvas, 20, 0, border, state);
    expect_color(canvas, 20, size.cy - 1, border, state);
    expect_color(canvas, 0, 13, border, state);
    expect_color(canvas, size.cx - 1, 13, border, state);
    expect_color(canvas, 2, 13, fill, state);
    expect_color(canvas, size.cx - 5, 5, fill, state);
}

class ThemedButtons : public testing::TestWithParam<std::int32_t> {
protected:
    void SetUp() override
    {
        load_theme(GetParam());
        ASSERT_TRUE(host.create(L"host"));
        ASSERT_TRUE(button.create(L""));
        ASSERT_TRUE(check.create(L"順 X"));
        for (ovlib::Wnd* control : std::initializer_list<ovlib::Wnd*>{ &button, &check }) {
            control->set_font(font.handle());
            control->set_rect({ 20, 10, 20 + size.cx, 10 + size.cy }, false);
        }
        check.move(20, 60, false);
        check.apply_theme();
        sheet = folder.write(L"sheet.bmp", sheet_file());
    }
    void TearDown() override { host.destroy(); }

    ovlib::GDIPSession gdiplus;
    gui::TempFolder folder;
    std::wstring sheet;
    ovlib::GDI::Font font{ gui::plain_font() };
    gui::ButtonHost host;
    gui::Counted<ImageButton> button{ &host, 1 };
    gui::Counted<MyCheckBox> check{ &host, 2 };
    ItemCanvas canvas{ size };
};

TEST_P(ThemedButtons, DrawTheFaceWithoutPictureAndText)
{
    const ThemePalette& now = palette();
    ASSERT_TRUE(canvas.draw(button, 0));
    expect_face(canvas, now.button_face, "normal");
    expect_color(canvas, 20, 13, now.button_face, "normal");
    ASSERT_TRUE(canvas.draw(button, ODS_SELECTED));
    expect_face(canvas, now.button_face.shade(80), "pressed");
    ASSERT_TRUE(canvas.draw(button, ODS_DISABLED));
    expect_face(canvas, now.button_face, "disabled");
    button.set_highlighted(true);
    ASSERT_TRUE(canvas.draw(button, 0));
    expect_face(canvas, now.accent, "highlighted");
    ASSERT_TRUE(canvas.draw(button, ODS_SELECTED));
    expect_face(canvas, now.accent.shade(80), "highlighted and pressed");
}

TEST_P(ThemedButtons, KeepTheCornersOfTheFaceWithTheFocus)
{
    ASSERT_TRUE(canvas.draw(button, ODS_FOCUS));
    expect_face(canvas, palette().button_face, "focused");
    int changed = 0;
    for (int x = 3; x < size.cx - 3; ++x)
        changed += pixel(canvas.picture, x, 3) != palette().button_face ? 1 : 0;
    EXPECT_GE(changed, (size.cx - 6) / 2) << "the focus is a dotted line three pixels inside";
}

// Checks the call, because not every system smooths the result.
TEST_P(ThemedButtons, RequestSmoothCorners)
{
    using namespace Gdiplus;
    using Set = GpStatus __stdcall(GpGraphics*, SmoothingMode);
    static std::vector<SmoothingMode> modes;
    modes.clear();
    const gui::ReplacedImport<Set> noted{ &__imp_GdipSetSmoothingMode,
        [](GpGraphics*, SmoothingMode mode) -> GpStatus {
            modes.push_back(mode);
            return Ok;
        } };
    ASSERT_TRUE(canvas.draw(button, 0));
    EXPECT_EQ(modes, std::vector<SmoothingMode>{ SmoothingModeAntiAlias });
    ASSERT_TRUE(canvas.draw(check, 0));
    EXPECT_EQ(modes, (std::vector<SmoothingMode>{ SmoothingModeAntiAlias, SmoothingModeAntiAlias }));
}

TEST_P(ThemedButtons, DrawASquareFaceUpToItsCorners)
{
    button.set_rounded(false);
    ASSERT_TRUE(canvas.draw(button, 0));
    const Color border = palette().button_face.shade(-130);
    for (const auto& [x, y] : { std::pair<int, int>{ 0, 0 }, { size.cx - 1, 0 }, { 0, size.cy - 1 },
             { size.cx - 1, size.cy - 1 }, { 20, 0 }, { 0, 13 } })
        expect_color(canvas, x, y, border, "border");
    expect_color(canvas, 1, 1, palette().button_face, "fill");
    expect_color(canvas, size.cx - 2, size.cy - 2, palette().button_face, "fill");
}

TEST_P(ThemedButtons, DrawThePictureOfTheState)
{
    ASSERT_TRUE(button.load_image(sheet));
    const RECT centred{ 14, 7, 14 + half, 7 + half };
    const RECT moved{ 15, 8, 15 + half, 8 + half };
    ASSERT_TRUE(canvas.draw(button, 0));
    EXPECT_EQ(count_pixels_in(canvas.picture, enabled_ink, centred), half * half);
    EXPECT_EQ(count_pixels_in(canvas.picture, enabled_ink, whole), half * half);
    ASSERT_TRUE(canvas.draw(button, ODS_SELECTED));
    EXPECT_EQ(count_pixels_in(canvas.picture, enabled_ink, moved), half * half);
    ASSERT_TRUE(canvas.draw(button, ODS_DISABLED));
    EXPECT_EQ(count_pixels_in(canvas.picture, disabled_ink, centred), half * half);
    EXPECT_EQ(count_pixels_in(canvas.picture, enabled_ink, whole), 0);
    button.set_align(SheetAlign::left);
    ASSERT_TRUE(canvas.draw(button, 0));
    EXPECT_EQ(count_pixels_in(canvas.picture, enabled_ink, { 6, 7, 6 + half, 7 + half }), half * half);
    expect_face(canvas, palette().button_face, "with a picture");
}

TEST_P(ThemedButtons, DrawTheTextOfTheState)
{
    const ThemePalette& now = palette();
    button.set_text(L"閉じる");
    ASSERT_TRUE(canvas.draw(button, 0));
    EXPECT_GT(count_pixels_in(canvas.picture, now.button_text, whole), 20);
    ASSERT_TRUE(canvas.draw(button, ODS_DISABLED));
    EXPECT_GT(count_pixels_in(canvas.picture, now.button_disabled_text, whole), 20);
    EXPECT_GT(count_pixels_in(canvas.picture, now.button_face.shade(150), whole), 10);
    EXPECT_EQ(count_pixels_in(button.buffer(), now.button_disabled_text, whole), 0);
}

TEST_P(ThemedButtons, MoveTheTextWhilePressed)
{
    button.set_text(L"閉じる");
    ItemCanvas pressed{ size };
    ASSERT_TRUE(canvas.draw(button, 0));
    ASSERT_TRUE(pressed.draw(button, ODS_SELECTED));
    const Color ink = palette().button_text;
    for (int y = 1; y < size.cy - 3; ++y) {
        for (int x = 1; x < size.cx - 3; ++x)
            ASSERT_EQ(pixel(canvas.picture, x, y) == ink, pixel(pressed.picture, x + 1, y + 1) == ink);
    }
}

TEST_P(ThemedButtons, PaintNothingOutsideTheirRectangle)
{
    ASSERT_TRUE(button.load_image(folder.write(L"big.bmp", gui::bmp_file(200, 90, enabled_ink))));
    button.set_text(L"とても長い文字列のボタン");
    for (const UINT state : { 0u, UINT{ ODS_SELECTED }, UINT{ ODS_DISABLED | ODS_FOCUS } }) {
        ASSERT_TRUE(canvas.draw(button, state));
        EXPECT_TRUE(canvas.is_margin_untouched());
        ASSERT_TRUE(canvas.draw(check, state));
        EXPECT_TRUE(canvas.is_margin_untouched());
    }
}

TEST_P(ThemedButtons, ReachTheScreenInOneCopyWithTheTextAfterIt)
{
    ASSERT_TRUE(button.load_image(sheet));
    EXPECT_EQ(gui::DrawingRecord(button, size, ODS_FOCUS).marks(), "c");
    button.set_text(L"X");
    EXPECT_EQ(gui::DrawingRecord(button, size, ODS_SELECTED).marks(), "ct");
    EXPECT_EQ(gui::DrawingRecord(button, size, ODS_DISABLED).marks(), "ctt");
    EXPECT_EQ(gui::DrawingRecord(check, size, 0).marks(), "ct");
}

TEST_P(ThemedButtons, HaveCheckBoxesInTheThemesColours)
{
    const ThemePalette& now = palette();
    ASSERT_TRUE(canvas.draw(check, 0));
    expect_color(canvas, 7, 6, now.check_frame, "frame");
    expect_color(canvas, 7, 13, now.check_fill, "fill");
    expect_color(canvas, 7, 2, now.check_back, "back");
    EXPECT_GT(count_pixels_in(canvas.picture, now.check_text, { 18, 0, size.cx, size.cy }), 15);
    check.set_checked(true);
    ASSERT_TRUE(canvas.draw(check, 0));
    EXPECT_GT(count_pixels_in(canvas.picture, now.check_mark, { 2, 8, 12, 18 }), 5);
}

TEST_P(ThemedButtons, FadeADisabledCheckBox)
{
    const ThemePalette& now = palette();
    check.set_checked(true);
    ASSERT_TRUE(canvas.draw(check, ODS_DISABLED));
    const bool dark = GetParam() == theme_dark;
    const int shade = dark ? -130 : 130;
    EXPECT_GT(count_pixels_in(canvas.picture, now.check_mark.shade(shade), { 2, 8, 12, 18 }), 5);
    EXPECT_GT(
        count_pixels_in(canvas.picture, now.check_text_on.shade(shade), { 18, 0, size.cx, size.cy }), 15);
}

TEST_P(ThemedButtons, ChooseTheTextColourOfACheckBoxByItsState)
{
    EXPECT_EQ(check.colors().text, palette().check_text);
    check.drawn = 0;
    check.set_checked(true);
    EXPECT_EQ(check.colors().text, palette().check_text_on);
    EXPECT_EQ(check.drawn, 1) << "value and colour in one repaint";
    check.toggle();
    EXPECT_EQ(check.colors().text, palette().check_text);
    EXPECT_EQ(check.drawn, 2);
    check.toggle();
    const std::int32_t other = GetParam() == theme_dark ? theme_standard : theme_dark;
    load_theme(other);
    gui::pump();
    check.drawn = 0;
    check.apply_theme();
    EXPECT_EQ(check.colors(), check_box_colors(palette(), true));
    gui::pump();
    EXPECT_EQ(check.drawn, 1) << "without the window around it";
}

// The colour on the screen at a point of a control.
Color on_screen(const ovlib::Wnd& control, int x, int y)
{
    const ovlib::ClientDC screen(control);
    return Color{ GetPixel(screen.handle(), x, y) };
}

TEST_P(ThemedButtons, ChangeOnTheScreenWithTheTheme)
{
    button.set_text(L"閉じる");
    gui::pump();
    load_theme(GetParam() == theme_dark ? theme_standard : theme_dark);
    apply_theme_to_windows();
    load_theme(GetParam());
    button.drawn = check.drawn = 0;
    apply_theme_to_windows();
    EXPECT_GT(button.drawn, 0);
    EXPECT_GT(check.drawn, 0);
    EXPECT_EQ(on_screen(button, 2, 13), palette().button_face);
    EXPECT_EQ(on_screen(button, 0, 0), palette().panel_back);
    EXPECT_EQ(on_screen(check, 7, 13), palette().check_fill);
    EXPECT_EQ(on_screen(check, 7, 2), palette().check_back);
}

TEST_P(ThemedButtons, ShowTheirOwnChangesAtOnce)
{
    gui::pump();
    button.set_highlighted(true);
    EXPECT_EQ(on_screen(button, 2, 13), palette().accent);
    button.enable(false);
    button.drawn = 0;
    button.set_highlighted(true);
    EXPECT_EQ(button.drawn, 0) << "nothing changed";
    button.set_highlighted(false);
    EXPECT_EQ(on_screen(button, 2, 13), palette().button_face);
}

TEST(SharedFontObjects, AreCreatedFromTheirRecordsAndFreedTogether)
{
    std::vector<HFONT> made;
    {
        const gui::Look look;
        const ovlib::MemDC dc;
        const int pixels_per_inch = GetDeviceCaps(dc.handle(), LOGPIXELSY);
        for (std::size_t i = 0; i < shared_font_count; ++i) {
            const auto font = static_cast<SharedFont>(i);
            const book::LogFont wanted = shared_font_record(font, pixels_per_inch);
            LOGFONTW record{};
            made.push_back(shared_font(font));
            ASSERT_NE(GetObjectW(made.back(), sizeof record, &record), 0) << i;
            EXPECT_EQ(record.lfHeight, wanted.height) << i;
            EXPECT_EQ(record.lfWeight, wanted.weight) << i;
        }
    }
    for (std::size_t i = 0; i < shared_font_count; ++i) {
        EXPECT_EQ(shared_font(static_cast<SharedFont>(i)), nullptr) << i;
        EXPECT_EQ(GetObjectType(made[i]), 0u) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Themes, ThemedButtons, testing::Range(theme_standard, theme_blue + 1));

class SheetFiles : public testing::Test {
protected:
    ovlib::GDIPSession gdiplus;
    gui::TempFolder folder;
    gui::ButtonHost host;
    ImageButton button{ &host, 1 };
};

TEST_F(SheetFiles, AreReadFromTheResourceFolder)
{
    const core::Folders before = core::folders();
    core::folders().res = folder.path();
    folder.write(L"sheet.bmp", sheet_file());
    EXPECT_TRUE(button.load_res_image(L"sheet.bmp"));
    EXPECT_TRUE(button.has_image());
    core::folders() = before;
}

TEST_F(SheetFiles, ThatAreMissingOrDamagedLeaveTheButtonWithoutAPicture)
{
    ASSERT_TRUE(button.load_image(folder.write(L"sheet.bmp", sheet_file())));
    EXPECT_FALSE(button.load_image(folder.file(L"missing.png")));
    EXPECT_FALSE(button.has_image());
    EXPECT_FALSE(button.load_image(folder.write(L"broken.png", { 'n', 'o' })));
    EXPECT_FALSE(button.has_image());
    EXPECT_TRUE(button.load_image(folder.file(L"sheet.bmp")));
}

TEST_F(SheetFiles, CanBeReplacedOnDiskWhileTheyAreShown)
{
    const std::wstring path = folder.write(L"sheet.bmp", sheet_file());
    ASSERT_TRUE(button.load_image(path));
    EXPECT_TRUE(DeleteFileW(path.c_str()));
}

} // namespace
