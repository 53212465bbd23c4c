// The base of the windows other than the main one.
#include "core/command_ids.hpp"
#include "look/theme.hpp"
#include "look/wnd/image_button.hpp"
#include "look/wnd/input_form.hpp"
#include "look/wnd/my_list_view.hpp"
#include "look/wnd/themed.hpp"
#include "look/wnd/tool_window.hpp"
#include "ovlib/gui/combobox.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_driver.hpp"
#include "tests/support/gui_look.hpp"
#include "tests/support/gui_typing.hpp"
#include "tests/support/gui_window.hpp"
#include <array>
#include <dwmapi.h>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <set>

extern "C" void* __imp_DwmSetWindowAttribute;

namespace {

namespace command = core::command;
using look::ToolWindow;

constexpr platform::Size client{ 320, 240 };
constexpr int button_id = 31;
constexpr int row_count = 1'000;

// A window with every kind of control that handles keys itself.
class Desk : public ToolWindow {
public:
    explicit Desk(ovlib::Wnd* parent, const look::ToolFrame& frame = { client })
        : ToolWindow(parent, 30, frame)
    {
    }

    bool on_message(ovlib::WndMessage& message) override
    {
        if (message.message == WM_CLOSE && refuses_close)
            return true;
        if (message.message == WM_COMMAND)
            commands.push_back(LOWORD(message.wparam));
        return ToolWindow::on_message(message);
    }
    std::wstring class_info(WNDCLASSEXW& info) override
    {
        ToolWindow::class_info(info);
        return ovlib::window_class_name(L"tests/desk", 1);
    }
    using ToolWindow::place_at_cursor;
    using ToolWindow::show_message;

    gui::Edit line{ this, 10 };
    gui::Edit lines{ this, 11 };
    look::InputForm form{ this, 12 };
    ovlib::ComboBox combo{ this, 13, CBS_DROPDOWNLIST };
    look::ImageButton button{ this, button_id };
    gui::PlainChild plain{ this, 14 };
    look::MyVirtualList list{ this, 15 };

    std::vector<int> commands;
    std::vector<platform::Size> layouts;
    std::function<void()> opening = [] {};
    std::optional<bool> enter; // the result of the default action
    int entered = 0;
    bool refuses_close = false;
    bool has_controls = true;

protected:
    bool make_controls() override
    {
        if (!has_controls)
            return true;
        lines.extra_style = ES_MULTILINE | ES_WANTRETURN;
        const bool are_made = add_controls({
            { &line, L"一行", { 10, 10, 200, 30 } },
            { &lines, L"", { 10, 40, 200, 90 } },
            { &form, L"", { 10, 100, 200, 120 } },
            { &combo, L"", { 10, 130, 200, 230 } },
            { &button, L"押す", { 210, 10, 310, 34 } },
            { &plain, L"", { 210, 40, 310, 60 } },
            { &list, L"", { 210, 70, 310, 230 } },
        });
        if (!are_made)
            return false;
        combo.add(L"甲");
        combo.add(L"乙");
        list.add_column(L"行", 80);
        list.set_source({ .text = [](int row, int) { return std::to_wstring(row); } });
        list.set_count(row_count);
        return true;
    }
    void lay_out(platform::Size size) override { layouts.push_back(size); }
    void on_opening() override { opening(); }
    bool on_enter() override
    {
        ++entered;
        return enter.value_or(false);
    }
};

class ToolWindows : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top.create(L"main"));
        top.answer = [this](ovlib::WndMessage& message) {
            if (message.message == WM_COMMAND)
                held.push_back({ LOWORD(message.wparam), message.lparam });
            return false;
        };
        top.show(true);
        ASSERT_TRUE(gui::point_at({ 900, 700 }));
        ASSERT_TRUE(gui::bring_to_front(top));
    }
    void TearDown() override { top.destroy(); }

    void open()
    {
        desk->show(true);
        ASSERT_TRUE(gui::pump_until([&] { return GetActiveWindow() == desk->hwnd(); }));
    }
    void focus(ovlib::Wnd& control)
    {
        control.set_focus();
        ASSERT_EQ(GetFocus(), control.hwnd());
    }
    // Sends the key as the message loop does.
    static void press(WORD key)
    {
        gui::press_key(key);
        gui::pump_until([&] { return GetAsyncKeyState(key) >= 0; });
        gui::pump();
    }
    static POINT corner_of(const ovlib::Wnd& wnd)
    {
        RECT rect{};
        GetWindowRect(wnd.hwnd(), &rect);
        return { rect.left, rect.top };
    }

    struct Held {
        int id;
        std::int64_t lparam;
        friend bool operator==(const Held&, const Held&) = default;
    };

    const gui::Look look_;
    gui::TopWnd top;
    std::unique_ptr<Desk> desk = std::make_unique<Desk>(&top);
    std::vector<Held> held;
};

