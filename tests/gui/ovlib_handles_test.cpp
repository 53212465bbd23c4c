// Each owner of a system handle releases it with the right function.
#include "ovlib/handles.hpp"
#include "tests/support/gui_window.hpp"
#include <windows.h>
#include <gtest/gtest.h>

namespace {

TEST(Handles, AKernelHandleIsClosed)
{
    HANDLE event = nullptr;
    DWORD flags = 0;
    {
        const ovlib::UniqueKernelHandle owner{ CreateEventW(nullptr, TRUE, FALSE, nullptr) };
        event = owner.get();
        EXPECT_TRUE(GetHandleInformation(event, &flags));
    }
    EXPECT_FALSE(GetHandleInformation(event, &flags));
}

TEST(Handles, ADeviceContextIsDeleted)
{
    HDC hdc = nullptr;
    {
        const ovlib::UniqueMemoryDC owner{ CreateCompatibleDC(nullptr) };
        hdc = owner.get();
        EXPECT_EQ(GetObjectType(hdc), DWORD{ OBJ_MEMDC });
    }
    EXPECT_EQ(GetObjectType(hdc), 0u);
}

TEST(Handles, ARegionIsDeleted)
{
    HRGN region = nullptr;
    {
        const ovlib::UniqueRegion owner{ CreateRectRgn(0, 0, 1, 1) };
        region = owner.get();
        EXPECT_EQ(GetObjectType(region), DWORD{ OBJ_REGION });
    }
    EXPECT_EQ(GetObjectType(region), 0u);
}

TEST(Handles, AnIconIsDestroyed)
{
    HICON icon = nullptr;
    {
        const ovlib::UniqueIcon owner{ CopyIcon(LoadIconW(nullptr, IDI_APPLICATION)) };
        icon = owner.get();
        ASSERT_TRUE(owner);
    }
    ICONINFO facts{};
    EXPECT_FALSE(GetIconInfo(icon, &facts));
}

TEST(Handles, AMenuIsDestroyed)
{
    HMENU menu = nullptr;
    {
        const ovlib::UniqueMenu owner{ CreatePopupMenu() };
        menu = owner.get();
        EXPECT_TRUE(IsMenu(menu));
    }
    EXPECT_FALSE(IsMenu(menu));
}

TEST(Handles, ALibraryIsFreed)
{
    constexpr auto name = L"msvfw32.dll"; // not used by this program
    ASSERT_EQ(GetModuleHandleW(name), nullptr);
    {
        const ovlib::UniqueLibrary owner{ LoadLibraryW(name) };
        EXPECT_EQ(GetModuleHandleW(name), owner.get());
        EXPECT_TRUE(owner);
    }
    EXPECT_EQ(GetModuleHandleW(name), nullptr);
}

TEST(Handles, AGlobalBlockIsUnlockedAndFreed)
{
    const auto locks = [](HGLOBAL block) { return GlobalFlags(block) & GMEM_LOCKCOUNT; };
    ovlib::UniqueGlobalMemory block{ GlobalAlloc(GMEM_MOVEABLE, 16) };
    ASSERT_NE(GlobalLock(block.get()), nullptr);
    {
        const ovlib::UniqueGlobalLock lock{ block.get() };
        EXPECT_EQ(locks(block.get()), 1u);
    }
    EXPECT_EQ(locks(block.get()), 0u);
    HGLOBAL const freed = block.get();
    block.reset();
    EXPECT_EQ(GlobalFlags(freed), UINT{ GMEM_INVALID_HANDLE });
}

TEST(Handles, ALocalBlockIsFreed)
{
    HLOCAL block = nullptr;
    {
        const ovlib::UniqueLocalMemory<HLOCAL> owner{ LocalAlloc(LMEM_MOVEABLE, 16) };
        block = owner.get();
        EXPECT_EQ(LocalSize(block), 16u);
    }
    EXPECT_EQ(LocalFlags(block), UINT{ LMEM_INVALID_HANDLE });
}

TEST(Handles, AWindowsContextIsReleasedToItsWindow)
{
    gui::TopWnd wnd;
    ASSERT_TRUE(wnd.create(L"lender"));
    HDC hdc = nullptr;
    {
        const ovlib::UniqueLentDC owner{ { wnd.hwnd(), GetDC(wnd.hwnd()) } };
        hdc = owner.get().hdc;
        EXPECT_EQ(WindowFromDC(hdc), wnd.hwnd());
    }
    EXPECT_EQ(WindowFromDC(hdc), nullptr);
    wnd.destroy();
}

} // namespace
