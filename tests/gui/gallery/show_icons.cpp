#include "exhibits.hpp"
#include "ovlib/gui/shicon.hpp"
#include <commctrl.h>
#include <commoncontrols.h>
#include <shellapi.h>

namespace gallery {

void show_icons(Shelf& shelf)
{
    struct Kind {
        const wchar_t* caption;
        const wchar_t* path;
    };
    constexpr Kind kinds[] = { { L"folder", L"C:\\windows" }, { L".txt", L"a.txt" },
        { L".url", L"dummy.url" }, { L".exe", L"a.exe" } };
    shelf.group(L"SHIcon");
    for (const int size : { SHIL_LARGE, SHIL_SMALL }) {
        for (const Kind& kind : kinds) {
            auto icon = std::make_shared<ovlib::SHIcon>();
            icon->load(kind.path, size);
            const RECT place = shelf.place(32, 32, kind.caption);
            shelf.wnd().draw([icon, place](HDC dc) {
                DrawIconEx(dc, place.left, place.top, icon->icon(), icon->width(), icon->height(), 0, nullptr,
                    DI_NORMAL);
            });
        }
    }
}

} // namespace gallery
