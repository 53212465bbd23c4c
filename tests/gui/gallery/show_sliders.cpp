#include "exhibits.hpp"
#include "look/theme.hpp"
#include "ovlib/gui/slider.hpp"

namespace gallery {

namespace {

// A slider in the theme's colours, as a window has it.
class ThemedSlider : public ovlib::HorzSlider, public look::Themed {
public:
    ThemedSlider(ovlib::Wnd* parent, int control_id)
        : HorzSlider(parent, control_id)
    {
    }
    void apply_theme() override
    {
        groove = look::palette().slider_groove;
        fill = has_fill ? look::palette().accent : ovlib::Color{};
        back = look::palette().slider_back;
        update_thumb();
        redraw();
        repaint();
    }

    bool has_fill = true;
};

struct SliderState {
    const wchar_t* caption;
    int max;
    int value;
    ovlib::SliderBorder border = ovlib::SliderBorder::none;
    bool has_fill = true;
    bool is_pressed = false;
};

constexpr SliderState slider_states[] = {
    { L"at the beginning", 100, 0 },
    { L"in the middle", 100, 50 },
    { L"at the end", 100, 100 },
    { L"pressed", 100, 70, ovlib::SliderBorder::none, true, true },
    { L"one value only", 0, 0 },
    { L"sunken border", 100, 30, ovlib::SliderBorder::sunken },
    { L"raised border", 100, 60, ovlib::SliderBorder::raised },
    { L"without fill", 100, 40, ovlib::SliderBorder::none, false },
};

} // namespace

void show_sliders(Shelf& shelf)
{
    shelf.group(L"HorzSlider");
    for (const SliderState& state : slider_states) {
        auto& slider = shelf.add<ThemedSlider>({ 175, 30 }, state.caption, L"");
        slider.max = state.max;
        slider.value = state.value;
        slider.border_style = state.border;
        slider.has_fill = state.has_fill;
        slider.pressed = state.is_pressed;
        slider.apply_theme();
    }
}

} // namespace gallery
