// No control that draws itself flickers: its background is never erased separately, and its picture reaches
// the screen in one copy.
#include "look/wnd/image_button.hpp"
#include "look/wnd/my_check_box.hpp"
#include "look/wnd/my_list_view.hpp"
#include "look/wnd/myslider.hpp"
#include "look/wnd/tabwnd.hpp"
#include "look/wnd/warningwnd.hpp"
#include "ovlib/gui/gdip.hpp"
#include "ovlib/gui/tipwnd.hpp"
#include "tests/support/gui_button.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_look.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_screen_copies.hpp"
#include <gtest/gtest.h>
#include <memory>

namespace {

class Flicker : public testing::Test {
protected:
    Flicker()
    {
        host.create(L"host");
        gui::pump();
    }
    ~Flicker() override
    {
        if (shown)
            shown->destroy();
        shown.reset();
        host.destroy();
    }
    template <class Control> Control& add(std::unique_ptr<Control> made, SIZE size, const wchar_t* text = L"")
    {
        Control& control = *made;
        EXPECT_TRUE(control.create(text));
        control.set_rect({ 10, 10, 10 + size.cx, 10 + size.cy }, false);
        control.set_font(look::shared_font(look::SharedFont::ui_9));
        shown = std::move(made);
        return control;
    }
    template <class Control> Control& add(SIZE size, const wchar_t* text = L"")
    {
        return add(std::make_unique<Control>(&host, 10), size, text);
    }

    static bool is_erased_by_itself(HWND hwnd)
    {
        ovlib::BackBuffer canvas;
        EXPECT_TRUE(canvas.create(40, 20));
        gui::clear(canvas, gui::untouched);
        const LRESULT answer =
            SendMessageW(hwnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(canvas.dc().handle()), 0);
        return answer == 0 || gui::count_pixels(canvas, gui::untouched) != 40 * 20;
    }
    // Paints the whole window as the system does.
    void expect_one_copy(HWND hwnd)
    {
        gui::pump();
        ASSERT_TRUE(IsWindowVisible(hwnd));
        const gui::MessageCount paints{ WM_PAINT };
        for (const UINT how : { RDW_ERASE, RDW_NOERASE }) {
            const gui::ScreenCopies copies;
            RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | how);
            EXPECT_EQ(copies.count(), 1);
        }
        EXPECT_EQ(paints.of(hwnd), 2);
    }
    void expect_none(HWND hwnd)
    {
        EXPECT_FALSE(is_erased_by_itself(hwnd));
        expect_one_copy(hwnd);
    }
    void expect_none() { expect_none(shown->hwnd()); }

    const ovlib::GDIPSession gdip;
    const gui::Look theme_and_fonts;
    gui::ButtonHost host;
    std::unique_ptr<ovlib::Wnd> shown;
};

TEST_F(Flicker, IsDetectedIfTheSystemErasesFirst)
{
    add<gui::PlainChild>({ 50, 50 });
    EXPECT_TRUE(is_erased_by_itself(shown->hwnd()));
}

TEST_F(Flicker, DoesNotAffectPushButtons)
{
    auto& button = add<ovlib::CustomPushButton>({ 84, 24 }, L"押す");
    expect_none();
    button.enable(false);
    expect_none();
}

TEST_F(Flicker, DoesNotAffectCheckBoxes)
{
    add<ovlib::CustomCheckBox>({ 84, 24 }, L"印").set_checked(true);
    expect_none();
    shown->destroy();
    auto& mine = add<look::MyCheckBox>({ 84, 24 }, L"印");
    mine.apply_theme();
    expect_none();
}

TEST_F(Flicker, DoesNotAffectImageButtons)
{
    auto& button = add<look::ImageButton>({ 84, 24 }, L"資料");
    expect_none();
    button.set_highlighted(true);
    expect_none();
}

TEST_F(Flicker, DoesNotAffectSliders)
{
    auto& slider = add<look::MySlider>({ 355, 28 });
    slider.apply_theme();
    slider.show_page(100, 40);
    expect_none();
}

TEST_F(Flicker, DoesNotAffectTabs)
{
    book::Book book;
    for (int i = 0; i < 12; ++i) {
        book::Page page;
        page.tab_number = 1;
        book.pages.push_back(page);
    }
    auto& tabs = add(std::make_unique<look::TabWnd>(&host, &book), { 400, 22 });
    tabs.rebuild();
    expect_none();
    shown->destroy();
    shown.reset();
}

TEST_F(Flicker, DoesNotAffectHeadersOfLists)
{
    auto& list = add<look::MyListView>({ 300, 100 });
    list.add_column(L"頁", 100);
    constexpr UINT get_header = 0x101F; // LVM_GETHEADER
    expect_none(reinterpret_cast<HWND>(list.send(get_header, 0, 0)));
}

TEST_F(Flicker, DoesNotAffectTips)
{
    auto& tip = add(std::make_unique<ovlib::TipWnd>(&host), { 0, 0 });
    tip.show(L"ヒント\r\n二行目", { 300, 300 });
    expect_none();
}

TEST_F(Flicker, DoesNotAffectBanners)
{
    auto& banner = add(std::make_unique<look::WarningWnd>(&host), { 0, 0 });
    banner.show(L"見つかりません");
    expect_none();
}

} // namespace
