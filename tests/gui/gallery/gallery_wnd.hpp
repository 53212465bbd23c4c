// The window that shows every control of the program in all its states.
#pragma once
#include "look/shared_fonts.hpp"
#include "look/wnd/fonts.hpp"
#include "look/wnd/themed.hpp"
#include "ovlib/gui/basewnd.hpp"
#include "ovlib/gui/gdi_object.hpp"
#include "ovlib/gui/menu_pictures.hpp"
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace gallery {

using look::shared_font;
using look::SharedFont;

class GalleryWnd : public ovlib::BaseWnd, public look::Themed {
public:
    GalleryWnd();
    ~GalleryWnd() override;

    bool on_message(ovlib::WndMessage& message) override;
    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;
    void apply_theme() override;

    // Creates a control of this window and keeps it. Further arguments follow the parent and the id in its
    // constructor.
    template <class Control, class... Arguments>
    Control& add(const RECT& place, const std::wstring& text, Arguments... arguments)
    {
        Control& control = keep(std::make_unique<Control>(this, next_id_++, arguments...));
        control.create(text);
        control.set_rect(place, false);
        control.set_font(shared_font(SharedFont::ui_8));
        control.show(true);
        return control;
    }
    // Only keeps a control that was created elsewhere.
    template <class Control> Control& keep(std::unique_ptr<Control> made)
    {
        Control& control = *made;
        exhibits_.push_back(std::move(made));
        return control;
    }
    // From now on the owner-drawn `control` is drawn with these ODS_ bits in addition to its own.
    void show_as(const ovlib::Wnd& control, UINT item_state) { shown_states_[control.hwnd()] |= item_state; }
    void write(const RECT& place, const std::wstring& text, SharedFont font);
    // Called while the window paints itself.
    void draw(std::function<void(HDC)> drawing) { drawings_.push_back(std::move(drawing)); }

    // Called when the window is shown, and again after a change of theme.
    void when_shown(std::function<void()> act) { acts_.push_back(std::move(act)); }
    void open_lists() const
    {
        for (const auto& act : acts_)
            act();
    }

    const ovlib::MenuPictures& menu_pictures() const { return menu_pictures_; }

private:
    struct Label {
        RECT place;
        std::wstring text;
        SharedFont font;
    };

    bool on_erase(ovlib::WndMessage& message) const;
    bool on_paint() const;
    bool on_draw_item(ovlib::WndMessage& message) const;
    bool on_field_color(ovlib::WndMessage& message, bool is_dimmed) const;

    std::vector<std::unique_ptr<ovlib::Wnd>> exhibits_;
    std::map<HWND, UINT> shown_states_;
    std::vector<Label> labels_;
    std::vector<std::function<void(HDC)>> drawings_;
    std::vector<std::function<void()>> acts_;
    ovlib::MenuPictures menu_pictures_;
    ovlib::GDI::Brush panel_brush_;
    ovlib::GDI::Brush box_brush_;
    int next_id_ = 100;
};

} // namespace gallery
