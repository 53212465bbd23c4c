#include "look/wnd/image_button.hpp"
#include "core/folders.hpp"
#include "ovlib/gui/system_geometry.hpp"

namespace look {

namespace {

constexpr float corner_radius = 4.0f;

} // namespace

ImageButtonColors ImageButton::colors() const
{
    return image_button_colors(palette(), highlighted_, state());
}

void ImageButton::draw_background()
{
    const ImageButtonColors shown = colors();
    RECT face = item().rcItem;
    fill_rect(canvas(), shown.back, face);
    ovlib::GDIP gdip(canvas().dc().handle());
    gdip.set_smoothing(Gdiplus::SmoothingModeAntiAlias);
    if (rounded_) {
        gdip.round_rect(face, corner_radius, corner_radius, shown.border, 1.0f, shown.fill);
    } else {
        --face.right;
        --face.bottom;
        gdip.rectangle(face, shown.border, shown.fill);
    }
    if (has_image())
        draw_image(gdip);
}

void ImageButton::draw_image(ovlib::GDIP& gdip) const
{
    const platform::Size sheet{ static_cast<int>(image_.width()), static_cast<int>(image_.height()) };
    const SheetPlace place = sheet_place(area(), sheet, align_, state());
    gdip.draw_image(image_.image(), { place.at.x, place.at.y }, ovlib::to_rect(place.source));
}

void ImageButton::draw_text()
{
    const ImageButtonColors shown = colors();
    draw_label(shown.text, shown.text_shadow);
}

// The background has its own border.
void ImageButton::draw_frame() { }

bool ImageButton::load_image(const std::wstring& path)
{
    image_.clear();
    file_.free();
    const bool loaded = file_.read_file(path) && image_.load(file_);
    repaint();
    return loaded;
}

bool ImageButton::load_res_image(const std::wstring& file_name)
{
    return load_image(core::folders().res + L'\\' + file_name);
}

void ImageButton::set_align(SheetAlign align)
{
    align_ = align;
    repaint();
}

void ImageButton::set_highlighted(bool highlighted)
{
    if (highlighted_ == highlighted)
        return;
    highlighted_ = highlighted;
    repaint();
}

void ImageButton::set_rounded(bool rounded)
{
    rounded_ = rounded;
    repaint();
}

} // namespace look
