// The painting of the main window between its controls.
#include "look/theme.hpp"
#include "media/wnd/filewnd.hpp"
#include "tests/support/gui_app_controls.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_screen_copies.hpp"

namespace {

namespace command = core::command;
using ovlib::Color;
using platform::Rect;

class Painted : public gui::AppControls {
protected:
    void show(std::initializer_list<book::Page> pages)
    {
        open(pages);
        ShowWindow(window().hwnd(), SW_SHOW);
        UpdateWindow(window().hwnd());
        gui::pump();
    }
    app::MainLayout layout()
    {
        const SIZE client = window().client_size();
        return app::main_layout({ client.cx, client.cy });
    }
    Color at(int x, int y)
    {
        const ovlib::ClientDC dc{ window() };
        return Color{ GetPixel(dc.handle(), x, y) };
    }
    // The number of pixels of a part of the window that do not have this colour.
    int count_others(const Rect& part, Color ground)
    {
        const ovlib::ClientDC dc{ window() };
        int count = 0;
        for (int y = part.top; y < part.bottom; ++y) {
            for (int x = part.left; x < part.right; ++x)
                count += Color{ GetPixel(dc.handle(), x, y) } == ground ? 0 : 1;
        }
        return count;
    }
    int counter_pixels()
    {
        const app::MainLayout place = layout();
        const Rect line{ place.file_counter.left, place.file_counter.top, place.file_counter.left + 60,
            place.file_counter.top + 20 };
        return count_others(line, look::palette().panel_back);
    }
    // Reads from the pane, not from the window below it.
    Color in_pane(int x, int y)
    {
        const ovlib::ClientDC dc{ the<media::FileWnd>() };
        return Color{ GetPixel(dc.handle(), x, y) };
    }
    int pane_text_pixels()
    {
        int count = 0;
        for (int y = 8; y < 28; ++y) {
            for (int x = 8; x < 128; ++x)
                count += in_pane(x, y) == look::palette().viewer_text ? 1 : 0;
        }
        return count;
    }
    int note_pixels() { return count_others(app::file_note(layout()).area, look::palette().panel_back); }
};

TEST_F(Painted, AFrameSurroundsTheSixChecks)
{
    show({ page(L"1\r\n") });
    const Rect frame = app::checks_frame(layout());
    EXPECT_EQ(frame, (Rect{ 97, 714, 291, 786 }));
    for (const std::int32_t theme : { 6000, 6002 }) {
        command(theme);
        const Color line = look::palette().panel_line;
        const Color ground = look::palette().panel_back;
        const int middle_x = (frame.left + frame.right) / 2;
        const int middle_y = (frame.top + frame.bottom) / 2;
        EXPECT_EQ(at(middle_x, frame.top), line) << theme;
        EXPECT_EQ(at(middle_x, frame.bottom - 1), line) << theme;
        EXPECT_EQ(at(frame.left, middle_y), line) << theme;
        EXPECT_EQ(at(frame.right - 1, middle_y), line) << theme;
        EXPECT_EQ(at(frame.left, frame.top), ground) << "the corner is round";
        EXPECT_EQ(at(middle_x, frame.top + 1), ground) << "the frame is hollow";
        EXPECT_EQ(at(frame.right, middle_y), ground) << theme;
    }
}

TEST_F(Painted, TheCounterShowsTheFilesOfThePage)
{
    show({ page(L"1\r\n"), page_with_files({ L"C:\\a.txt", L"C:\\b.txt" }) });
    EXPECT_EQ(counter_pixels(), 0);
    command(command::next_page);
    const int first = counter_pixels();
    EXPECT_GT(first, 0);
    command(command::last_file);
    EXPECT_NE(counter_pixels(), first);
    command(command::previous_page);
    EXPECT_EQ(counter_pixels(), 0);
}

TEST_F(Painted, ThePaneReportsAPageWithoutFiles)
{
    show({ page(L"1\r\n"), page_with_files({ L"C:\\a.txt" }) });
    EXPECT_GT(pane_text_pixels(), 0);
    command(command::next_page);
    EXPECT_EQ(pane_text_pixels(), 0);
    const Rect pane = layout().file_pane;
    EXPECT_EQ(in_pane(0, pane.height() / 2), look::palette().viewer_back);
    EXPECT_EQ(in_pane(pane.width() - 1, pane.height() - 40), look::palette().viewer_back);
    EXPECT_EQ(at(pane.left, pane.top), look::palette().panel_back) << "the corner is round";
    EXPECT_EQ(at(pane.right, pane.bottom - 40), look::palette().panel_back);
}

TEST_F(Painted, TheFactsOfTheFileAreBelowTheCounter)
{
    const std::wstring text = file(L"覚書.txt");
    test_support::write_bytes(text, test_support::Bytes(1500, std::byte{ 'a' }));
    show({ page(L"1\r\n"), page_with_files({ text.c_str(), L"C:\\無い.txt" }) });
    EXPECT_EQ(note_pixels(), 0);
    command(command::next_page);
    const app::FileNote place = app::file_note(layout());
    const Color ground = look::palette().panel_back;
    EXPECT_GT(count_others(place.facts, ground), 10);
    EXPECT_GT(count_others(place.size, ground), 10);
    EXPECT_GT(count_others(
                  { place.picture.x, place.picture.y, place.picture.x + 32, place.picture.y + 32 }, ground),
        50)
        << "the icon, where the shell has no picture";
    command(command::next_file);
    EXPECT_GT(count_others(place.facts, ground), 10) << "unknown";
    EXPECT_EQ(count_others(place.size, ground), 0);
    command(command::previous_page);
    EXPECT_EQ(note_pixels(), 0);
}

TEST_F(Painted, AThemeReachesPaneAndCounter)
{
    show({ page_with_files({ L"C:\\a.txt" }) });
    for (const std::int32_t theme : { 6002, 6001, 6000 }) {
        command(theme);
        const Rect pane = layout().file_pane;
        EXPECT_EQ(in_pane(50, pane.height() - 50), look::palette().viewer_back) << theme;
        EXPECT_GT(counter_pixels(), 0) << theme;
    }
}

TEST_F(Painted, EachPaintIsOneCopy)
{
    show({ page(L"1\r\n"), page_with_files({ L"C:\\a.txt" }) });
    HWND const main = window().hwnd();
    const gui::MessageCount paints{ WM_PAINT };
    const gui::ScreenCopies copies;
    RedrawWindow(main, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_NOCHILDREN);
    EXPECT_EQ(paints.of(main), 1);
    EXPECT_EQ(copies.of(main), 1);
    EXPECT_EQ(copies.count(), 1);
    for (const int step : { command::next_page, command::previous_page })
        command(step);
    gui::pump();
    EXPECT_GE(paints.of(main), 3);
    EXPECT_EQ(copies.of(main), paints.of(main));
}

TEST_F(Painted, NoChangeErasesTheBackgroundFirst)
{
    show({ page(L"1\r\n"), page_with_files({ L"C:\\a.txt", L"C:\\b.txt" }) });
    HWND const main = window().hwnd();
    const gui::MessageCount erasings{ WM_ERASEBKGND };
    for (const int change : { command::next_page, command::last_file, command::previous_page })
        command(change);
    gui::pump();
    EXPECT_EQ(erasings.of(main), 0);
    RedrawWindow(main, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_NOCHILDREN);
    EXPECT_EQ(erasings.of(main), 1);
}

TEST_F(Painted, PaintingCostsNoHandles)
{
    show({ page_with_files({ L"C:\\a.txt" }) });
    const gui::GdiCrowd crowd{ 300 };
    for (int i = 0; i < 1000; ++i)
        RedrawWindow(window().hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_NOCHILDREN);
    gui::expect_handles_to_spare(40);
}

} // namespace
