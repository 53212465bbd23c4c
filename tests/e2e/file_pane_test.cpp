// The file pane beside the text: pictures, playing animations and mouse actions.
#include "driver_main_window.hpp"
#include "driver_screen.hpp"
#include "media/gif_play.hpp"
#include "process_holdings.hpp"
#include "tests/support/environment.hpp"
#include "tests/support/hostile_pictures.hpp"
#include "tests/support/picture_files.hpp"
#include <chrono>
#include <iostream>
#include <set>

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;
using ovlib::Color;
using test_support::FileContents;
using test_support::MovingGif;
using test_support::number_from_environment;
using test_support::plain;

constexpr Color red{ 0x0000FF };
constexpr Color green{ 0x00FF00 };
constexpr Color blue{ 0xFF0000 };
constexpr Color yellow{ 0x00FFFF };
constexpr Color viewer_back{ 0x202020 }; // of the standard theme

class FilePane : public MainWindowTest {
protected:
    // Adds a file beside the program, so that entries may be relative.
    std::wstring add_file(const std::wstring& name, const FileContents& bytes) const
    {
        write_bytes(root().folder() / name, { reinterpret_cast<const char*>(bytes.data()), bytes.size() });
        return name;
    }
    // Opens a Book whose pages begin with their number.
    fs::path open_pages(const std::vector<std::vector<std::wstring>>& files, bool autoplay = true)
    {
        std::vector<book::Page> pages;
        for (const std::vector<std::wstring>& entries : files) {
            pages.push_back(make_page(numeral(pages.size() + 1)));
            pages.back().files = entries;
        }
        book::BookHeader header;
        header.gif_autoplay = autoplay ? 1 : 0;
        const fs::path book = root().add_book(L"手帖.bok", pages, header);
        open_settled(book);
        return book;
    }
    std::wstring add_gif(const std::wstring& name, std::size_t frames, std::uint32_t delay) const
    {
        return add_file(name, MovingGif(65, 65).frames(frames, delay).bytes());
    }

    POINT in_pane(int x, int y) const
    {
        const app::Rect pane = layout().file_pane;
        return on_screen(pane.left + x, pane.top + y);
    }
    // A point away from the texts that may be drawn over a picture.
    POINT picture_place() const { return in_pane(325, 300); }
    Color in_view() const { return Color{ color_on_screen(picture_place()) }; }
    void expect_in_view(Color color, const Where& where = Where::current())
    {
        expect_soon(
            color, [&] { return in_view(); }, where);
    }
    void expect_frame(MovingGif::Shade shade, const Where& where = Where::current())
    {
        expect_in_view(MovingGif::colors[shade], where);
    }
    // Turns this many pages, four forward and four backward in turn, and clicks on some of them.
    void turn_to_and_fro(int count) const
    {
        for (int i = 0; i < count; ++i) {
            main_window().send_command(i % 8 < 4 ? command::next_page : command::previous_page);
            if (i % 5 == 0)
                click(picture_place());
        }
    }
    // The number of different colours seen until it reaches `wanted` or the time is over.
    std::size_t colors_that_come_by(std::size_t wanted, milliseconds limit) const
    {
        std::set<std::uint32_t> seen;
        wait_until(
            [&] {
                seen.insert(in_view().value);
                return seen.size() >= wanted;
            },
            limit);
        return seen.size();
    }
    void expect_playing(const Where& where = Where::current())
    {
        const auto traced = trace(where);
        EXPECT_GE(colors_that_come_by(3, patience), 3u);
    }
    // A pause draws white text in the corner of the picture, which fills the pane's width.
    bool is_paused_shown() const
    {
        for (const COLORREF color : column_on_screen(in_pane(16, 18), 24)) {
            if (color == RGB(255, 255, 255))
                return true;
        }
        for (int x = 10; x < 60; x += 1) {
            for (const COLORREF color : column_on_screen(in_pane(x, 18), 24)) {
                if (color == RGB(255, 255, 255))
                    return true;
            }
        }
        return false;
    }
    app::Rect bar() const
    {
        const app::Rect pane = layout().file_pane;
        return media::GifRun{ { pane.width(), pane.height() }, 5 }.bar();
    }
    void click_bar(int permille) const
    {
        click(in_pane(bar().left + bar().width() * permille / 1000, bar().top + 5));
    }
    static std::vector<std::wstring> stored_files(const fs::path& book)
    {
        return load_book(book).pages[0].files;
    }
};

} // namespace