TEST_F(ToolWindows, IsCreatedHiddenWithItsClientSize)
{
    ASSERT_TRUE(desk->create(L"道具"));
    EXPECT_FALSE(desk->is_visible());
    EXPECT_FALSE(desk->is_open());
    EXPECT_EQ(desk->client_size().cx, client.width);
    EXPECT_EQ(desk->client_size().cy, client.height);
    EXPECT_EQ(desk->text(), L"道具");
    EXPECT_EQ(GetWindow(desk->hwnd(), GW_OWNER), top.hwnd());
}

TEST_F(ToolWindows, HasTheSmallIconOfItsParent)
{
    const auto old = static_cast<LONG_PTR>(SetClassLongPtrW(
        top.hwnd(), GCLP_HICONSM, reinterpret_cast<LONG_PTR>(LoadIconW(nullptr, IDI_WARNING))));
    WNDCLASSEXW info{};
    desk->class_info(info);
    EXPECT_EQ(info.hIconSm, LoadIconW(nullptr, IDI_WARNING));
    SetClassLongPtrW(top.hwnd(), GCLP_HICONSM, old);
}

TEST_F(ToolWindows, KeepsItsClientSizeInEveryFrame)
{
    constexpr std::array<DWORD, 2> styles{ WS_POPUP | WS_CAPTION,
        WS_OVERLAPPED | WS_CAPTION | WS_THICKFRAME | WS_VSCROLL };
    for (const DWORD style : styles) {
        Desk other{ &top, { { 250, 195 }, style, WS_EX_TOOLWINDOW } };
        other.has_controls = false;
        ASSERT_TRUE(other.create(L""));
        const int bar = (style & WS_VSCROLL) != 0 ? GetSystemMetrics(SM_CXVSCROLL) : 0;
        EXPECT_EQ(other.client_size().cx, 250 - bar);
        EXPECT_EQ(other.client_size().cy, 195);
        EXPECT_NE(GetWindowLongW(other.hwnd(), GWL_EXSTYLE) & WS_EX_TOOLWINDOW, 0);
        other.destroy();
    }
}

TEST_F(ToolWindows, IsCreatedWhenFirstShown)
{
    EXPECT_EQ(desk->hwnd(), nullptr);
    open();
    EXPECT_TRUE(desk->is_visible());
    EXPECT_TRUE(desk->is_open());
}

TEST_F(ToolWindows, DoesNotOpenWithoutItsControls)
{
    const gui::RefusedWindows refused{ L"ComboBox" };
    desk->show(true);
    EXPECT_EQ(desk->hwnd(), nullptr);
    EXPECT_FALSE(desk->is_open());
}

TEST_F(ToolWindows, ControlsHaveTheirFontPlaceAndText)
{
    open();
    EXPECT_EQ(desk->line.text(), L"一行");
    EXPECT_EQ(desk->line.font(), look::shared_font(look::SharedFont::ui_9));
    const RECT place = desk->button.rect();
    EXPECT_EQ(place.left, 210);
    EXPECT_EQ(place.bottom, 34);
}

