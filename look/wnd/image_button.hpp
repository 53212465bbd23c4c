// A push button in the theme's colours, with a picture, a text, or both.
#pragma once
#include "look/button_look.hpp"
#include "ovlib/gui/button.hpp"
#include "ovlib/gui/gdip.hpp"
#include "ovlib/gui/gdip_image.hpp"
#include <string>

namespace look {

class ImageButton : public ovlib::CustomPushButton {
public:
    using CustomPushButton::CustomPushButton;

    void draw_background() override;
    void draw_text() override;
    void draw_frame() override;

    // Loads a sheet of two states side by side; the right one is for a disabled button. Replaces the previous
    // picture. If the file cannot be read, the button has no picture and the result is false.
    bool load_image(const std::wstring& path);
    // The same for a file of the resource folder.
    bool load_res_image(const std::wstring& file_name);
    bool has_image() const { return image_.is_loaded(); }

    void set_align(SheetAlign align);
    // Draws the button in the accent colour.
    void set_highlighted(bool highlighted);
    void set_rounded(bool rounded);
    bool is_highlighted() const { return highlighted_; }

private:
    ImageButtonColors colors() const;
    void draw_image(ovlib::GDIP& gdip) const;

    // GDI+ decodes from this memory as long as the picture lives.
    ovlib::GDIPMemory file_;
    ovlib::GDIPImage image_;
    SheetAlign align_ = SheetAlign::center;
    bool highlighted_ = false;
    bool rounded_ = true;
};

} // namespace look
