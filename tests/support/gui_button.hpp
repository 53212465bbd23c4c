// Drawn buttons: a parent that routes their painting, and draw items made by a test.
#pragma once
#include "ovlib/gui/button.hpp"
#include "ovlib/gui/owner_drawn.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_window.hpp"
#include <algorithm>
#include <vector>

namespace gui {

// A parent that routes WM_DRAWITEM and records the notifications of buttons.
class ButtonHost : public TopWnd {
public:
    struct Notice {
        int id;
        int code;
        friend bool operator==(const Notice&, const Notice&) = default;
    };

    bool on_message(ovlib::WndMessage& message) override
    {
        TopWnd::on_message(message);
        if (message.message == WM_COMMAND)
            notices.push_back({ LOWORD(message.wparam), HIWORD(message.wparam) });
        return ovlib::route_draw_item(message);
    }
    std::ptrdiff_t clicks(int id) const
    {
        return std::count(notices.begin(), notices.end(), Notice{ id, BN_CLICKED });
    }

    std::vector<Notice> notices;
};

// Counts calls.
template <class Base> class Counted : public Base {
public:
    using Base::Base;

    bool draw_item(const DRAWITEMSTRUCT& item) override
    {
        ++drawn;
        last_state = item.itemState;
        return Base::draw_item(item);
    }
    bool on_message(ovlib::WndMessage& message) override
    {
        paints += message.message == WM_PAINT ? 1 : 0;
        return Base::on_message(message);
    }

    int drawn = 0;
    int paints = 0;
    UINT last_state = 0;
};

inline constexpr ovlib::Color untouched{ 0xFF00FF };

// A surface larger than the item by `margin` at the right and bottom, where nothing may be painted.
class ItemCanvas {
public:
    static constexpr int margin = 8;

    explicit ItemCanvas(SIZE item)
        : size_(item)
    {
        picture.create(item.cx + margin, item.cy + margin);
        clear(picture, untouched);
    }

    DRAWITEMSTRUCT item(const ovlib::CustomButton& button, UINT state, UINT action = ODA_DRAWENTIRE) const
    {
        DRAWITEMSTRUCT made{};
        made.CtlType = ODT_BUTTON;
        made.CtlID = static_cast<UINT>(button.control_id());
        made.itemAction = action;
        made.itemState = state;
        made.hwndItem = button.hwnd();
        made.hDC = picture.dc().handle();
        made.rcItem = { 0, 0, size_.cx, size_.cy };
        return made;
    }
    bool draw(ovlib::CustomButton& button, UINT state) { return button.draw_item(item(button, state)); }
    bool is_margin_untouched() const
    {
        return count_pixels(picture, untouched)
            >= (size_.cx + margin) * (size_.cy + margin) - size_.cx * size_.cy;
    }

    ovlib::BackBuffer picture;

private:
    SIZE size_;
};

// The number of pixels of this colour in a rectangle.
inline int count_pixels_in(const ovlib::BaseImage& image, ovlib::Color color, const RECT& rect)
{
    int count = 0;
    for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left; x < rect.right; ++x)
            count += pixel(image, x, y) == color ? 1 : 0;
    }
    return count;
}

// Whether two images of the same size are equal in every pixel.
inline bool same_pictures(const ovlib::BaseImage& one, const ovlib::BaseImage& other)
{
    if (one.width != other.width || one.height != other.height)
        return false;
    for (int y = 0; y < one.height; ++y) {
        for (int x = 0; x < one.width; ++x) {
            if (pixel(one, x, y) != pixel(other, x, y))
                return false;
        }
    }
    return true;
}

// A font without smoothing, so that a test finds the exact text colour.
inline HFONT plain_font(int height = 14)
{
    return CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
        CLIP_DEFAULT_PRECIS, NONANTIALIASED_QUALITY, DEFAULT_PITCH, L"IPAGothic");
}

} // namespace gui
