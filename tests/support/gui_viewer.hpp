// The viewer of a pane in a plain parent, and a counter of the pictures that are drawn.
#pragma once
#include "media/wnd/viewer.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_pane.hpp"
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

extern "C" void* __imp_GdipDrawImageRectI;
extern "C" void* __imp_GdipDrawImageRectRect;

namespace gui {

// Counts drawn pictures, whole ones and parts.
class PictureDraws {
public:
    PictureDraws()
        : whole_(&__imp_GdipDrawImageRectI, &note_whole)
        , part_(&__imp_GdipDrawImageRectRect, &note_part)
    {
        count_ = 0;
        original_whole_ = whole_.original();
        original_part_ = part_.original();
    }

    int taken() { return std::exchange(count_, 0); }

private:
    using Whole = decltype(Gdiplus::DllExports::GdipDrawImageRectI);
    using Part = decltype(Gdiplus::DllExports::GdipDrawImageRectRect);

    static Gdiplus::GpStatus WINGDIPAPI note_whole(
        Gdiplus::GpGraphics* graphics, Gdiplus::GpImage* image, INT x, INT y, INT width, INT height)
    {
        ++count_;
        return original_whole_(graphics, image, x, y, width, height);
    }
    static Gdiplus::GpStatus WINGDIPAPI note_part(Gdiplus::GpGraphics* graphics, Gdiplus::GpImage* image,
        Gdiplus::REAL x, Gdiplus::REAL y, Gdiplus::REAL width, Gdiplus::REAL height, Gdiplus::REAL from_x,
        Gdiplus::REAL from_y, Gdiplus::REAL from_width, Gdiplus::REAL from_height, Gdiplus::GpUnit unit,
        GDIPCONST Gdiplus::GpImageAttributes* attributes, Gdiplus::DrawImageAbort callback, VOID* data)
    {
        ++count_;
        return original_part_(graphics, image, x, y, width, height, from_x, from_y, from_width, from_height,
            unit, attributes, callback, data);
    }

    static inline int count_ = 0;
    static inline Whole* original_whole_ = nullptr;
    static inline Part* original_part_ = nullptr;
    ReplacedImport<Whole> whole_;
    ReplacedImport<Part> part_;
};

// Sharp pixels, so that their colours can be compared. The client area without bars has a known size.
class ViewerTest : public Pane {
protected:
    static constexpr int area_width = 400;
    static constexpr int area_height = 300;

    ViewerTest()
    {
        core::settings().interpolation_command = 5001;
        ShowWindow(parent().hwnd(), SW_SHOWNA);
    }

    media::Viewer& viewer() { return pane().viewer(); }
    void open_at(int mode = media::mode_actual_size)
    {
        core::settings().view_mode = mode;
        viewer().open();
        resize_area(area_width, area_height);
    }
    void open_with(std::vector<std::wstring> entries, int mode = media::mode_actual_size)
    {
        show(std::move(entries));
        open_at(mode);
    }
    // Its left half is red, the right one blue.
    void open_picture(int columns, int rows, int mode = media::mode_actual_size)
    {
        const auto paint = test_support::halves(columns, ovlib::rgb(255, 0, 0), ovlib::rgb(0, 0, 255));
        open_with({ write(L"絵.png", test_support::png_file(columns, rows, paint)) }, mode);
        parent().taken();
    }
    void resize_area(int wanted_width, int wanted_height)
    {
        RECT outer{ 0, 0, wanted_width, wanted_height };
        const auto style = static_cast<DWORD>(GetWindowLongW(viewer().hwnd(), GWL_STYLE));
        AdjustWindowRectEx(&outer, style & ~DWORD{ WS_HSCROLL | WS_VSCROLL }, FALSE, 0);
        viewer().resize(outer.right - outer.left, outer.bottom - outer.top, true);
    }
    // Writes a picture whose colour changes from column to column and from row to row.
    std::wstring gradient(const std::wstring& name, int columns, int rows) const
    {
        return write(name, test_support::bmp_file(columns, rows, [](int x, int y) { return shade(x, y); }));
    }
    static ovlib::Color shade(int x, int y) { return ovlib::rgb(x % 256, y % 256, x / 256 * 16 + y / 256); }

    static void update(const ovlib::Wnd& wnd) { UpdateWindow(wnd.hwnd()); }
    // A pixel of the canvas from which the viewer paints.
    ovlib::Color painted(int x, int y)
    {
        update(viewer());
        return pixel(viewer().canvas(), x, y);
    }
    ovlib::Color on_screen(int x, int y)
    {
        update(viewer());
        const ovlib::ClientDC dc{ viewer() };
        return ovlib::Color{ GetPixel(dc.handle(), x, y) };
    }
    ovlib::Wnd& button(int id)
    {
        ovlib::Wnd* const found = ovlib::Wnd::from_handle(GetDlgItem(viewer().hwnd(), id));
        EXPECT_NE(found, nullptr) << id;
        return *found;
    }
    // The buttons that are enabled.
    std::vector<int> choices()
    {
        std::vector<int> enabled;
        for (const int id : { 1029, 1030, 1031 }) {
            if (button(id).is_enabled())
                enabled.push_back(id);
        }
        return enabled;
    }
    bool has_bar(LONG style) { return (GetWindowLongW(viewer().hwnd(), GWL_STYLE) & style) != 0; }
    bool has_bars() { return has_bar(WS_HSCROLL) && has_bar(WS_VSCROLL); }
    SCROLLINFO bar(int which)
    {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        GetScrollInfo(viewer().hwnd(), which, &info);
        return info;
    }
    int across() { return bar(SB_HORZ).nPos; }
    int down() { return bar(SB_VERT).nPos; }
    int mode() { return core::settings().view_mode; }

    void command(int id) { viewer().send_command(id, 0, 0); }
    void zoom_to(int zoom)
    {
        while (viewer().zoom() < zoom)
            command(media::viewer_command::zoom_in);
        while (viewer().zoom() > zoom)
            command(media::viewer_command::zoom_out);
    }
    void key(WORD code) { viewer().send(WM_KEYDOWN, code, 0); }
    void wheel(int delta, WORD keys = 0)
    {
        viewer().send(WM_MOUSEWHEEL, MAKEWPARAM(keys, static_cast<WORD>(delta)), 0);
    }
    void press_picture(int x, int y) { viewer().send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y)); }
    void release_picture() { viewer().send(WM_LBUTTONUP, 0, 0); }
    void move(int x, int y, WPARAM keys = 0) { viewer().send(WM_MOUSEMOVE, keys, MAKELPARAM(x, y)); }
    void drag_picture(int x, int y) { move(x, y, MK_LBUTTON); }
};

} // namespace gui
