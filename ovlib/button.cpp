#include "ovlib/gui/button.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/gui/text_stream.hpp"

namespace ovlib {

namespace {

constexpr LONG button_style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | BS_OWNERDRAW;
constexpr UINT label_format = DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_WORD_ELLIPSIS;
constexpr Color label_shadow = rgb(0xFF, 0xFF, 0xFF);
constexpr Color label_disabled = rgb(0xA0, 0xA0, 0xA0);

// Clips drawing to a rectangle and restores the device context afterwards.
class ClipScope {
public:
    ClipScope(const DC& dc, const RECT& rect)
        : hdc_(dc.handle())
        , saved_(SaveDC(hdc_))
    {
        IntersectClipRect(hdc_, rect.left, rect.top, rect.right, rect.bottom);
    }
    ClipScope(const ClipScope&) = delete;
    ClipScope& operator=(const ClipScope&) = delete;
    ~ClipScope() { RestoreDC(hdc_, saved_); }

private:
    HDC hdc_;
    int saved_;
};

} // namespace

Button::Button(Wnd* parent, int control_id)
    : SysControl(parent, control_id)
{
}

std::wstring Button::class_info(WNDCLASSEXW&)
{
    return L"BUTTON";
}

CustomButton::CustomButton(Wnd* parent, int control_id)
    : Button(parent, control_id)
{
}

void CustomButton::on_created()
{
    set_subclassed(true);
}

void CustomButton::create_params(CREATESTRUCTW& params)
{
    Button::create_params(params);
    params.style = button_style;
}

bool CustomButton::on_message(WndMessage& message)
{
    switch (message.message) {
    case WM_ERASEBKGND:
        message.result = 1;
        return true;
    case WM_LBUTTONDBLCLK:
        // An owner-drawn button reports the second of two quick clicks as a double click, so it is changed
        // into a press.
        message.message = WM_LBUTTONDOWN;
        return false;
    default:
        return false;
    }
}

void CustomButton::set_bitmap(HBITMAP bitmap)
{
    send(BM_SETIMAGE, IMAGE_BITMAP, static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(bitmap)));
}

bool CustomButton::draw_item(const DRAWITEMSTRUCT& item)
{
    if (item.itemAction == 0)
        return true;
    const RECT& place = item.rcItem;
    if (!buffer_.fit(place.right - place.left, place.bottom - place.top))
        return false;
    item_ = &item;
    label_ = text();
    font_ = font();
    paint();
    item_ = nullptr;
    return true;
}

void CustomButton::paint()
{
    draw_background();
    draw_frame();
    if (state().focused)
        draw_focus();
    const DC target(item_->hDC);
    buffer_.copy_to(target);
    const ClipScope clip(target, item_->rcItem);
    draw_text();
}

ButtonState CustomButton::state() const
{
    const auto has = [this](UINT flag) { return (item_->itemState & flag) != 0; };
    return { .pressed = has(ODS_SELECTED), .disabled = has(ODS_DISABLED), .focused = has(ODS_FOCUS) };
}

HFONT CustomButton::label_font(const DC& dc) const
{
    return font_ != nullptr ? font_ : static_cast<HFONT>(GetCurrentObject(dc.handle(), OBJ_FONT));
}

platform::Rect CustomButton::area() const
{
    return from_rect(item_->rcItem);
}

void CustomButton::repaint()
{
    if (hwnd() == nullptr)
        return;
    InvalidateRect(hwnd(), nullptr, FALSE);
    UpdateWindow(hwnd());
}

CustomPushButton::CustomPushButton(Wnd* parent, int control_id)
    : CustomButton(parent, control_id)
{
}

void CustomPushButton::draw_background()
{
    fill_rect(canvas(), Color{ GetSysColor(COLOR_BTNFACE) }, item().rcItem);
}

void CustomPushButton::draw_focus()
{
    const RECT inside = to_rect(button_focus_rect(area()));
    DrawFocusRect(canvas().dc().handle(), &inside);
}

void CustomPushButton::draw_frame()
{
    RECT edge = item().rcItem;
    DrawEdge(canvas().dc().handle(), &edge, state().pressed ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT);
}

void CustomPushButton::draw_text()
{
    draw_label(state().disabled ? label_disabled : Color{ GetTextColor(item().hDC) }, label_shadow);
}

void CustomPushButton::draw_label(Color color, Color shadow)
{
    if (label().empty())
        return;
    GDI::TextStream stream{ DC(item().hDC) };
    stream.flags = label_format;
    stream.back_mode = TRANSPARENT;
    stream.font = label_font(stream.dc);
    const ButtonTextPlaces places = button_text_places(area(), state());
    if (places.has_shadow) {
        stream.color = shadow;
        stream.draw(label(), to_rect(places.shadow));
    }
    stream.color = color;
    stream.draw(label(), to_rect(places.text));
}

} // namespace ovlib
