#include "app/wnd/app_bitmaps.hpp"
#include "app/bitmap_files.hpp"
#include "core/folders.hpp"
#include "ovlib/gui/gdi_object.hpp"
#include <map>
#include <string>

namespace app {

namespace {

using Bitmaps = std::map<std::int32_t, ovlib::GDI::Bitmap>;

Bitmaps& app_bitmaps()
{
    static Bitmaps bitmaps;
    return bitmaps;
}

} // namespace

void load_app_bitmaps()
{
    for (const auto& [command, file] : bitmap_files) {
        const std::wstring path = core::folders().res + L"\\" + file + L".bmp";
        app_bitmaps()[command].renew(ovlib::GDI::load_bitmap(path));
    }
}

void free_app_bitmaps()
{
    app_bitmaps().clear();
}

HBITMAP app_bitmap(std::int32_t command)
{
    return app_bitmaps()[command].handle();
}

} // namespace app
