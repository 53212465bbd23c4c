// The base of the windows other than the main one.
#include "tests/support/gui_tool_window.hpp"

extern "C" void* __imp_DwmSetWindowAttribute;

namespace {

namespace command = core::command;
using gui::button_id;
using gui::client;
using gui::Desk;
using gui::row_count;
using gui::ToolWindows;
using look::ToolWindow;

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
    EXPECT_EQ(caption, L"Pagewick - ページの編集");
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

// Few handles for as many rounds, so that a leak of one handle per round is found.
TEST_F(ToolWindows, OpeningAndThemesCostNoHandles)
{
    ASSERT_TRUE(desk->create(L""));
    const auto open_and_close = [&](int round) {
        desk->show(true);
        look::load_theme(look::theme_standard + round % 6);
        look::apply_theme_to_windows();
        desk->show(false);
    };
    open_and_close(0); // the system keeps what the first opening needs
    const gui::GdiCrowd crowd{ 150 };
    for (int i = 0; i < 70; ++i)
        open_and_close(i);
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
