#include "media/wnd/zoom_buttons.hpp"
#include "look/wnd/fonts.hpp"

namespace media {

namespace {

constexpr RECT zoom_in_place{ 4, 4, 24, 24 };
constexpr RECT zoom_out_place{ 26, 4, 46, 24 };
constexpr RECT actual_size_place{ 52, 4, 80, 24 };

void create_hidden(look::ImageButton& button, const wchar_t* label, const RECT& place)
{
    if (!button.create(label))
        return;
    button.show(false);
    button.set_rounded(false); // round corners would show the panel's colour over the picture
    button.set_font(look::shared_font(look::SharedFont::jp_8_bold));
    button.set_rect(place, false);
}

} // namespace

ZoomButtons::ZoomButtons(ovlib::Wnd* owner)
    : zoom_in_(owner, viewer_command::zoom_in)
    , zoom_out_(owner, viewer_command::zoom_out)
    , actual_size_(owner, viewer_command::zoom_to_actual)
{
}

void ZoomButtons::create()
{
    are_shown_ = false;
    create_hidden(zoom_in_, L"＋", zoom_in_place);
    create_hidden(zoom_out_, L"－", zoom_out_place);
    create_hidden(actual_size_, L"1x", actual_size_place);
}

void ZoomButtons::show(bool visible)
{
    if (are_shown_ == visible)
        return;
    are_shown_ = visible;
    for (look::ImageButton* button : { &zoom_in_, &zoom_out_, &actual_size_ })
        button->show(visible);
}

void ZoomButtons::enable(const ZoomChoices& choices)
{
    zoom_in_.enable(choices.in);
    zoom_out_.enable(choices.out);
    actual_size_.enable(choices.actual);
}

} // namespace media
