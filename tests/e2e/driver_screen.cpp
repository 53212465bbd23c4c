#include "driver_screen.hpp"
#include "driver_data_root.hpp"
#include "driver_wait.hpp"
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace e2e {

namespace {

// A part of the screen in memory, 32 bits per pixel, bottom-up.
class Canvas {
public:
    Canvas(int width, int height)
        : width_(width)
        , height_(height)
        , screen_(GetDC(nullptr))
        , dc_(CreateCompatibleDC(screen_))
    {
        const BITMAPINFO info{ header(), {} };
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        bits_ = static_cast<const std::uint32_t*>(bits);
        previous_ = SelectObject(dc_, bitmap_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas()
    {
        SelectObject(dc_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
        ReleaseDC(nullptr, screen_);
    }

    HDC dc() const { return dc_; }
    void copy_from_screen(int left, int top)
    {
        BitBlt(dc_, 0, 0, width_, height_, screen_, left, top, SRCCOPY);
        GdiFlush();
    }
    void fill(COLORREF color)
    {
        const RECT all{ 0, 0, width_, height_ };
        const HBRUSH brush = CreateSolidBrush(color);
        FillRect(dc_, &all, brush);
        DeleteObject(brush);
    }
    std::size_t size() const { return static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_); }
    std::uint32_t pixel(std::size_t i) const { return bits_[i] & 0xFFFFFFu; }
    COLORREF color(std::size_t i) const
    {
        return RGB(bits_[i] >> 16 & 0xFF, bits_[i] >> 8 & 0xFF, bits_[i] & 0xFF);
    }
    BITMAPINFOHEADER header() const
    {
        BITMAPINFOHEADER result{};
        result.biSize = sizeof(result);
        result.biWidth = width_;
        result.biHeight = height_;
        result.biPlanes = 1;
        result.biBitCount = 32;
        return result;
    }
    std::string_view bytes() const { return { reinterpret_cast<const char*>(bits_), size() * 4 }; }

private:
    int width_;
    int height_;
    HDC screen_;
    HDC dc_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ previous_ = nullptr;
    const std::uint32_t* bits_ = nullptr;
};

std::size_t differing_pixels(const Canvas& left, const Canvas& right)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < left.size(); ++i)
        count += left.pixel(i) != right.pixel(i);
    return count;
}

struct SystemIcon {
    Icon icon;
    LPCWSTR name;
};

Icon closest_icon(const Canvas& seen, int size)
{
    const SystemIcon icons[] = { { Icon::error, IDI_ERROR }, { Icon::question, IDI_QUESTION },
        { Icon::warning, IDI_WARNING }, { Icon::information, IDI_INFORMATION } };
    for (const SystemIcon& candidate : icons) {
        Canvas drawn(size, size);
        drawn.fill(GetSysColor(COLOR_3DFACE));
        DrawIconEx(drawn.dc(), 0, 0, LoadIconW(nullptr, candidate.name), size, size, 0, nullptr, DI_NORMAL);
        GdiFlush();
        if (differing_pixels(seen, drawn) < seen.size() / 10)
            return candidate.icon;
    }
    return Icon::none;
}

Window picture_of(Window box)
{
    for (HWND child = GetWindow(box.handle(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const Window picture(child);
        if ((GetWindowLongW(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON && picture.class_name() == L"Static"
            && picture.send(STM_GETICON))
            return picture;
    }
    return {};
}

} // namespace

void save_screenshot(const std::filesystem::path& file)
{
    Canvas canvas(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
    canvas.copy_from_screen(0, 0);
    const BITMAPINFOHEADER info = canvas.header();
    BITMAPFILEHEADER header{};
    header.bfType = 0x4D42; // "BM"
    header.bfOffBits = sizeof(header) + sizeof(info);
    header.bfSize = header.bfOffBits + static_cast<DWORD>(canvas.bytes().size());
    std::string bytes(reinterpret_cast<const char*>(&header), sizeof(header));
    bytes.append(reinterpret_cast<const char*>(&info), sizeof(info));
    bytes.append(canvas.bytes());
    std::filesystem::create_directories(file.parent_path());
    write_bytes(file, bytes);
}

COLORREF color_on_screen(POINT place)
{
    return column_on_screen(place, 1).front();
}

std::vector<COLORREF> column_on_screen(POINT top, int height)
{
    Canvas canvas(1, height);
    canvas.copy_from_screen(top.x, top.y);
    std::vector<COLORREF> colors;
    for (std::size_t i = canvas.size(); i-- > 0;)
        colors.push_back(canvas.color(i));
    return colors;
}

// The icon of another process's box cannot be queried, so it is compared on the screen.
Icon icon_on_screen(Window box)
{
    // A box that is still being created gets its icon last.
    constexpr milliseconds building{ 1000 };
    Window picture;
    const auto has_picture = [&] { return (picture = picture_of(box)).exists(); };
    if (!wait_until(has_picture, building))
        return Icon::none;
    Icon icon = Icon::none;
    wait_until([&] {
        const RECT place = picture.rect(); // the window manager may still be placing the box
        const int size = place.right - place.left;
        Canvas seen(size, size);
        seen.copy_from_screen(place.left, place.top);
        icon = closest_icon(seen, size);
        return icon != Icon::none;
    });
    return icon;
}

} // namespace e2e
