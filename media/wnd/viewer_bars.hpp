// The viewer's two scroll bars: where the view is in a picture that is larger than the window.
#pragma once
#include "media/viewer_scroll.hpp"
#include "ovlib/gui/scrollbar.hpp"
#include "platform/geometry.hpp"

namespace media {

// What a view keeps when the bars get another range.
enum class KeepView { position, ratio };

// Changing a bar sends WM_SIZE to the window, which must ignore it meanwhile.
class ViewerBars {
public:
    explicit ViewerBars(ovlib::Wnd* owner);

    // Centres the view again when the bars get their next range.
    void center();
    // Shows the bars that a picture drawn in this size needs, and gives them their ranges.
    void fit(platform::Size drawn, KeepView keep);
    void hide() { fit({}, KeepView::ratio); }

    // These do nothing to a hidden bar. True if the view moved.
    bool scroll(int bar, int code, std::uint16_t thumb);
    bool drag(platform::Point from, platform::Point to);

    // The scrolled distance in both directions; 0 for a hidden bar.
    platform::Point position() const;
    Bars shown() const { return { across_.is_shown, down_.is_shown }; }

private:
    struct Bar {
        ovlib::ScrollBar bar;
        double ratio = 0.5; // how far the view is in the range
        bool is_shown = false;
    };

    static void show(Bar& bar, bool shown);
    static void set_range(Bar& bar, int drawn, int client, KeepView keep);
    static bool move_to(Bar& bar, int position);
    static bool drag_bar(Bar& bar, int from, int to);

    ovlib::Wnd* owner_;
    Bar across_;
    Bar down_;
};

} // namespace media
