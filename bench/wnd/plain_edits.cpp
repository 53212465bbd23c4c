#include "bench/wnd/plain_edits.hpp"
#include "tests/support/gui_pump.hpp"

namespace bench {

namespace {

HWND make_like(HWND model, HWND host)
{
    RECT place{};
    GetWindowRect(model, &place);
    MapWindowPoints(nullptr, GetParent(model), reinterpret_cast<POINT*>(&place), 2);
    HWND const made = CreateWindowExW(static_cast<DWORD>(GetWindowLongPtrW(model, GWL_EXSTYLE)), L"EDIT", L"",
        static_cast<DWORD>(GetWindowLongPtrW(model, GWL_STYLE)), place.left, place.top,
        place.right - place.left, place.bottom - place.top, host, nullptr, nullptr, nullptr);
    SendMessageW(made, WM_SETFONT, static_cast<WPARAM>(SendMessageW(model, WM_GETFONT, 0, 0)), FALSE);
    SendMessageW(made, EM_SETLIMITTEXT, 0, 0);
    return made;
}

} // namespace

PlainEdits::PlainEdits(const std::vector<HWND>& models)
{
    RECT place{};
    GetWindowRect(GetParent(models.front()), &place);
    host_ = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE, 0, 0,
        place.right - place.left, place.bottom - place.top, nullptr, nullptr, nullptr, nullptr);
    for (HWND const model : models)
        edits_.push_back(make_like(model, host_));
    gui::pump();
}

PlainEdits::~PlainEdits()
{
    DestroyWindow(host_);
}

} // namespace bench
