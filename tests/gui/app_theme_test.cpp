// A chosen theme is applied to every window of the program at once.
#include "core/locks.hpp"
#include "look/theme.hpp"
#include "look/wnd/image_button.hpp"
#include "look/wnd/my_check_box.hpp"
#include "look/wnd/my_list_view.hpp"
#include "look/wnd/myslider.hpp"
#include "look/wnd/themed.hpp"
#include "ovlib/gui/listview.hpp"
#include "platform/process_log.hpp"
#include "tests/support/gui_app.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_picture.hpp"
#include <dwmapi.h>
#include <map>

extern "C" void* __imp_DwmSetWindowAttribute;

namespace {

namespace command = core::command;
using gui::MessageCount;
using gui::PlainChild;
using gui::PlainSub;

using ListControl = gui::Placed<ovlib::ReportListView, 10, 60, 200, 80>;

// Keeps a brush of the palette, as windows do that fill their background often.
class KeepingChild : public PlainChild, public look::Themed {
public:
    using PlainChild::PlainChild;
    void apply_theme() override
    {
        ++changes;
        paints_before = count(WM_PAINT);
        kept = look::palette().panel_back;
        brush.renew(ovlib::GDI::solid_brush(kept));
    }

    int changes = 0;
    std::ptrdiff_t paints_before = 0;
    ovlib::Color kept;
    ovlib::GDI::Brush brush;
};

std::vector<HWND> visible_windows()
{
    std::vector<HWND> windows;
    const auto note = [](HWND hwnd, LPARAM list) -> BOOL {
        if (IsWindowVisible(hwnd))
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(hwnd);
        return TRUE;
    };
    for (const ovlib::Wnd* wnd = ovlib::Wnd::first(); wnd; wnd = wnd->next()) {
        if (!wnd->hwnd() || (GetWindowLongW(wnd->hwnd(), GWL_STYLE) & WS_CHILD))
            continue;
        note(wnd->hwnd(), reinterpret_cast<LPARAM>(&windows));
        EnumChildWindows(wnd->hwnd(), note, reinterpret_cast<LPARAM>(&windows));
    }
    return windows;
}

// The main window and a secondary window with controls.
class Themes : public gui::AppWindow {
protected:
    void open_windows(book::Book book)
    {
        open(std::move(book));
        sub = std::make_unique<PlainSub>(&window(), 10);
        ASSERT_TRUE(sub->create(L"二次"));
        sub->show(true);
        child = std::make_unique<KeepingChild>(sub.get(), 11);
        list = std::make_unique<ListControl>(sub.get(), 12);
        ASSERT_TRUE(child->create(L"") && list->create(L""));
        list->add_column(L"欄", 100);
        ASSERT_TRUE(gui::pump_until([&] { return child->count(WM_PAINT) != 0; }));
        gui::pump();
    }
    void open_windows() { open_windows(book_of({ page(L"a"), page(L"b"), page(L"c") })); }
    ~Themes() override
    {
        list.reset();
        child.reset();
        sub.reset();
        look::load_theme(look::theme_standard);
    }
    COLORREF list_color(UINT message) const { return static_cast<COLORREF>(list->send(message, 0, 0)); }