// The system may report the size of a new window only when it is first shown.
TEST_F(ToolWindows, IsLaidOutWithItsControlsAndWheneverItsSizeChanges)
{
    const gui::MessageCount sizes{ WM_SIZE };
    ASSERT_TRUE(desk->create(L""));
    EXPECT_EQ(static_cast<int>(desk->layouts.size()), 1 + sizes.of(desk->hwnd()));
    EXPECT_EQ(desk->layouts.front(), client);
    desk->resize(500, 400, true);
    const SIZE size = desk->client_size();
    EXPECT_EQ(desk->layouts.back(), (platform::Size{ size.cx, size.cy }));
}

TEST_F(ToolWindows, StaysOpenWhileItsOwnerIsMinimised)
{
    open();
    top.minimize();
    ASSERT_TRUE(gui::pump_until([&] { return !desk->is_visible(); }));
    EXPECT_TRUE(desk->is_open());
    top.restore();
    ASSERT_TRUE(gui::pump_until([&] { return desk->is_visible(); }));
    EXPECT_TRUE(desk->is_open());
}

TEST_F(ToolWindows, StaysHiddenIfClosedWhileItsOwnerIsMinimised)
{
    open();
    top.minimize();
    ASSERT_TRUE(gui::pump_until([&] { return !desk->is_visible(); }));
    desk->show(false);
    EXPECT_FALSE(desk->is_open());
    top.restore();
    ASSERT_TRUE(gui::pump_until([&] { return !top.is_minimized(); }));
    gui::pump();
    EXPECT_FALSE(desk->is_visible());
    open();
    EXPECT_TRUE(desk->is_visible());
}

TEST_F(ToolWindows, ClosingHidesIt)
{
    open();
    desk->send(WM_CLOSE, 0, 0);
    EXPECT_FALSE(desk->is_open());
    EXPECT_FALSE(desk->is_visible());
    EXPECT_TRUE(IsWindow(desk->hwnd()));
    open();
    EXPECT_TRUE(desk->is_open());
}

TEST_F(ToolWindows, IsNoLongerOpenWhenItIsDestroyed)
{
    open();
    desk->destroy();
    EXPECT_FALSE(desk->is_open());
    open();
    EXPECT_TRUE(desk->is_open());
    EXPECT_EQ(desk->line.text(), L"一行") << "made anew";
    DestroyWindow(top.hwnd());
    EXPECT_FALSE(desk->is_open());
}

TEST_F(ToolWindows, OpensWhereItWas)
{
    open();
    desk->move(333, 222, true);
    desk->show(false);
    open();
    EXPECT_EQ(corner_of(*desk).x, 333);
    EXPECT_EQ(corner_of(*desk).y, 222);
}

TEST_F(ToolWindows, OpensInViewWhereverItWas)
{
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    open();
    for (const POINT far_away : { POINT{ -5'000, -5'000 }, POINT{ 20'000, 20'000 } }) {
        desk->move(far_away, true);
        desk->show(false);
        open();
        const RECT place = desk->rect();
        EXPECT_GE(place.left, area.left);
        EXPECT_GE(place.top, area.top);
        EXPECT_LE(place.right, area.right);
        EXPECT_LE(place.bottom, area.bottom);
    }
}

TEST_F(ToolWindows, OpensAtTheCursor)
{
    desk->opening = [&] { desk->place_at_cursor({ -125, -97 }); };
    ASSERT_TRUE(gui::point_at({ 600, 400 }));
    open();
    EXPECT_EQ(corner_of(*desk).x, 475);
    EXPECT_EQ(corner_of(*desk).y, 303);
    desk->show(false);
    ASSERT_TRUE(gui::point_at({ 5, 5 }));
    open();
    EXPECT_GE(corner_of(*desk).x, 0) << "in view";
    EXPECT_GE(corner_of(*desk).y, 0);
}

TEST_F(ToolWindows, AnOpenWindowIsOnlyBroughtToTheFront)
{
    int openings = 0;
    desk->opening = [&] {
        ++openings;
        EXPECT_FALSE(desk->is_visible()) << "filled before it is seen";
    };
    open();
    desk->move(333, 222, true);
    ASSERT_TRUE(gui::bring_to_front(top));
    open();
    EXPECT_EQ(openings, 1);
    EXPECT_EQ(corner_of(*desk).x, 333);
    EXPECT_EQ(GetForegroundWindow(), desk->hwnd());
}

