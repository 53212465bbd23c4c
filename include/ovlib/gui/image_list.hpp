// Pictures of one size, for list views.
#pragma once
#include "ovlib/handles.hpp"
#include <windows.h>
#include <commctrl.h>

namespace ovlib {

// 32 bits per pixel. A list view that shows the pictures shares them (LVS_SHAREIMAGELISTS); this object must
// outlive it.
class ImageList {
public:
    // False on failure; the previous list is released in any case.
    bool create(int width, int height, int capacity);
    // Copies a bitmap with premultiplied alpha, the format of menus, and converts it to plain alpha, the
    // format of image lists. Returns the picture's index; -1 on failure.
    int add(HBITMAP premultiplied);

    HIMAGELIST handle() const { return images_.get(); }
    explicit operator bool() const { return static_cast<bool>(images_); }

private:
    UniqueImageList images_;
};

} // namespace ovlib