    std::unique_ptr<PlainSub> sub;
    std::unique_ptr<KeepingChild> child;
    std::unique_ptr<ListControl> list;
};

TEST_F(Themes, RepaintEveryWindowAndItsControlsOnce)
{
    open_windows();
    const std::vector<HWND> windows = visible_windows();
    ASSERT_GE(windows.size(), 8u) << "main, three boxes, secondary, child, list and its header";
    const MessageCount paints{ WM_PAINT };
    const MessageCount* const counted = &paints;
    command(look::theme_dark);
    for (HWND const hwnd : windows) {
        wchar_t name[64] = {};
        GetClassNameW(hwnd, name, 64);
        EXPECT_EQ(counted->of(hwnd), 1) << testing::PrintToString(std::wstring(name));
    }
}

TEST_F(Themes, EraseTheBackgroundsTheyRepaint)
{
    open_windows();
    const MessageCount erasures{ WM_ERASEBKGND };
    command(look::theme_dark);
    EXPECT_EQ(erasures.of(window().hwnd()), 1);
    EXPECT_EQ(erasures.of(sub->hwnd()), 1);
    EXPECT_EQ(erasures.of(child->hwnd()), 1);
}

TEST_F(Themes, AreOnTheScreenWhenTheCommandEnds)
{
    open_windows();
    sub->show(false);
    gui::pump();
    for (const std::int32_t theme : { 6002, 6003, 6000 }) {
        command(theme);
        const ovlib::ClientDC dc{ window() };
        EXPECT_EQ(GetPixel(dc.handle(), 4, 4), look::theme_colors(theme).panel_back.value) << theme;
    }
}

TEST_F(Themes, AreAppliedBeforeTheRepaintToWindowsThatKeepColours)
{
    open_windows();
    const std::ptrdiff_t paints = child->count(WM_PAINT);
    command(look::theme_dark);
    EXPECT_EQ(child->changes, 1);
    EXPECT_EQ(child->paints_before, paints);
    EXPECT_EQ(child->count(WM_PAINT), paints + 1);
    EXPECT_EQ(child->kept, look::theme_colors(look::theme_dark).panel_back);
}

TEST_F(Themes, AreNotAppliedToADestroyedWindow)
{
    open_windows();
    child->destroy();
    command(look::theme_dark);
    EXPECT_EQ(child->changes, 0);
}

TEST_F(Themes, AreAppliedToHiddenWindowsToo)
{
    open_windows();
    sub->show(false);
    command(look::theme_dark);
    EXPECT_EQ(child->changes, 1);
    EXPECT_EQ(list_color(LVM_GETBKCOLOR), look::theme_colors(look::theme_dark).box_back.value);
}

TEST_F(Themes, SurviveAWindowThatIsDestroyedWhileItIsPainted)
{
    open_windows();
    bool ended = false;
    child->answer = [&](ovlib::WndMessage& message) {
        if (message.message == WM_PAINT && !ended) {
            ended = true;
            sub->destroy();
            return true;
        }
        return false;
    };
    command(look::theme_dark);
    EXPECT_TRUE(ended);
    EXPECT_EQ(book().header.theme, look::theme_dark);
}

TEST_F(Themes, GiveListViewsTheirThreeColours)
{
    open_windows();
    for (std::int32_t theme = 6000; theme <= 6005; ++theme) {
        command(theme);
        const look::ThemePalette colors = look::theme_colors(theme);
        EXPECT_EQ(list_color(LVM_GETBKCOLOR), colors.box_back.value) << theme;
        EXPECT_EQ(list_color(LVM_GETTEXTBKCOLOR), colors.box_back.value) << theme;
        EXPECT_EQ(list_color(LVM_GETTEXTCOLOR), colors.list_text.value) << theme;
    }
}

TEST_F(Themes, AreAppliedToTheControlsOfTheProgram)
{
    open_windows();
    sub->answer = [](ovlib::WndMessage& message) { return ovlib::route_draw_item(message); };
    look::MyCheckBox check{ sub.get(), 20 };
    look::ImageButton button{ sub.get(), 21 };
    look::MySlider slider{ sub.get(), 22 };
    look::MyListView lines{ sub.get(), 23 };
    int top = 0;
    for (ovlib::Wnd* control : std::initializer_list<ovlib::Wnd*>{ &check, &button, &slider, &lines }) {
        ASSERT_TRUE(control->create(L""));
        control->set_rect({ 0, top, 100, top + 30 }, true);
        top += 30;
    }
    for (const std::int32_t theme : { 6002, 6004 }) {
        command(theme);
        const look::ThemePalette colors = look::theme_colors(theme);
        EXPECT_EQ(check.colors(), look::check_box_colors(colors, false));
        EXPECT_EQ(gui::pixel(check.buffer(), 99, 1), colors.check_back);
        EXPECT_EQ(gui::pixel(button.buffer(), 50, 15), colors.button_face);
        EXPECT_EQ(slider.fill, colors.accent);
        EXPECT_EQ(slider.groove, colors.slider_groove);
        EXPECT_EQ(gui::pixel(slider.buffer, 50, 3), colors.slider_back);
        EXPECT_EQ(static_cast<COLORREF>(lines.send(LVM_GETBKCOLOR, 0, 0)), colors.box_back.value);
    }
}

using Attributes = std::map<DWORD, DWORD>;
std::map<HWND, Attributes> frames;
bool system_takes_colors = false;
HRESULT WINAPI note_attribute(HWND hwnd, DWORD attribute, const void* value, DWORD size)
{
    EXPECT_EQ(size, sizeof(DWORD));
    frames[hwnd][attribute] = *static_cast<const DWORD*>(value);
    return system_takes_colors || attribute < 35 ? S_OK : E_INVALIDARG;
}

TEST_F(Themes, ColourTheFrameOfEveryTopLevelWindowAsFarAsTheSystemSupportsIt)
{
    open_windows();
    const gui::ReplacedImport<decltype(DwmSetWindowAttribute)> spy{ &__imp_DwmSetWindowAttribute,
        &note_attribute };
    const auto expect_frames = [&](int theme, bool takes_colors, const Attributes& expected) {
        frames.clear();
        system_takes_colors = takes_colors;
        command(theme);
        EXPECT_TRUE(frames.contains(window().hwnd()));
        EXPECT_TRUE(frames.contains(sub->hwnd()));
        for (const auto& [hwnd, attributes] : frames)
            EXPECT_EQ(attributes, expected) << theme;
        EXPECT_EQ(book().header.theme, theme);
    };
    expect_frames(6003, true, { { 35, 0x9BAAFF }, { 36, 0x000000 } });
    expect_frames(6002, true, { { 35, 0x3C3030 }, { 36, 0xFFFFFF } });
    expect_frames(6003, false, { { 35, 0x9BAAFF }, { 20, 0 } });
    expect_frames(6002, false, { { 35, 0x3C3030 }, { 20, 1 } });
}

TEST_F(Themes, RepaintOutsideTheDrawingLock)
{
    open_windows();
    bool was_free = false;
    child->answer = [&](ovlib::WndMessage& message) {
        if (message.message == WM_PAINT) {
            std::thread animation{ [&] {
                was_free = core::drawing_lock().try_lock();
                if (was_free)
                    core::drawing_lock().unlock();
            } };
            animation.join();
        }
        return false;
    };
    command(look::theme_dark);
    EXPECT_TRUE(was_free);
}

TEST_F(Themes, CostNoHandles)
{
    open_windows();
    const gui::GdiCrowd crowd{ 300 };
    constexpr int shown = 100; // the main window is slow to paint
    for (int i = 0; i < 1000; ++i) {
        if (i == shown)
            window().show(false);
        command(look::theme_standard + i % 6);
        ASSERT_TRUE(child->brush) << "after " << i;
        child->seen.clear();
        sub->seen.clear();
    }
    gui::expect_handles_to_spare(40);
}

TEST_F(Themes, ColourEveryPageAndTheBoxesOnCommand)
{
    open_windows();
    command(6005);
    command(6002);
    for (const book::Page& one : book().pages)
        EXPECT_EQ(one.back_color[0], 0xFFFFFFu) << "a theme leaves the pages alone";
    const MessageCount paints{ WM_PAINT };
    command(command::apply_theme_to_pages);
    for (const book::Page& one : book().pages) {
        EXPECT_EQ(one.text_color, (decltype(one.text_color){ 0xFFFFFF, 0xFFFFFF, 0xFFFFFF }));
        EXPECT_EQ(one.back_color, (decltype(one.back_color){ 0x141414, 0x141414, 0x141414 }));
    }
    gui::pump();
    for (const int id : { command::box_1, command::box_2, command::box_3 })
        EXPECT_GE(paints.of(box(id)), 1) << id;
    command(command::add_page_at_end);
    EXPECT_EQ(book().pages.back().back_color[2], 0x141414u);
    EXPECT_EQ(book().pages.back().text_color[0], 0xFFFFFFu);
}

TEST_F(Themes, OfABookWithAnUnknownNumberOpenAsAKnownTheme)
{
    struct Stored {
        std::int32_t before;
        std::int32_t after;
        std::uint32_t links;
    };
    for (const Stored stored : { Stored{ 0, 6000, 0xFF0000 }, { 7000, 6000, 0xFF0000 },
             { 6006, 6005, 0xFF0000 }, { 6005, 6005, 0xFF4020 } }) {
        book::Book stray = book_of({ page(L"a") });
        stray.header.theme = stored.before;
        open(stray);
        EXPECT_EQ(book().header.theme, stored.after);
        EXPECT_EQ(look::palette().link_text.value, stored.links) << stored.before;
        EXPECT_EQ(look::palette().box_back, look::theme_colors(stored.after).box_back);
        close();
        EXPECT_EQ(saved().header.theme, stored.after);
    }
}

TEST_F(Themes, BelongToTheBookThatIsOpen)
{
    book::Book dark = book_of({ page(L"a") });
    dark.header.theme = look::theme_dark;
    ASSERT_TRUE(dark.save_to(file(L"夜.bok")));
    open({ page(L"b") });
    set_history({ file(L"手帖.bok"), file(L"夜.bok") });
    EXPECT_EQ(look::palette().current_theme, look::theme_standard);
    close();
    set_history({ file(L"夜.bok") });
    ASSERT_TRUE(create());
    EXPECT_EQ(look::palette().current_theme, look::theme_dark);
}

TEST_F(Themes, AreLoggedOnceForEachFontThatCannotBeCreated)
{
    ovlib::WinApp::process_log().set_path(file(L"log.txt"));
    book::Book with_fonts = book_of({ page(L"a") });
    with_fonts.header.fonts[1].height = -30000;
    open(with_fonts);
    // The data root has no pictures. The history window logs that first, and the worker logs about itself
    // last.
    const std::wstring told = ovlib::WinApp::process_log().buffered();
    const std::size_t fonts = told.find(L"ログフォント");
    ASSERT_NE(fonts, std::wstring::npos);
    const std::size_t end = told.find(L"\r\n", fonts);
    EXPECT_EQ(told.substr(fonts, end - fonts), L"ログフォントの設定に失敗: Box1");
    EXPECT_EQ(told.find(L"ログフォント", end), std::wstring::npos);
    ovlib::WinApp::process_log().flush();
    ovlib::WinApp::process_log().set_path(L"");
}

} // namespace
