#include "pane_sheet.hpp"
#include "core/data_root.hpp"
#include "core/locks.hpp"
#include "look/theme.hpp"
#include "media/wnd/filewnd.hpp"
#include "ovlib/gui/gdip.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/gui/text_stream.hpp"
#include "ovlib/win_app.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_window.hpp"
#include "tests/support/picture_files.hpp"
#include "tests/support/screen_picture.hpp"
#include "tests/support/temp_folder.hpp"
#include <functional>

namespace gallery {

namespace {

constexpr int columns = 4;
constexpr int rows = 3;
constexpr int cell_width = 320;
constexpr int cell_height = 260;
constexpr int gap = 12;
constexpr int caption_height = 22;

// Imitates a shell that has a picture of everything.
class DrawnThumbnails : public media::ThumbnailSource {
public:
    ovlib::GDI::Bitmap picture_of(const std::wstring&, int) override
    {
        if (!has_pictures)
            return real.picture_of(ovlib::WinApp::data_root, 1);
        ovlib::GDI::Bitmap bitmap;
        bitmap.create(200, 140);
        const ovlib::MemDC dc;
        const ovlib::ObjectSelection selected{ dc, bitmap };
        TRIVERTEX corners[]{ { 0, 0, 0x3000, 0x6000, 0xA000, 0 }, { 200, 140, 0xF000, 0xD000, 0xA000, 0 } };
        GRADIENT_RECT all{ 0, 1 };
        GradientFill(dc.handle(), corners, 2, &all, 1, GRADIENT_FILL_RECT_V);
        return bitmap;
    }

    bool has_pictures = true;

private:
    media::ShellThumbnails real;
};

class PaneSheet {
public:
    explicit PaneSheet(std::int32_t theme)
    {
        look::load_theme(theme);
        ovlib::WinApp::data_root = folder_.path();
        core::hold_data_root(ovlib::WinApp::data_root);
        ovlib::fill_image_extensions();
        book_.pages.emplace_back();
        parent_.create(L"");
        pane_.create(L"");
        pane_.set_rect({ 0, 0, cell_width, cell_height }, false);
        SetWindowPos(parent_.hwnd(), HWND_TOPMOST, 100, 80, 500, 400, SWP_SHOWWINDOW);
        sheet_.create(columns * (cell_width + gap) + gap, rows * (cell_height + caption_height + gap) + gap);
        ovlib::fill_rect(sheet_, look::palette().panel_back, { 0, 0, sheet_.width, sheet_.height });
    }
    ~PaneSheet()
    {
        pane_.destroy();
        parent_.destroy();
        SetCurrentDirectoryW(L"C:\\");
    }
    PaneSheet(const PaneSheet&) = delete;
    PaneSheet& operator=(const PaneSheet&) = delete;

    bool save(const std::wstring& file)
    {
        add_pictures();
        add_animations();
        add_thumbnails();
        add_messages();
        return test_support::save_png(sheet_, file);
    }

private:
    static ovlib::Color landscape(int x, int y)
    {
        const int hill = 90 + (x * 7 % 40 + x / 3) / 4;
        if (y > hill)
            return ovlib::rgb(40, static_cast<std::uint32_t>(90 + (y - hill) / 2), 50);
        return ovlib::rgb(static_cast<std::uint32_t>(110 + y), static_cast<std::uint32_t>(150 + y / 2), 220);
    }
    std::wstring add(const std::wstring& name, const test_support::FileContents& bytes) const
    {
        test_support::write_bytes(folder_.file(name), bytes);
        return folder_.file(name);
    }
    void show(std::vector<std::wstring> entries, bool autoplay = false)
    {
        book_.header.gif_autoplay = autoplay ? 1 : 0;
        book_.pages[0].files = std::move(entries);
        pane_.show_selected_file();
        settle();
    }
    // Waits until a paused animation has drawn its frame.
    void settle()
    {
        for (int i = 0; i < 10; ++i) {
            gui::pump();
            Sleep(30);
        }
    }
    void point(int x, int y)
    {
        POINT place{ x, y };
        ClientToScreen(pane_.hwnd(), &place);
        SetCursorPos(place.x, place.y);
        settle();
    }
    void take(const std::wstring& caption)
    {
        RedrawWindow(pane_.hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        const int left = gap + taken_ % columns * (cell_width + gap);
        const int top = gap + taken_ / columns * (cell_height + caption_height + gap);
        ++taken_;
        {
            const std::scoped_lock hold{ core::drawing_lock() };
            BitBlt(sheet_.dc().handle(), left, top, cell_width, cell_height, pane_.canvas().dc().handle(), 0,
                0, SRCCOPY);
        }
        ovlib::GDI::TextStream text{ sheet_.dc() };
        text.back_mode = TRANSPARENT;
        text.color = look::palette().list_text;
        text.font = look::shared_font(look::SharedFont::ui_9);
        text.draw(
            caption, { left, top + cell_height, left + cell_width, top + cell_height + caption_height });
    }

    void add_pictures()
    {
        const std::wstring picture = add(L"風景.png", test_support::png_file(240, 160, &landscape));
        show({ picture });
        take(L"a picture");
        show({ picture, picture });
        take(L"one of several files");
    }
    void add_animations()
    {
        using Gif = test_support::MovingGif;
        const std::wstring gif =
            add(L"動.gif", Gif(60, 48).frame(Gif::red, 300).frame(Gif::blue, 5).frame(Gif::green, 5).bytes());
        SetCursorPos(1, 1);
        show({ gif });
        take(L"an animation, paused");
        point(100, 100);
        pane_.send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(cell_width / 2, cell_height - 18));
        settle();
        take(L"paused, the pointer over it");
        show({ gif }, true);
        take(L"playing, the pointer over it");
        SetCursorPos(1, 1);
    }
    void add_thumbnails()
    {
        const std::wstring text = add(L"議事録 2026年11月.txt", test_support::FileContents(20));
        show({ text });
        take(L"the shell's picture");
        thumbnails_.has_pictures = false;
        show({ text });
        take(L"the shell has none");
        thumbnails_.has_pictures = true;
        show({ L"https://example.com/" });
        take(L"an address that the shell knows");
    }
    void add_messages()
    {
        show({ L"D:\\写真\\無い.jpg" });
        take(L"a missing file");
        show({ L"D:\\" + std::wstring(120, L'長') + L".jpg" });
        take(L"one with a long path");
        show({ L"https://example.com/picture.png" });
        take(L"an address like a picture");
        show({});
        take(L"no files");
    }

    test_support::TempFolder folder_;
    DrawnThumbnails thumbnails_;
    media::ShellPropertyReader properties_;
    media::PathAnswers paths_;
    book::Book book_;
    gui::TopWnd parent_;
    media::FileWnd pane_{ &parent_, &book_, { thumbnails_, properties_, paths_ } };
    ovlib::BackBuffer sheet_;
    int taken_ = 0;
};

} // namespace

bool save_pane_sheet(const std::wstring& folder, std::int32_t theme)
{
    return PaneSheet{ theme }.save(folder + L"/panes-" + std::to_wstring(theme) + L".png");
}

} // namespace gallery
