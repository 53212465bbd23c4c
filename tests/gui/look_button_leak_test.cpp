// Painting a drawn button any number of times costs no handle and no lasting memory.
#include "look/wnd/image_button.hpp"
#include "look/wnd/my_check_box.hpp"
#include "ovlib/gui/gdip.hpp"
#include "tests/support/gui_button.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_folder.hpp"
#include "tests/support/gui_pump.hpp"
#include <gtest/gtest.h>

namespace {

constexpr int many = 70'000;
constexpr SIZE size{ 90, 24 };

class ButtonLeaks : public testing::Test {
protected:
    void SetUp() override
    {
        look::load_theme(look::theme_standard);
        ASSERT_TRUE(host.create(L"host"));
    }
    void TearDown() override { host.destroy(); }

    void paint(ovlib::CustomButton& button, int rounds)
    {
        constexpr UINT states[] = { 0, ODS_FOCUS, ODS_FOCUS | ODS_SELECTED, ODS_DISABLED };
        for (int i = 0; i < rounds; ++i)
            ASSERT_TRUE(canvas.draw(button, states[i % std::size(states)])) << "after " << i;
    }
    // A leak would use up the remaining handles in a few of these rounds.
    void expect_no_leak(ovlib::CustomButton& button)
    {
        ASSERT_TRUE(button.create(L"順X"));
        button.set_subclassed(false); // direct painting needs none of its messages, which cost the most
        gui::pump();
        const gui::GdiCrowd crowd;
        paint(button, many / 10);
        const std::size_t before = gui::memory_in_use();
        paint(button, many - many / 10);
        EXPECT_LT(gui::memory_in_use(), before + 32u * many) << "32 bytes a round are less than any object";
        gui::expect_handles_to_spare();
    }

    ovlib::GDIPSession gdiplus;
    gui::ButtonHost host;
    gui::ItemCanvas canvas{ size };
};

TEST_F(ButtonLeaks, PushButton)
{
    ovlib::CustomPushButton button{ &host, 1 };
    expect_no_leak(button);
}

TEST_F(ButtonLeaks, CheckBox)
{
    look::MyCheckBox box{ &host, 1 };
    box.apply_theme();
    box.set_checked(true);
    expect_no_leak(box);
}

TEST_F(ButtonLeaks, ImageButton)
{
    const gui::TempFolder folder;
    look::ImageButton button{ &host, 1 };
    ASSERT_TRUE(button.load_image(folder.write(L"sheet.bmp", gui::bmp_file(32, 16, ovlib::rgb(9, 99, 9)))));
    expect_no_leak(button);
}

TEST_F(ButtonLeaks, SquareImageButton)
{
    look::ImageButton button{ &host, 1 };
    button.set_rounded(false);
    expect_no_leak(button);
}

TEST_F(ButtonLeaks, BuffersThatFollowTheSize)
{
    ovlib::CustomPushButton button{ &host, 1 };
    ASSERT_TRUE(button.create(L""));
    const gui::GdiCrowd crowd;
    gui::ItemCanvas other{ { 30, 10 } };
    for (int i = 0; i < 5 * gui::crowd_room; ++i)
        ASSERT_TRUE(canvas.draw(button, 0) && other.draw(button, 0)) << "after " << i;
    gui::expect_handles_to_spare();
}

} // namespace
