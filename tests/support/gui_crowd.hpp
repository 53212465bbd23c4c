// Finds handle leaks where the system cannot count handles: with nearly all of them taken, code that leaks
// one handle per round soon gets no more.
#pragma once
#include "ovlib/gui/dc.hpp"
#include "tests/support/gui_window.hpp"
#include <windows.h>
#include <algorithm>
#include <gtest/gtest.h>
#include <psapi.h>
#include <vector>

namespace gui {

inline constexpr int crowd_room = 2'000; // left free

// Takes all available GDI handles except `room`.
class GdiCrowd {
public:
    explicit GdiCrowd(std::size_t room = crowd_room)
    {
        while (const HBRUSH brush = ovlib::GDI::solid_brush(ovlib::rgb(1, 1, 1)))
            held_.emplace_back(brush);
        held_.resize(held_.size() - std::min(held_.size(), room));
    }

private:
    std::vector<ovlib::GDI::Brush> held_;
};

// The same for windows, which share their numbers with menus.
class UserCrowd {
public:
    explicit UserCrowd(std::size_t room = crowd_room / 4)
    {
        while (const HMENU menu = CreateMenu())
            held_.push_back(menu);
        for (std::size_t i = 0; i < room && !held_.empty(); ++i)
            let_one_go();
    }
    UserCrowd(const UserCrowd&) = delete;
    UserCrowd& operator=(const UserCrowd&) = delete;
    ~UserCrowd()
    {
        while (!held_.empty())
            let_one_go();
    }

private:
    void let_one_go()
    {
        DestroyMenu(held_.back());
        held_.pop_back();
    }
    std::vector<HMENU> held_;
};

// Expects that a handle of each kind can still be created many times.
inline void expect_handles_to_spare(int count = crowd_room / 10)
{
    std::vector<ovlib::GDI::Object> made;
    for (int i = 0; i < count; ++i) {
        const HGDIOBJ fresh[] = { ovlib::GDI::solid_pen(1, ovlib::rgb(1, 2, 3)),
            ovlib::GDI::solid_brush(ovlib::rgb(1, 2, 3)), CreateBitmap(4, 4, 1, 1, nullptr),
            CreateFontW(-12, 0, 0, 0, 400, 0, 0, 0, 1, 0, 0, 0, 0, L"Arial"), CreateRectRgn(0, 0, 1, 1) };
        for (const HGDIOBJ handle : fresh) {
            ASSERT_NE(handle, nullptr) << "after " << i;
            made.emplace_back().attach(handle, ovlib::GDI::Ownership::owned);
        }
    }
    const ovlib::MemDC dc;
    EXPECT_TRUE(dc);
    TopWnd wnd;
    EXPECT_TRUE(wnd.create(L""));
    wnd.destroy();
}

// GDI+ objects are memory, not handles.
inline std::size_t memory_in_use()
{
    PROCESS_MEMORY_COUNTERS counters{};
    EXPECT_TRUE(GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters));
    return counters.PagefileUsage;
}

} // namespace gui
