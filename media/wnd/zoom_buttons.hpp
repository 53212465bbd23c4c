// The three zoom buttons over the picture in the viewer.
#pragma once
#include "look/wnd/image_button.hpp"
#include "media/viewer_model.hpp"

namespace media {

class ZoomButtons {
public:
    // `owner` gets their commands and must route WM_DRAWITEM to them.
    explicit ZoomButtons(ovlib::Wnd* owner);

    // Creates them hidden. A button that cannot be created is left out.
    void create();
    // Only a change repaints.
    void show(bool visible);
    void enable(const ZoomChoices& choices);
    bool are_shown() const { return are_shown_; }

private:
    look::ImageButton zoom_in_;
    look::ImageButton zoom_out_;
    look::ImageButton actual_size_;
    bool are_shown_ = false;
};

} // namespace media
