// Drawing and rebuilding must not leak handles.
#include "ovlib/gui/gdip.hpp"
#include "ovlib/gui/text_stream.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_pump.hpp"
#include <windows.h>
#include <gtest/gtest.h>

namespace {

using gui::Edit;
using gui::expect_handles_to_spare;
using gui::memory_in_use;
using gui::PlainChild;
using gui::PlainSub;
using gui::TopWnd;
using ovlib::ObjectSelection;
using ovlib::rgb;

constexpr int room = gui::crowd_room;
constexpr int many = 10 * room;

class Leaks : public testing::Test {
protected:
    gui::GdiCrowd crowd;
};

TEST_F(Leaks, ACrowdLeavesOnlyFewHandles)
{
    std::vector<ovlib::GDI::Pen> pens;
    while (pens.size() < many) {
        const HPEN pen = ovlib::GDI::solid_pen(1, rgb(1, 2, 3));
        if (pen == nullptr)
            break;
        pens.emplace_back(pen);
    }
    EXPECT_GT(pens.size(), static_cast<std::size_t>(room) / 2);
    EXPECT_LT(pens.size(), static_cast<std::size_t>(room) * 2) << "a leak a round would not be seen";
}

TEST_F(Leaks, ObjectsAndSelections)
{
    const ovlib::MemDC dc;
    for (int i = 0; i < many; ++i) {
        const ovlib::GDI::Pen pen(ovlib::GDI::solid_pen(1, rgb(1, 2, 3)));
        ASSERT_TRUE(pen) << "after " << i;
        ovlib::GDI::Brush brush(ovlib::GDI::solid_brush(rgb(1, 2, 3)));
        brush.attach(ovlib::GDI::solid_brush(rgb(3, 2, 1)), ovlib::GDI::Ownership::owned);
        brush.renew(ovlib::GDI::solid_brush(rgb(3, 2, 1)));
        ASSERT_TRUE(brush) << "after " << i;
        const ObjectSelection pen_selected(dc, pen);
        const ObjectSelection brush_selected(dc, brush);
    }
    expect_handles_to_spare();
}

TEST_F(Leaks, DeviceContextsAndBitmaps)
{
    for (int i = 0; i < many; ++i) {
        const ovlib::MemDC dc;
        ovlib::GDI::Bitmap bitmap;
        bitmap.create(2, 2);
        ASSERT_TRUE(dc && bitmap) << "after " << i;
        const ObjectSelection selection(dc, bitmap);
    }
    expect_handles_to_spare();
}

TEST_F(Leaks, BackBuffersRebuilt)
{
    ovlib::BackBuffer buffer;
    for (int i = 0; i < many; ++i) {
        buffer.release();
        ASSERT_TRUE(buffer.create(1 + i % 7, 1 + i % 5)) << "after " << i;
        EXPECT_FALSE(buffer.create(3, 3));
    }
    for (int i = 0; i < many; ++i) {
        ovlib::BackBuffer brief;
        ASSERT_TRUE(brief.create(2, 2)) << "after " << i;
    }
    expect_handles_to_spare();
}

TEST_F(Leaks, TextWithUnderlines)
{
    ovlib::BackBuffer buffer;
    ASSERT_TRUE(buffer.create(40, 30));
    std::vector<ovlib::GDI::TextRegion> regions;
    for (int i = 0; i < many; ++i) {
        const ovlib::GDI::Font font(CreateFontW(-12, 0, 0, 0, 400, 0, 0, 0, 1, 0, 0, 0, 0, L"Arial"));
        ASSERT_TRUE(font) << "after " << i;
        ovlib::GDI::TextStream stream(buffer.dc(), &regions);
        stream.font = font.handle();
        stream.underline_next = true;
        stream << L"a";
    }
    expect_handles_to_spare();
}

TEST_F(Leaks, RoundedRectangles)
{
    const ovlib::GDIPSession session;
    ovlib::BackBuffer buffer;
    ASSERT_TRUE(buffer.create(20, 20));
    const auto draw = [&](int rounds) {
        for (int i = 0; i < rounds; ++i) {
            ovlib::GDIP gdip(buffer.dc().handle());
            gdip.round_rect({ 0, 0, 8, 8 }, 2.0f, 2.0f, rgb(0, 0, 0), 1.0f, rgb(9, 9, 9));
            ASSERT_EQ(gdip.status(), Gdiplus::Ok) << "after " << i;
        }
    };
    draw(many / 10);
    const std::size_t before = memory_in_use();
    draw(many / 2);
    const std::size_t after = memory_in_use();
    EXPECT_LT(after, before + 32u * many / 2) << "32 bytes a round are less than any object of GDI+";
    expect_handles_to_spare();
}

// Paints as custom-drawn windows do: from a back buffer, created again when the size changes.
class Painted : public TopWnd {
public:
    bool on_message(ovlib::WndMessage& message) override
    {
        switch (message.message) {
        case WM_ERASEBKGND:
            message.result = 1;
            return true;
        case WM_PAINT:
            paint();
            return true;
        default:
            return TopWnd::on_message(message);
        }
    }

    int paints = 0;
    bool failed = false;

private:
    void paint()
    {
        buffer_.release();
        failed = failed || !buffer_.create(16, 16 + paints % 3);
        ovlib::fill_rect(buffer_, rgb(200, 0, 0), { 0, 0, 16, 16 });
        const ovlib::GDI::Pen pen(ovlib::GDI::solid_pen(2, rgb(0, 0, 9)));
        const ObjectSelection selection(buffer_.dc(), pen);
        LineTo(buffer_.dc().handle(), 15, 15);
        const ovlib::PaintDC dc(*this);
        failed = failed || !dc || !pen;
        buffer_.copy_to(dc);
        seen.clear();
        ++paints;
    }

    ovlib::BackBuffer buffer_;
};

TEST_F(Leaks, WindowsPaintedAgainAndAgain)
{
    Painted wnd;
    ASSERT_TRUE(wnd.create(L"painted"));
    gui::pump();
    const RECT corner{ 0, 0, 16, 16 };
    const int before = wnd.paints;
    for (int i = 0; i < many / 2 && !wnd.failed; ++i) {
        InvalidateRect(wnd.hwnd(), &corner, FALSE);
        UpdateWindow(wnd.hwnd());
    }
    EXPECT_FALSE(wnd.failed);
    EXPECT_EQ(wnd.paints - before, many / 2);
    for (int i = 0; i < many / 2; ++i) {
        const ovlib::ClientDC dc(wnd);
        ASSERT_TRUE(dc) << "after " << i;
    }
    wnd.destroy();
    expect_handles_to_spare();
}

TEST_F(Leaks, WindowsRebuiltWithTheirChildren)
{
    const gui::UserCrowd windows_taken;
    TopWnd top;
    ASSERT_TRUE(top.create(L"rebuilt"));
    PlainSub sub(&top, 1);
    PlainChild child(&sub, 2);
    Edit edit(&sub, 3);
    constexpr int rounds = room / 4; // of three windows, so a leak of one per round uses up the rest
    for (int i = 0; i < rounds; ++i) {
        ASSERT_TRUE(sub.create(L"") && child.create(L"") && edit.create(L"")) << "after " << i;
        edit.set_tab_order(1, 1);
        sub.destroy();
        sub.seen.clear();
        child.seen.clear();
        edit.seen.clear();
        ASSERT_EQ(edit.hwnd(), nullptr);
    }
    top.destroy();
    expect_handles_to_spare();
}

} // namespace