TEST_F(ToolWindows, HidingReturnsTheFocusToTheParent)
{
    gui::TopWnd other;
    ASSERT_TRUE(other.create(L"other")); // the window that a system may activate instead
    other.show(true);
    open();
    focus(desk->lines);
    desk->show(false);
    EXPECT_EQ(GetActiveWindow(), top.hwnd());
    EXPECT_EQ(GetFocus(), top.hwnd());
    other.destroy();
}

TEST_F(ToolWindows, HidingAWindowThatIsNotActiveLeavesTheFocusAlone)
{
    gui::TopWnd other;
    ASSERT_TRUE(other.create(L"other"));
    other.show(true);
    open();
    ASSERT_TRUE(gui::bring_to_front(other));
    desk->show(false);
    gui::pump();
    EXPECT_EQ(GetActiveWindow(), other.hwnd());
    other.destroy();
}

TEST_F(ToolWindows, EscClosesItFromEveryControl)
{
    open();
    for (ovlib::Wnd* control : std::initializer_list<ovlib::Wnd*>{ &desk->line, &desk->lines, &desk->form,
             &desk->combo, &desk->button, &desk->plain, &desk->list }) {
        open();
        focus(*control);
        press(VK_ESCAPE);
        EXPECT_FALSE(desk->is_visible()) << control->control_id();
        EXPECT_FALSE(desk->is_open());
    }
    EXPECT_EQ(GetFocus(), top.hwnd());
}

TEST_F(ToolWindows, EscClosesAWindowWithoutControls)
{
    desk->has_controls = false;
    open();
    ASSERT_EQ(GetFocus(), desk->hwnd());
    press(VK_ESCAPE);
    EXPECT_FALSE(desk->is_open());
}

TEST_F(ToolWindows, CanRefuseEscAsItRefusesItsCloseButton)
{
    open();
    desk->refuses_close = true;
    press(VK_ESCAPE);
    EXPECT_TRUE(desk->is_open());
    EXPECT_TRUE(desk->is_visible());
}