TEST_F(FilePane, ShowsThePictureOfEachPageWhilePagesAreTurned)
{
    open_pages({ { add_file(L"一.png", test_support::png_file(65, 67, plain(red))) },
        { add_file(L"二.bmp", test_support::bmp_file(65, 67, plain(green))) },
        { add_file(L"三.tif", test_support::tiff_file(65, 67, plain(blue))) },
        { add_file(L"四.gif", MovingGif(65, 67).frame(MovingGif::white).bytes()) },
        { add_file(L"五.ico", test_support::ico_file(48, 48, plain(yellow))) }, {}, { L"無い.png" } });
    expect_in_view(red);
    for (const Color color : { green, blue, Color{ 0xFFFFFF }, yellow, viewer_back, viewer_back }) {
        click_control(command::next_page);
        expect_in_view(color);
    }
    click_control(command::first_page);
    expect_in_view(red);
}

TEST_F(FilePane, ShowsAJpegAndItsFactsBelow)
{
    open_pages({ { add_file(L"a.jpg", test_support::jpeg_file(65, 65, 220)) } });
    expect_soon(true, [&] { return in_view().luminance() > 210; });
    const app::FileNote note = app::file_note(layout());
    const auto has_text = [&](const app::Rect& line) {
        for (int x = line.left; x < line.left + 60; ++x) {
            for (const COLORREF color : column_on_screen(on_screen(x, line.top), line.height())) {
                if (Color{ color }.luminance() < 60)
                    return true;
            }
        }
        return false;
    };
    expect_soon(true, [&] { return has_text(note.facts); });
    EXPECT_TRUE(has_text(note.size));
    EXPECT_TRUE(has_text(layout().file_counter));
}

TEST_F(FilePane, AnAnimationPlaysPausesSeeksAndContinues)
{
    open_pages({ { add_gif(L"動.gif", 5, 20) } });
    expect_playing();
    click(picture_place());
    expect_soon(true, [&] { return is_paused_shown(); });
    // The pane may draw the pause on the frame in view before the thread moves on to the next one and stops
    // there.
    expect_soon(1u, [&] { return colors_that_come_by(2, milliseconds{ 1000 }); });
    click_bar(500);
    expect_frame(MovingGif::red);
    click_bar(990);
    expect_frame(MovingGif::blue);
    click_bar(10);
    expect_frame(MovingGif::black);
    EXPECT_TRUE(is_paused_shown());
    click(picture_place());
    expect_playing();
    // A double click has no effect.
    double_click(picture_place());
    expect_playing();
}

TEST_F(FilePane, AnAnimationStartsPausedIfTheBookSaysSo)
{
    open_pages({ { add_gif(L"動.gif", 5, 20) } }, false);
    expect_soon(true, [&] { return is_paused_shown(); });
    EXPECT_EQ(colors_that_come_by(2, milliseconds{ 600 }), 1u);
    click(picture_place());
    expect_playing();
}

TEST_F(FilePane, TheWheelSelectsAnotherFile)
{
    open_pages({ { add_file(L"a.png", test_support::png_file(65, 65, plain(red))),
                     add_file(L"b.png", test_support::png_file(65, 65, plain(green))),
                     add_file(L"c.png", test_support::png_file(65, 65, plain(blue))) },
        { L"無い.png" } });
    expect_in_view(red);
    turn_wheel(picture_place(), -1);
    expect_in_view(green);
    turn_wheel(picture_place(), -1);
    expect_in_view(blue);
    turn_wheel(picture_place(), 1);
    expect_in_view(green);
    expect_page(L"一");
}

TEST_F(FilePane, CtrlAndTheWheelMoveTheEntryPastItsNeighbour)
{
    const fs::path book =
        open_pages({ { add_file(L"a.png", test_support::png_file(65, 65, plain(red))), L"無い.png" } });
    expect_in_view(red);
    move_mouse(picture_place());
    const auto stored = [&] {
        main_window().send_command(command::save_always);
        return stored_files(book);
    };
    {
        const HeldKey ctrl(VK_CONTROL);
        turn_wheel(picture_place(), -1);
        expect_soon(std::vector<std::wstring>{ L"無い.png", L"a.png" }, stored);
    }
    expect_in_view(red);
}

TEST_F(FilePane, TheInterpolationIsKeptAcrossARestart)
{
    const Color black{ 0x000000 };
    const Color white{ 0xFFFFFF };
    open_pages(
        { { add_file(L"a.png", test_support::png_file(2, 2, test_support::halves(2, black, white))) } });
    // Far left and right of the middle, a smoothed picture has shades of grey, and a plain one has not.
    const auto has_shades = [&] {
        const Color color{ color_on_screen(in_pane(260, 340)) };
        return color.value != black.value && color.value != white.value;
    };
    expect_soon(true, has_shades);
    main_window().send_command(5001);
    expect_soon(false, has_shades);
    restart();
    expect_soon(false, has_shades);
    main_window().send_command(5002);
    expect_soon(true, has_shades);
}

