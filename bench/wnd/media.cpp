// Files beside the text: a photograph loaded, drawn and dragged in the viewer, an animation's pace, page
// turns with pictures.
#include "bench/harness.hpp"
#include "bench/wnd/app_host.hpp"
#include "core/command_ids.hpp"
#include "core/locks.hpp"
#include "core/settings.hpp"
#include "media/wnd/filewnd.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/picture_files.hpp"
#include <algorithm>
#include <chrono>
#include <memory>
#include <objbase.h>
#include <thread>

namespace bench {

namespace {

namespace command = core::command;
using namespace Gdiplus::DllExports;
using Clock = std::chrono::steady_clock;

constexpr double frame_ms = 16.7;
constexpr int photo_width = 4000;
constexpr int photo_height = 3000;
constexpr CLSID jpeg_encoder{ 0x557CF401, 0x1A04, 0x11D3,
    { 0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E } };

void must(bool holds, const char* what)
{
    if (!holds)
        throw std::runtime_error(what);
}

// Twelve million pixels without equal rows, compressed by the system's encoder.
void write_photo(const std::wstring& path)
{
    Gdiplus::GpBitmap* bitmap = nullptr;
    must(GdipCreateBitmapFromScan0(photo_width, photo_height, 0, PixelFormat24bppRGB, nullptr, &bitmap)
            == Gdiplus::Ok,
        "no bitmap for the photograph");
    const Gdiplus::Rect all{ 0, 0, photo_width, photo_height };
    Gdiplus::BitmapData data{};
    must(GdipBitmapLockBits(bitmap, &all, Gdiplus::ImageLockModeWrite, PixelFormat24bppRGB, &data)
            == Gdiplus::Ok,
        "no pixels for the photograph");
    std::uint32_t noise = 1;
    for (int y = 0; y < photo_height; ++y) {
        auto* row = static_cast<std::uint8_t*>(data.Scan0) + std::ptrdiff_t{ y } * data.Stride;
        for (int x = 0; x < photo_width * 3; ++x) {
            noise = noise * 1664525 + 1013904223;
            row[x] = static_cast<std::uint8_t>((x / 24 + y / 8 + (noise >> 28)) & 0xFF);
        }
    }
    GdipBitmapUnlockBits(bitmap, &data);
    const Gdiplus::GpStatus saved = GdipSaveImageToFile(bitmap, path.c_str(), &jpeg_encoder, nullptr);
    GdipDisposeImage(bitmap);
    must(saved == Gdiplus::Ok, "no file for the photograph");
}

// The pane of the main window with the files of one measurement.
class MediaHost {
public:
    explicit MediaHost(book::Book book)
        : book_(std::move(book))
        , host_(book_)
        , pane_(host_.the<media::FileWnd>())
    {
        ovlib::fill_image_extensions();
        pane_.show_selected_file();
    }
    AppHost& host() { return host_; }
    media::FileWnd& pane() { return pane_; }
    void show()
    {
        pane_.show_selected_file();
        host_.settle();
    }

private:
    book::Book book_;
    AppHost host_;
    media::FileWnd& pane_;
};

book::Book book_of(const std::vector<std::wstring>& files)
{
    book::Book book;
    for (const std::wstring& file : files) {
        book::Page page;
        page.stamp = L"2020010203040520200102030405";
        page.text = { L"一\r\n", L"", L"" };
        if (!file.empty())
            page.files = { file };
        book.pages.push_back(page);
    }
    book.header.gif_autoplay = 1;
    return book;
}

void run_photo(Bench& bench, const test_support::TempFolder& folder)
{
    const std::wstring path = folder.file(L"写真.jpg");
    {
        const ovlib::GDIPSession gdip;
        write_photo(path);
    }
    MediaHost host{ book_of({ path }) };
    must(host.pane().loader().state() == media::LoaderState::picture, "the photograph did not load");
    // The minimum for any program: read the file and decode every pixel once.
    const auto decode = [&] {
        ovlib::GDIPMemory memory;
        ovlib::GDIPImage image;
        must(memory.read_file(path) && image.load(memory), "the photograph did not decode");
        const Gdiplus::Rect all{ 0, 0, photo_width, photo_height };
        Gdiplus::BitmapData data{};
        auto* const bitmap = static_cast<Gdiplus::GpBitmap*>(image.image());
        must(GdipBitmapLockBits(bitmap, &all, Gdiplus::ImageLockModeRead, PixelFormat24bppRGB, &data)
                == Gdiplus::Ok,
            "the photograph has no pixels");
        keep(static_cast<const std::uint8_t*>(data.Scan0)[0]);
        GdipBitmapUnlockBits(bitmap, &data);
    };
    bench.run(
        { "load and draw a 12-megapixel JPEG", [&] { host.show(); }, "decoding it alone", decode, 1.5 });
    bench.run({ "draw it again in another scaling", [&] { host.pane().scale_anew(); }, "decoding it alone",
        decode, 1.0 });
}

// One GDI+ draw of the part of a picture that the viewer shows, into a bitmap of the same size.
class VisibleDraw {
public:
    VisibleDraw(const media::Viewer& viewer, const media::ImageLoader& loader)
        : viewer_(viewer)
        , loader_(loader)
    {
        const platform::Size area = viewer.canvas().area();
        must(buffer_.create(area.width, area.height), "no bitmap");
    }
    void operator()()
    {
        const media::ImageLayout& placed = viewer_.canvas().placed();
        const double scale = placed.scale;
        const double left = loader_.size().width / 2.0 - buffer_.width / scale / 2;
        const double top = loader_.size().height / 2.0 - buffer_.height / scale / 2;
        ovlib::GDIP gdip{ buffer_.dc().handle() };
        gdip.set_interpolation(static_cast<Gdiplus::InterpolationMode>(loader_.interpolation_mode));
        GdipDrawImageRectRect(gdip.graphics(), loader_.picture(), 0, 0, static_cast<float>(buffer_.width),
            static_cast<float>(buffer_.height), static_cast<float>(left), static_cast<float>(top),
            static_cast<float>(buffer_.width / scale), static_cast<float>(buffer_.height / scale),
            Gdiplus::UnitPixel, nullptr, nullptr, nullptr);
    }

private:
    const media::Viewer& viewer_;
    const media::ImageLoader& loader_;
    ovlib::BackBuffer buffer_;
};

// The photograph in the viewer, held by the mouse at several zooms, and the window resized in fit mode.
void run_viewer(Bench& bench, const test_support::TempFolder& folder)
{
    const std::wstring path = folder.file(L"大写真.jpg");
    {
        const ovlib::GDIPSession gdip;
        write_photo(path);
    }
    MediaHost host{ book_of({ path }) };
    media::Viewer& viewer = host.pane().viewer();
    core::settings().view_mode = media::mode_actual_size;
    core::settings().view_rect = { 0, 0, 1600, 1000 };
    viewer.open();
    must(viewer.is_visible() && viewer.zoom() == media::actual_zoom, "the viewer did not open");
    int step = 0;
    const auto drag = [&] {
        viewer.send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(500, 500));
        viewer.send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(++step % 2 ? 490 : 510, 500));
        viewer.send(WM_LBUTTONUP, 0, 0);
        UpdateWindow(viewer.hwnd());
    };
    for (const int zoom : { 100, 200, 2000 }) {
        while (viewer.zoom() < zoom)
            viewer.send_command(media::viewer_command::zoom_in, 0, 0);
        VisibleDraw draw{ viewer, host.pane().loader() };
        bench.run({ "drag a 12-megapixel picture at " + std::to_string(zoom) + " %", drag,
            "one GDI+ draw of the visible part", [&] { draw(); }, zoom == 100 ? 0 : 1.2,
            zoom == 100 ? frame_ms : 0 });
    }
    viewer.send_command(media::mode_fit, 0, 0);
    media::ImageCanvas canvas{ viewer, viewer.canvas().loader() };
    const auto draw_fitted = [&] {
        canvas.layout(media::mode_fit, 0);
        canvas.draw(0, 0);
    };
    bench.run({ "resize the viewer in fit mode", [&] { viewer.resize(1200 + ++step % 2, 900, true); },
        "one draw of the fitted picture", draw_fitted, 1.2 });
    viewer.send(WM_CLOSE, 0, 0);
    core::settings() = {};
}

