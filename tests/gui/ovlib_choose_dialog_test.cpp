// The colour and font dialogs, answered as a user does.
#include "ovlib/gui/color_dialog.hpp"
#include "ovlib/gui/font_dialog.hpp"
#include "tests/support/gui_file_dialog.hpp"
#include "tests/support/gui_window.hpp"
#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <string>

namespace {

using gui::cancel_dialog;
using gui::DialogDriver;
using ovlib::Color;
using ovlib::ColorDialog;
using ovlib::FontDialog;
using ovlib::rgb;

constexpr int red_field = 706;
constexpr int green_field = 707;
constexpr int blue_field = 708;

class ChooseDialog : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(top.create(L"owner")); }
    void TearDown() override { top.destroy(); }

    static int number_in(HWND box, int field)
    {
        return static_cast<int>(GetDlgItemInt(box, field, nullptr, FALSE));
    }
    static void enter(HWND box, int field, UINT number)
    {
        SendMessageW(
            GetDlgItem(box, field), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(std::to_wstring(number).c_str()));
    }
    static void confirm(HWND box) { PostMessageW(box, WM_COMMAND, IDOK, 0); }

    gui::TopWnd top;
};

TEST_F(ChooseDialog, StartsAtItsColourAndReturnsTheChosenOne)
{
    ColorDialog dialog(&top);
    dialog.set_color(rgb(10, 20, 30));
    std::array<int, 3> shown{};
    HWND owner = nullptr;
    DialogDriver driver([&](HWND box) {
        owner = GetWindow(box, GW_OWNER);
        gui::poll_until([&] { return number_in(box, blue_field) == 30; });
        shown = { number_in(box, red_field), number_in(box, green_field), number_in(box, blue_field) };
        enter(box, red_field, 200);
        enter(box, green_field, 100);
        enter(box, blue_field, 50);
        confirm(box);
    });
    EXPECT_TRUE(dialog.show());
    EXPECT_TRUE(driver.finish());
    EXPECT_EQ(owner, top.hwnd());
    EXPECT_EQ(shown, (std::array{ 10, 20, 30 }));
    EXPECT_EQ(dialog.color(), rgb(200, 100, 50));
}

TEST_F(ChooseDialog, KeepsItsColourWhenCancelled)
{
    ColorDialog dialog(&top);
    dialog.set_color(rgb(10, 20, 30));
    DialogDriver driver([&](HWND box) {
        enter(box, red_field, 200);
        cancel_dialog(box);
    });
    EXPECT_FALSE(dialog.show());
    EXPECT_TRUE(driver.finish());
    EXPECT_EQ(dialog.color(), rgb(10, 20, 30));
}

TEST_F(ChooseDialog, DropsTheHighByteOfAColourFromAFile)
{
    ColorDialog dialog(&top);
    dialog.set_color(Color{ 0x021E140A });
    EXPECT_EQ(dialog.color(), rgb(10, 20, 30));
}

TEST_F(ChooseDialog, KeepsTheUsersOwnColoursForTheNextTime)
{
    ColorDialog dialog(&top);
    EXPECT_EQ(dialog.options(), 3u);
    EXPECT_EQ(dialog.custom_colors(), ColorDialog::CustomColors{});
    dialog.set_color(rgb(1, 2, 3));
    constexpr int add_button = 712;
    DialogDriver driver([&](HWND box) {
        gui::poll_until([&] { return number_in(box, blue_field) == 3; });
        SendMessageW(box, WM_COMMAND, add_button, reinterpret_cast<LPARAM>(GetDlgItem(box, add_button)));
        cancel_dialog(box);
    });
    EXPECT_FALSE(dialog.show());
    EXPECT_TRUE(driver.finish());
    EXPECT_EQ(dialog.custom_colors()[0], rgb(1, 2, 3).value) << "even when the dialog is left";
}

LOGFONTW font_of(const wchar_t* name, LONG height)
{
    LOGFONTW font{};
    font.lfHeight = height;
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    wcscpy(font.lfFaceName, name);
    return font;
}

constexpr int face_list = 1136;
constexpr int size_list = 1138;
constexpr int underline_check = 1041;

void select_size(HWND box, const wchar_t* points)
{
    HWND const list = GetDlgItem(box, size_list);
    EXPECT_NE(SendMessageW(list, CB_SELECTSTRING, 0, reinterpret_cast<LPARAM>(points)), CB_ERR);
    SendMessageW(box, WM_COMMAND, MAKEWPARAM(size_list, CBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
}

TEST_F(ChooseDialog, ReturnsTheChosenFont)
{
    FontDialog dialog(&top);
    EXPECT_EQ(dialog.options(), 321u);
    dialog.set_font(font_of(L"メイリオ", -16));
    std::wstring face;
    HWND owner = nullptr;
    DialogDriver driver([&](HWND box) {
        owner = GetWindow(box, GW_OWNER);
        gui::poll_until([&] { return !gui::text_of(GetDlgItem(box, face_list)).empty(); });
        face = gui::text_of(GetDlgItem(box, face_list));
        select_size(box, L"24");
        SendMessageW(GetDlgItem(box, underline_check), BM_CLICK, 0, 0);
        confirm(box);
    });
    EXPECT_TRUE(dialog.show());
    EXPECT_TRUE(driver.finish());
    EXPECT_EQ(owner, top.hwnd());
    EXPECT_EQ(face, L"メイリオ");
    EXPECT_EQ(std::wstring(dialog.font().lfFaceName), L"メイリオ");
    EXPECT_EQ(dialog.font().lfHeight, -32);
    EXPECT_TRUE(dialog.font().lfUnderline);
}

TEST_F(ChooseDialog, KeepsItsFontWhenCancelled)
{
    FontDialog dialog(&top);
    dialog.set_font(font_of(L"Arial", -16));
    DialogDriver driver([&](HWND box) {
        select_size(box, L"24");
        cancel_dialog(box);
    });
    EXPECT_FALSE(dialog.show());
    EXPECT_TRUE(driver.finish());
    EXPECT_EQ(dialog.font().lfHeight, -16);
    EXPECT_EQ(std::wstring(dialog.font().lfFaceName), L"Arial");
}

TEST_F(ChooseDialog, TerminatesAFaceNameFromAFile)
{
    FontDialog dialog(&top);
    LOGFONTW font = font_of(L"", -16);
    std::fill(std::begin(font.lfFaceName), std::end(font.lfFaceName), L'x');
    dialog.set_font(font);
    EXPECT_EQ(std::wstring(dialog.font().lfFaceName), std::wstring(LF_FACESIZE - 1, L'x'));
}

} // namespace