TEST_F(ToolWindows, EscInADroppedListClosesOnlyTheList)
{
    open();
    focus(desk->combo);
    desk->combo.show_list(true);
    ASSERT_TRUE(desk->combo.send(CB_GETDROPPEDSTATE, 0, 0));
    press(VK_ESCAPE);
    EXPECT_FALSE(desk->combo.send(CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_TRUE(desk->is_open());
    press(VK_ESCAPE);
    EXPECT_FALSE(desk->is_open());
}

TEST_F(ToolWindows, EnterInADroppedListChooses)
{
    open();
    desk->enter = true;
    focus(desk->combo);
    desk->combo.show_list(true);
    press(VK_DOWN);
    press(VK_RETURN);
    EXPECT_FALSE(desk->combo.send(CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_EQ(desk->combo.selected(), 0);
    EXPECT_EQ(desk->entered, 0);
    press(VK_RETURN);
    EXPECT_EQ(desk->entered, 1);
}

TEST_F(ToolWindows, EnterRunsTheDefaultAction)
{
    open();
    desk->enter = true;
    int count = 0;
    for (ovlib::Wnd* control :
        std::initializer_list<ovlib::Wnd*>{ &desk->line, &desk->combo, &desk->plain, &desk->list }) {
        focus(*control);
        press(VK_RETURN);
        EXPECT_EQ(desk->entered, ++count) << control->control_id();
    }
    EXPECT_TRUE(desk->is_open());
}

TEST_F(ToolWindows, AHeldKeyActsOnce)
{
    open();
    desk->enter = true;
    constexpr std::int64_t repeated = 1 << 30;
    desk->line.send(WM_KEYDOWN, VK_RETURN, 1);
    for (int i = 0; i < 3; ++i)
        desk->line.send(WM_KEYDOWN, VK_RETURN, repeated | 1);
    EXPECT_EQ(desk->entered, 1);
    desk->line.send(WM_KEYDOWN, VK_ESCAPE, repeated | 1);
    EXPECT_TRUE(desk->is_open()) << "the key that closed a menu is still down";
}

TEST_F(ToolWindows, EnterStartsALineInAMultiLineBox)
{
    open();
    desk->enter = true;
    focus(desk->lines);
    press(VK_RETURN);
    EXPECT_EQ(desk->lines.text(), L"\r\n");
    EXPECT_EQ(desk->entered, 0);
}

TEST_F(ToolWindows, EnterInAnInputFormBelongsToTheForm)
{
    open();
    desk->enter = true;
    desk->form.set_text(L"語");
    focus(desk->form);
    desk->commands.clear();
    press(VK_RETURN);
    EXPECT_EQ(desk->commands, (std::vector{ 12 }));
    EXPECT_EQ(desk->entered, 0);
}

TEST_F(ToolWindows, EnterPressesTheFocusedButton)
{
    open();
    desk->enter = true;
    focus(desk->button);
    desk->commands.clear();
    press(VK_RETURN);
    EXPECT_EQ(desk->commands, (std::vector{ button_id }));
    EXPECT_EQ(desk->entered, 0);
}

TEST_F(ToolWindows, WithoutADefaultActionTheControlGetsTheKey)
{
    open();
    focus(desk->plain);
    desk->plain.seen.clear();
    press(VK_RETURN);
    EXPECT_EQ(desk->entered, 1) << "asked";
    EXPECT_EQ(desk->plain.count(WM_KEYDOWN), 1);
    desk->enter = true;
    press(VK_RETURN);
    EXPECT_EQ(desk->plain.count(WM_KEYDOWN), 1);
}

// A one-line edit control would beep for them.
TEST_F(ToolWindows, TheCharactersOfEscAndEnterReachNoControl)
{
    open();
    desk->plain.seen.clear();
    desk->plain.send(WM_CHAR, VK_ESCAPE, 1);
    desk->plain.send(WM_CHAR, VK_RETURN, 1);
    EXPECT_EQ(desk->plain.count(WM_CHAR), 0);
    desk->plain.send(WM_CHAR, L'x', 1);
    EXPECT_EQ(desk->plain.count(WM_CHAR), 1);
}

TEST_F(ToolWindows, TabGoesThroughItsControls)
{
    open();
    EXPECT_EQ(GetFocus(), desk->line.hwnd());
    for (ovlib::Wnd* control : std::initializer_list<ovlib::Wnd*>{
             &desk->lines, &desk->form, &desk->combo, &desk->button, &desk->plain }) {
        press(VK_TAB);
        EXPECT_EQ(GetFocus(), control->hwnd()) << control->control_id();
    }
    focus(desk->list);
    press(VK_TAB);
    EXPECT_EQ(GetFocus(), desk->line.hwnd());
    EXPECT_EQ(desk->lines.text(), L"");
}

TEST_F(ToolWindows, TheFocusReturnsToWhereItWas)
{
    open();
    focus(desk->lines);
    ASSERT_TRUE(gui::bring_to_front(top));
    ASSERT_TRUE(gui::bring_to_front(*desk));
    EXPECT_EQ(GetFocus(), desk->lines.hwnd());
    desk->show(false);
    open();
    EXPECT_EQ(GetFocus(), desk->line.hwnd()) << "anew at each opening";
    desk->line.enable(false);
    focus(desk->lines);
    desk->lines.show(false);
    ASSERT_TRUE(gui::bring_to_front(top));
    ASSERT_TRUE(gui::bring_to_front(*desk));
    EXPECT_EQ(GetFocus(), desk->form.hwnd()) << "the first that can have it";
}

TEST_F(ToolWindows, ADisabledControlPassesTheFocusOn)
{
    open();
    focus(desk->button);
    desk->button.enable(false);
    EXPECT_EQ(GetFocus(), desk->line.hwnd());
    focus(desk->lines);
    desk->list.enable(false);
    EXPECT_EQ(GetFocus(), desk->lines.hwnd()) << "another one's end matters not";
}

TEST_F(ToolWindows, ABoxHasItsCaptionAndHoldsTheInputOfTheParent)
{
    open();
    desk->set_text(L"ページの編集");
    std::wstring caption;
    std::wstring text;
    std::vector<Held> meanwhile;
    bool is_owner_enabled = true;
    gui::DialogDriver user{ [&](HWND dialog) {
        caption = gui::text_of(dialog);
        constexpr int text_id = 65535;
        text = gui::text_of(GetDlgItem(dialog, text_id));
        meanwhile = held;
        is_owner_enabled = desk->is_enabled();
        PostMessageW(dialog, WM_COMMAND, IDNO, 0);
    } };
    EXPECT_EQ(desk->show_message(L"保存しますか？", MB_YESNO | MB_ICONQUESTION), IDNO);
    EXPECT_TRUE(user.finish());
    EXPECT_EQ(caption, L"ページの編集");
    EXPECT_EQ(text, L"保存しますか？");
    EXPECT_FALSE(is_owner_enabled);
    constexpr int hold = command::set_accepting_input;
    EXPECT_EQ(meanwhile, (std::vector<Held>{ { hold, 0 } }));
    EXPECT_EQ(held, (std::vector<Held>{ { hold, 0 }, { hold, 1 } }));
    EXPECT_TRUE(gui::pump_until([&] { return GetFocus() == desk->line.hwnd(); }));
}

TEST_F(ToolWindows, AHoldOutlivesItsParent)
{
    open();
    auto owner = std::make_unique<gui::TopWnd>();
    ASSERT_TRUE(owner->create(L"owner"));
    Desk other{ owner.get() };
    ASSERT_TRUE(other.create(L""));
    {
        const ToolWindow::InputHold hold{ other };
        owner->destroy();
        owner.reset();
    }
    EXPECT_TRUE(held.empty());
}

TEST_F(ToolWindows, HasTheBackgroundAndTheFieldsOfEveryTheme)
{
    open();
    for (std::int32_t theme = look::theme_standard; theme <= look::theme_blue; ++theme) {
        look::load_theme(theme);
        look::apply_theme_to_windows();
        const ovlib::ClientDC dc(*desk);
        EXPECT_EQ(GetPixel(dc.handle(), 3, 3), look::palette().panel_back.value) << theme;
        const ovlib::ClientDC field(desk->line);
        EXPECT_EQ(GetPixel(field.handle(), 150, 10), look::palette().box_back.value) << theme;
        const ovlib::MemDC probe;
        for (const UINT message : { WM_CTLCOLOREDIT, WM_CTLCOLORLISTBOX }) {
            const auto brush = reinterpret_cast<HBRUSH>(SendMessageW(desk->hwnd(), message,
                reinterpret_cast<WPARAM>(probe.handle()), reinterpret_cast<LPARAM>(desk->line.hwnd())));
            EXPECT_EQ(GetBkColor(probe.handle()), look::palette().box_back.value);
            EXPECT_EQ(GetTextColor(probe.handle()), look::palette().list_text.value);
            RECT one{ 0, 0, 1, 1 };
            FillRect(probe.handle(), &one, brush);
            EXPECT_EQ(GetDCBrushColor(probe.handle()), look::palette().box_back.value);
        }
        EXPECT_EQ(desk->list.send(LVM_GETBKCOLOR, 0, 0), std::int64_t{ look::palette().box_back.value });
    }
}

std::set<HWND> colored_captions;
HRESULT WINAPI note_caption(HWND hwnd, DWORD, const void*, DWORD)
{
    colored_captions.insert(hwnd);
    return S_OK;
}

TEST_F(ToolWindows, TheCaptionGetsTheThemeAtCreationAndWhenItChanges)
{
    const gui::ReplacedImport<decltype(DwmSetWindowAttribute)> spy{ &__imp_DwmSetWindowAttribute,
        &note_caption };
    colored_captions.clear();
    ASSERT_TRUE(desk->create(L""));
    EXPECT_EQ(colored_captions, (std::set{ desk->hwnd() }));
    colored_captions.clear();
    look::apply_theme_to_windows();
    EXPECT_EQ(colored_captions.count(desk->hwnd()), 1u);
}

TEST_F(ToolWindows, ServesItsDrawnControlsAndVirtualLists)
{
    open();
    gui::pump();
    EXPECT_GT(desk->button.buffer().width, 0) << "drawn";
    EXPECT_EQ(desk->list.cell_text(700, 0), L"700");
    RECT header{};
    GetWindowRect(reinterpret_cast<HWND>(desk->list.send(LVM_GETHEADER, 0, 0)), &header);
    MapWindowPoints(nullptr, desk->hwnd(), reinterpret_cast<POINT*>(&header), 2);
    const ovlib::ClientDC dc(*desk);
    EXPECT_EQ(GetPixel(dc.handle(), header.left + 60, header.top + 3), look::palette().panel_back.value);
}

// Accelerators belong to the top window, whichever window has the focus.
TEST_F(ToolWindows, InAModalRunTheParentDispatchesAndClosingEndsIt)
{
    class Owner : public gui::TopWnd {
    public:
        void dispatch(MSG& message) override
        {
            dispatched.push_back(message.message);
            TopWnd::dispatch(message);
        }
        std::vector<std::uint32_t> dispatched;
    };
    Owner owner;
    ASSERT_TRUE(owner.create(L"owner"));
    owner.show(true);
    Desk modal{ &owner };
    modal.show(true);
    modal.post(WM_APP, 0, 0);
    PostMessageW(modal.line.hwnd(), WM_KEYDOWN, VK_ESCAPE, 1);
    modal.run();
    EXPECT_EQ(std::ranges::count(owner.dispatched, std::uint32_t{ WM_APP }), 1);
    EXPECT_FALSE(modal.is_open());
    EXPECT_EQ(modal.hwnd(), nullptr) << "destroyed, not hidden";
    EXPECT_FALSE(modal.is_running());
    EXPECT_TRUE(owner.is_enabled());
    EXPECT_EQ(GetActiveWindow(), owner.hwnd());
    owner.destroy();
}

TEST_F(ToolWindows, AKeyAfterTheObjectWasDeletedDoesNoHarm)
{
    open();
    HWND const hwnd = desk->hwnd();
    HWND const control = desk->line.hwnd();
    desk.reset();
    SendMessageW(control, WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_TRUE(IsWindow(hwnd));
    DestroyWindow(hwnd);
}

TEST_F(ToolWindows, AKeyHandlerMayDestroyTheWindow)
{
    open();
    focus(desk->line);
    desk->opening = [] {};
    desk->enter = true;
    desk->show(false);
    open();
    desk->line.answer = [&](ovlib::WndMessage& message) {
        if (message.message == WM_KEYDOWN && message.wparam == VK_RETURN)
            desk->destroy();
        return false;
    };
    desk->line.send(WM_KEYDOWN, VK_RETURN, 1);
    EXPECT_EQ(desk->hwnd(), nullptr);
}

// Few handles for as many rounds, so that a leak of one handle per round is found.
TEST_F(ToolWindows, OpeningAndThemesCostNoHandles)
{
    ASSERT_TRUE(desk->create(L""));
    const gui::GdiCrowd crowd{ 150 };
    for (int i = 0; i < 70; ++i) {
        desk->show(true);
        look::load_theme(look::theme_standard + i % 6);
        look::apply_theme_to_windows();
        desk->show(false);
    }
    gui::expect_handles_to_spare(20);
}

TEST_F(ToolWindows, CreationAndDestructionCostNoHandles)
{
    const gui::UserCrowd windows{ 40 };
    const gui::GdiCrowd drawing{ 150 };
    for (int i = 0; i < 45; ++i) {
        ASSERT_TRUE(desk->create(L"")) << i;
        desk->destroy();
    }
    gui::expect_handles_to_spare(24);
}

} // namespace