// Starts and stops the thread as a page turn onto and away from an animation does.
void run_starts(Bench& bench, const test_support::TempFolder& folder)
{
    const std::wstring path = folder.file(L"始.gif");
    test_support::write_bytes(path, test_support::MovingGif(8, 8).frames(3, 65535).bytes());
    MediaHost host{ book_of({ L"" }) };
    media::ShellThumbnails thumbnails;
    media::ShellPropertyReader properties;
    media::PathAnswers paths;
    media::ImageLoader loader{ thumbnails, properties, paths };
    must(loader.load(path), "the animation did not load");
    media::ImageCanvas canvas{ host.pane(), loader };
    must(canvas.fit(), "no bitmap");
    canvas.layout(media::mode_fit, 0);
    media::GifThread thread;
    Case starts{ "start and stop of an animation's thread",
        [&] {
            must(thread.play(canvas, media::PlayState::paused), "no thread");
            thread.stop();
        },
        "a thread that does nothing", [] { std::thread{ [] {} }.join(); } };
    starts.repeats = 10'000 / starts.rounds;
    bench.run(starts);
}

// Drawing a frame scaled to the pane, compared with the system's StretchBlt of the same pixels.
void run_frame(Bench& bench, const test_support::TempFolder& folder)
{
    constexpr int side = 200;
    const std::wstring path = folder.file(L"枠.png");
    test_support::write_bytes(
        path, test_support::png_file(side, side, test_support::halves(side, ovlib::rgb(255, 0, 0), {})));
    MediaHost host{ book_of({ path }) };
    ovlib::BackBuffer source;
    ovlib::BackBuffer target;
    const media::ImageCanvas& canvas = host.pane().canvas();
    must(source.create(side, side) && target.create(canvas.width, canvas.height), "no bitmaps");
    Case frame{ "draw and show a frame of 200 x 200", [&] { host.pane().scale_anew(); },
        "stretching it by the nearest pixel",
        [&] {
            StretchBlt(target.dc().handle(), 0, 0, target.width, target.height, source.dc().handle(), 0, 0,
                side, side, SRCCOPY);
            ovlib::finish_drawing();
        },
        0, media::shortest_delay };
    frame.repeats = 5;
    bench.run(frame);
}

