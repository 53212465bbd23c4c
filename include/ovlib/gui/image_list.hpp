// Pictures of one size, for list views.
#pragma once
#include <windows.h>

#include <commctrl.h>

#include "ovlib/handles.hpp"

namespace ovlib {

// 32 bits a pixel. A list view that shows the pictures shares them (LVS_SHAREIMAGELISTS); this object must
// outlive it.
class ImageList {
public:
    // False when the system makes none; what was held is gone then.
    bool create(int width, int height, int capacity);
    // Copies a bitmap whose colours are multiplied by their alpha, as menus have them; the image list wants
    // them plain. The picture's index; -1 on failure.
    int add(HBITMAP premultiplied);

    HIMAGELIST handle() const { return images_.get(); }
    explicit operator bool() const { return static_cast<bool>(images_); }

private:
    UniqueImageList images_;
};

} // namespace ovlib