TEST_F(FilePane, PagesOfAnimationsAreTurnedAtFullSpeed)
{
    std::vector<std::vector<std::wstring>> files;
    for (int i = 0; i < 4; ++i)
        files.push_back({ add_gif(L"動" + std::to_wstring(i) + L".gif", 5, i == 2 ? 65535 : 3) });
    open_pages(files);
    turn_to_and_fro(24);
    const Holdings before = holdings_of(program());
    const std::chrono::duration<double> time(60 * number_from_environment("PAGEWICK_SOAK_MINUTES", 0));
    const auto end = std::chrono::steady_clock::now() + time;
    constexpr int least_turns = 96;
    int turns = 0;
    for (; turns < least_turns || std::chrono::steady_clock::now() < end; turns += 24) {
        turn_to_and_fro(24);
        require_no_growth(before, holdings_of(program()));
    }
    const Holdings after = holdings_of(program());
    std::cout << turns << " turns, " << to_string(before) << " to " << to_string(after) << std::endl;
    // Less than one object per two turns; some turns find no page to go to.
    EXPECT_LT(after.gdi_objects, before.gdi_objects + least_turns / 2);
    main_window().send_command(command::first_page);
    expect_page(L"一");
    expect_playing();
    close();
}

TEST_F(FilePane, TheProgramClosesWhileAnAnimationPlays)
{
    for (const std::uint32_t delay : { 3u, 65535u }) {
        open_pages({ { add_gif(L"動.gif", 5, delay) } });
        if (delay == 3)
            expect_playing();
        else
            expect_frame(MovingGif::black);
        close();
    }
}

TEST_F(FilePane, AFileReplacedWhileItIsShownStaysUntilItIsSelectedAgain)
{
    open_pages({ { add_file(L"a.png", test_support::png_file(65, 65, plain(red))) }, {} });
    expect_in_view(red);
    add_file(L"a.png", test_support::png_file(65, 65, plain(green)));
    main_window().send_command(5001);
    EXPECT_EQ(in_view(), red);
    click_control(command::next_page);
    expect_in_view(viewer_back);
    click_control(command::previous_page);
    expect_in_view(green);
}

TEST_F(FilePane, HostileFilesGiveAClearMessageAndTheProgramKeepsRunning)
{
    FileContents big = test_support::png_file(8, 8, plain(red));
    const auto sides = test_support::PictureBytes{}.big32(30'000).big32(30'000).bytes();
    std::copy(sides.begin(), sides.end(), big.begin() + 16);
    FileContents cut = MovingGif(65, 65).frames(5, 20).bytes();
    cut.resize(cut.size() / 2);
    const std::wstring half_pair{ L'x', wchar_t{ 0xD842 }, L'.', L'p', L'n', L'g' };
    std::vector<std::wstring> hostile{ add_file(L"a.png", {}), add_file(L"b.png", big),
        add_file(L"c.gif", FileContents(99)), half_pair, std::wstring(300, L'長') + L".png" };
    for (const auto& [name, bytes] : test_support::pictures_hiding_their_side(32'768))
        hostile.push_back(add_file(name, bytes));
    // A picture after each of them, so that no message is mistaken for that of the next file.
    const std::wstring good = add_file(L"e.png", test_support::png_file(65, 65, plain(green)));
    std::vector<std::wstring> entries;
    for (const std::wstring& entry : hostile)
        entries.insert(entries.end(), { entry, good });
    entries.insert(entries.end(), { add_file(L"d.gif", cut), good });
    open_pages({ entries });
    const auto error_shows = [&] {
        for (int x = 8; x < 120; ++x) {
            for (const COLORREF color : column_on_screen(in_pane(x, 8), 30)) {
                if (color == 0x6060FF)
                    return true;
            }
        }
        return false;
    };
    for (const std::wstring& entry : hostile) {
        SCOPED_TRACE(testing::PrintToString(entry));
        expect_soon(true, error_shows);
        main_window().send_command(command::next_file);
        expect_in_view(green);
        main_window().send_command(command::next_file);
    }
    // Whether a truncated animation plays depends on the decoder.
    main_window().send_command(command::next_file);
    expect_in_view(green);
}