// The times between frames, taken when the thread's frame number changes.
std::vector<double> frame_times(MediaHost& host, std::size_t count)
{
    std::vector<double> times;
    const media::GifThread& thread = host.pane().gif_thread();
    std::uint32_t frame = thread.current_frame();
    Clock::time_point last{};
    while (times.size() < count) {
        gui::pump();
        if (const std::uint32_t now = thread.current_frame(); now != frame) {
            const Clock::time_point at = Clock::now();
            if (last != Clock::time_point{})
                times.push_back(std::chrono::duration<double, std::milli>(at - last).count());
            last = at;
            frame = now;
        }
        Sleep(0);
    }
    std::ranges::sort(times);
    return times;
}

void run_pace(Bench& bench, const test_support::TempFolder& folder)
{
    const struct {
        const char* name;
        std::uint32_t hundredths;
        std::size_t frames;
    } paces[] = { { "100 ms", 10, 60 }, { "10 ms", 1, 150 } };
    for (const auto& pace : paces) {
        const std::wstring path = folder.file(L"動.gif");
        test_support::write_bytes(
            path, test_support::MovingGif(200, 200).frames(20, pace.hundredths).bytes());
        MediaHost host{ book_of({ path }) };
        must(host.pane().gif_thread().is_held(), "the animation does not play");
        const std::vector<double> times = frame_times(host, pace.frames);
        const double rule = media::frame_time(pace.hundredths * 10);
        const std::string name = std::string("frames of ") + pace.name;
        bench.add({ name + ", median", times[times.size() / 2], "the time that the rule gives", rule, 1.05 });
        bench.add({ name + ", worst", times.back(), "the time that the rule gives", rule, 1.5 });
    }
}

void run_turns(Bench& bench, const test_support::TempFolder& folder)
{
    constexpr std::size_t pages = 20;
    std::vector<std::wstring> pictures;
    for (std::size_t i = 0; i < pages; ++i) {
        pictures.push_back(folder.file(L"絵" + std::to_wstring(i) + L".png"));
        const auto shade = static_cast<std::uint32_t>(i * 10);
        const auto paint = [shade](int x, int y) {
            return ovlib::rgb(
                shade, static_cast<std::uint32_t>(x) & 0xFF, static_cast<std::uint32_t>(y) & 0xFF);
        };
        test_support::write_bytes(pictures.back(), test_support::png_file(640, 480, paint));
    }
    double without = 0;
    for (const bool has_pictures : { false, true }) {
        MediaHost host{ book_of(has_pictures ? pictures : std::vector<std::wstring>(pages)) };
        std::vector<double> times;
        for (int round = 0; round < 3; ++round) {
            host.host().command(command::first_page);
            for (std::size_t i = 1; i < pages; ++i) {
                const Clock::time_point begin = Clock::now();
                host.host().command(command::next_page);
                times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
            }
        }
        std::ranges::sort(times);
        const double median = times[times.size() / 2];
        if (has_pictures)
            bench.add(
                { "page turn, a picture on each", median, "the same without files", without, 0, frame_ms });
        without = median;
    }
}

} // namespace

void run_media(Bench& bench)
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    {
        const test_support::TempFolder folder;
        run_photo(bench, folder);
        run_viewer(bench, folder);
        run_starts(bench, folder);
        run_frame(bench, folder);
        run_pace(bench, folder);
        run_turns(bench, folder);
    }
    CoUninitialize();
}

} // namespace bench
