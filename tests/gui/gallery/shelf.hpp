// Places exhibits in rows, each under its caption.
#pragma once
#include "gallery_wnd.hpp"

namespace gallery {

class Shelf {
public:
    // Fills `area` from the top.
    Shelf(GalleryWnd& wnd, const RECT& area);

    // Starts a group with its own title.
    void group(const std::wstring& title);
    // The rectangle for an exhibit, beside the previous one or in a new row.
    RECT place(int width, int height, const std::wstring& caption);
    void end_row();
    int bottom() const { return y_ + row_height_; }
    GalleryWnd& wnd() { return wnd_; }

    template <class Control, class... Arguments>
    Control& add(SIZE size, const std::wstring& caption, const std::wstring& text, Arguments... arguments)
    {
        return wnd_.add<Control>(place(size.cx, size.cy, caption), text, arguments...);
    }

private:
    GalleryWnd& wnd_;
    RECT area_;
    int x_;
    int y_;
    int row_height_ = 0;
};

} // namespace gallery
