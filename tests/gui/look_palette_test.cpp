// The window for the colours and fonts of the boxes and for the theme.
#include "core/command_ids.hpp"
#include "core/folders.hpp"
#include "core/passed_object.hpp"
#include "look/custom_colors.hpp"
#include "look/theme.hpp"
#include "look/wnd/palettewnd.hpp"
#include "look/wnd/themed.hpp"
#include "tests/support/gui_choices.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_driver.hpp"
#include "tests/support/gui_folder.hpp"
#include "tests/support/gui_input.hpp"
#include "tests/support/gui_look.hpp"
#include "tests/support/gui_menu.hpp"
#include "tests/support/gui_mouse.hpp"
#include "tests/support/gui_panel.hpp"
#include "tests/support/gui_typing.hpp"
#include "tests/support/gui_window.hpp"
#include "tests/support/gui_window_theme.hpp"
#include <bit>
#include <optional>

namespace {

namespace command = core::command;

constexpr int text_button = 2503;
constexpr int back_button = 2504;
constexpr int box_combo = 2520;
constexpr int theme_button = 6500;
constexpr int question_text = 65535;

using gui::ColorAnswer;
using gui::FontAnswer;

struct Sent {
    int id = 0;
    int code = 0;
    std::int64_t lparam = 0;
    friend bool operator==(const Sent&, const Sent&) = default;
};
using Commands = std::vector<Sent>;

class Palette : public testing::Test {
protected:
    void SetUp() override
    {
        core::init_folders(folder_.path());
        CreateDirectoryW(core::folders().dat.c_str(), nullptr);
        book_.pages.resize(3);
        book_.pages[0].text_color = { 0x01112233, 2, 3 };
        book_.pages[0].back_color = { 4, 5, 6 };
        ASSERT_TRUE(top_.create(L"main"));
        top_.answer = [this](ovlib::WndMessage& message) {
            if (message.message == WM_COMMAND)
                note(message);
            return false;
        };
        top_.show(true);
        ASSERT_TRUE(gui::point_at({ 700, 500 }));
        ASSERT_TRUE(gui::bring_to_front(top_));
    }
    void TearDown() override { top_.destroy(); }

    void note(const ovlib::WndMessage& message)
    {
        const int id = LOWORD(message.wparam);
        if (id == command::set_accepting_input)
            held_ += message.lparam == 0 ? 1 : -1;
        else
            sent_.push_back({ id, HIWORD(message.wparam), message.lparam });
        if (id == command::set_box_font) {
            const auto* font = core::PassedObject::find<LOGFONTW>(message.lparam);
            passed_font_ = font ? std::optional{ *font } : std::nullopt;
        }
        if (id >= command::first_theme && id <= command::last_theme)
            look::load_theme(id);
    }
    void open(std::size_t box = 0)
    {
        palette_.show_at_cursor(true, box);
        ASSERT_TRUE(gui::pump_until([&] { return GetActiveWindow() == palette_.hwnd(); }));
        sent_.clear();
    }
    HWND control(int id) const { return GetDlgItem(palette_.hwnd(), id); }
    void press(int id) { SendMessageW(control(id), BM_CLICK, 0, 0); }
    void choose(int id) { palette_.send_command(id, 0, 0); }
    void select(int box) const
    {
        SendMessageW(control(box_combo), CB_SETCURSEL, static_cast<WPARAM>(box), 0);
    }
    int selected() const { return static_cast<int>(SendMessageW(control(box_combo), CB_GETCURSEL, 0, 0)); }
    bool is_checked() const
    {
        return dynamic_cast<look::MyCheckBox*>(
            ovlib::Wnd::from_handle(control(command::apply_theme_to_pages)))
            ->is_checked();
    }
    Sent to_parent(int id, int code = 0) const
    {
        return { id, code, static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(palette_.hwnd())) };
    }
    Commands take_sent() { return std::exchange(sent_, {}); }
    static void type_key(WORD key)
    {
        gui::press_key(key);
        gui::pump_until([&] { return GetAsyncKeyState(key) >= 0; });
        gui::pump();
    }

    const gui::Look look_;
    gui::TempFolder folder_;
    book::Book book_;
    gui::TopWnd top_;
    look::PaletteWnd palette_{ &top_, &book_ };
    Commands sent_;
    int held_ = 0; // the holds of the parent's input
    std::optional<LOGFONTW> passed_font_;
};

TEST_F(Palette, IsCreatedAtItsFirstOpening)
{
    EXPECT_EQ(palette_.hwnd(), nullptr);
    open();
    EXPECT_TRUE(palette_.is_open());
    wchar_t name[64] = {};
    GetClassNameW(palette_.hwnd(), name, 64);
    EXPECT_STREQ(name, L"ovlib_palettewnd[75]");
    EXPECT_EQ(palette_.text(), L"色 / フォントの設定");
    const auto style = static_cast<DWORD>(GetWindowLongW(palette_.hwnd(), GWL_STYLE));
    EXPECT_EQ(style & ~DWORD{ WS_VISIBLE }, 0x86C00000u);
    EXPECT_NE(GetWindowLongW(palette_.hwnd(), GWL_EXSTYLE) & WS_EX_APPWINDOW, 0);
    EXPECT_EQ(GetWindow(palette_.hwnd(), GW_OWNER), top_.hwnd());
    EXPECT_EQ(palette_.control_id(), command::palette_window);
    EXPECT_EQ(palette_.size().cx, 250);
    EXPECT_EQ(palette_.size().cy, 195);
}

TEST_F(Palette, HasItsTextsToTheLetterAndShowsThemCompletely)
{
    open();
    EXPECT_EQ(gui::text_of(control(command::apply_theme_to_pages)), L"既存のページにも適用");
    EXPECT_EQ(gui::text_of(control(command::set_box_font)), L"フォント");
    EXPECT_EQ(gui::text_of(control(text_button)), L"文字色");
    EXPECT_EQ(gui::text_of(control(back_button)), L"背景色");
    EXPECT_EQ(gui::text_of(control(theme_button)), L"テーマの変更");
    EXPECT_EQ(gui::text_of(control(command::close_window)), L"閉じる");
    EXPECT_EQ(SendMessageW(control(box_combo), CB_GETCOUNT, 0, 0), 3);
    for (int box = 0; box < 3; ++box) {
        select(box);
        EXPECT_EQ(gui::text_of(control(box_combo)), L"テキストボックス" + std::to_wstring(box + 1));
        gui::expect_complete_texts(palette_.hwnd());
    }
}

// A combo box with a visual style would be light in the dark theme.
TEST_F(Palette, ItsComboHasNoVisualStyleAndItsCheckTheTheme)
{
    look::load_theme(look::theme_dark);
    const gui::UnstyledWindows unstyled;
    open();
    HWND const combo = GetDlgItem(palette_.hwnd(), box_combo);
    EXPECT_TRUE(unstyled.contains(combo));
    HWND const control = GetDlgItem(palette_.hwnd(), command::apply_theme_to_pages);
    const auto& check = dynamic_cast<look::MyCheckBox&>(*ovlib::Wnd::from_handle(control));
    EXPECT_EQ(check.colors().back, look::palette().check_back);
    EXPECT_EQ(check.colors().text, look::palette().check_text);
}

TEST_F(Palette, OpensAtTheCursor)
{
    ASSERT_TRUE(gui::point_at({ 500, 400 }));
    open();
    EXPECT_EQ(palette_.rect().left, 500 - 125);
    EXPECT_EQ(palette_.rect().top, 400 - 97);
}

TEST_F(Palette, OpensOnTheScreen)
{
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    ASSERT_TRUE(gui::point_at({ work.left + 1, work.top + 1 }));
    open();
    EXPECT_EQ(palette_.rect().left, work.left);
    EXPECT_EQ(palette_.rect().top, work.top);
    palette_.show(false);
    ASSERT_TRUE(gui::point_at({ work.right - 1, work.bottom - 1 }));
    open();
    EXPECT_EQ(palette_.rect().right, work.right);
    EXPECT_EQ(palette_.rect().bottom, work.bottom);
}

TEST_F(Palette, OpensForABoxWithTheCheckOff)
{
    open(2);
    EXPECT_EQ(selected(), 2);
    press(command::apply_theme_to_pages);
    EXPECT_TRUE(is_checked());
    palette_.show(false);
    open(1);
    EXPECT_EQ(selected(), 1);
    EXPECT_FALSE(is_checked());
}

TEST_F(Palette, AnOpenOneStaysAsItIs)
{
    open(1);
    press(command::apply_theme_to_pages);
    const RECT place = palette_.rect();
    ASSERT_TRUE(gui::point_at({ 300, 300 }));
    palette_.show_at_cursor(true, 2);
    EXPECT_EQ(selected(), 1);
    EXPECT_TRUE(is_checked());
    EXPECT_EQ(palette_.rect().left, place.left);
    EXPECT_TRUE(take_sent().empty());
}

TEST_F(Palette, TheBoxesAreRepaintedWhenItOpensAndWhenItCloses)
{
    palette_.show_at_cursor(true, 0);
    const Commands repaints{ to_parent(command::repaint_box, 0), to_parent(command::repaint_box, 1),
        to_parent(command::repaint_box, 2) };
    EXPECT_EQ(take_sent(), repaints);
    palette_.show_at_cursor(false, 0);
    EXPECT_FALSE(palette_.is_open());
    EXPECT_EQ(take_sent(), repaints);
    palette_.show_at_cursor(false, 0);
    EXPECT_TRUE(take_sent().empty());
}

TEST_F(Palette, ClosingHidesItAndRequestsARefresh)
{
    const auto expect_closed = [&](const char* how) {
        ASSERT_TRUE(gui::pump_until([&] { return !palette_.is_visible(); })) << how;
        EXPECT_TRUE(IsWindow(palette_.hwnd())) << how;
        ASSERT_FALSE(sent_.empty()) << how;
        EXPECT_EQ(sent_.back(), (Sent{ command::request_refresh, 0, 62590 })) << how;
    };
    open();
    press(command::close_window);
    expect_closed("the button");
    open();
    palette_.send(WM_CLOSE, 0, 0);
    expect_closed("WM_CLOSE");
    open();
    type_key(VK_ESCAPE);
    expect_closed("Esc");
    EXPECT_TRUE(gui::pump_until([&] { return GetActiveWindow() == top_.hwnd(); }));
}

TEST_F(Palette, TabGoesThroughTheControlsByReadingDirection)
{
    open();
    const std::array ids{ box_combo, int{ command::set_box_font }, text_button, back_button, theme_button,
        int{ command::apply_theme_to_pages }, int{ command::close_window }, box_combo };
    for (const int id : ids) {
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), id);
        type_key(VK_TAB);
    }
}

TEST_F(Palette, EachColourStartsAtThatOfTheBoxAndIsStoredThere)
{
    open();
    for (int box = 0; box < 3; ++box) {
        select(box);
        const auto index = static_cast<std::size_t>(box);
        const ColorAnswer answer{ static_cast<COLORREF>(0x100 + box) };
        press(text_button);
        ASSERT_EQ(ColorAnswer::shown.size(), 1u);
        EXPECT_EQ(ColorAnswer::shown[0].rgbResult, box == 0 ? 0x112233u : static_cast<COLORREF>(box + 1));
        EXPECT_EQ(ColorAnswer::shown[0].lStructSize, 72u);
        EXPECT_EQ(ColorAnswer::shown[0].Flags, DWORD{ 3 });
        EXPECT_EQ(ColorAnswer::shown[0].hwndOwner, palette_.hwnd());
        EXPECT_EQ(book_.pages[0].text_color[index], static_cast<std::uint32_t>(0x100 + box));
        EXPECT_EQ(take_sent(), Commands{ to_parent(command::repaint_box, box) });
        press(back_button);
        ASSERT_EQ(ColorAnswer::shown.size(), 2u);
        EXPECT_EQ(ColorAnswer::shown[1].rgbResult, static_cast<COLORREF>(box + 4));
        EXPECT_EQ(book_.pages[0].back_color[index], static_cast<std::uint32_t>(0x100 + box));
        EXPECT_EQ(take_sent(), Commands{ to_parent(command::repaint_box, box) });
    }
    EXPECT_EQ(book_.pages[1].text_color[0], 0u);
    EXPECT_EQ(held_, 0);
}

TEST_F(Palette, ACancelledColourChangesNothing)
{
    open();
    const ColorAnswer answer{ std::nullopt };
    const auto before = book_.pages;
    press(text_button);
    press(back_button);
    EXPECT_EQ(book_.pages, before);
    EXPECT_TRUE(sent_.empty());
}

TEST_F(Palette, WithoutAPageThereIsNoColourDialog)
{
    open();
    const ColorAnswer answer{ 0x123456 };
    book_.pages.clear();
    press(text_button);
    press(back_button);
    EXPECT_TRUE(ColorAnswer::shown.empty());
    EXPECT_TRUE(sent_.empty());
}

TEST_F(Palette, ADialogHoldsTheInputOfTheMainWindow)
{
    open();
    int held_meanwhile = 0;
    const ColorAnswer color{ 1, [&] { held_meanwhile = held_; } };
    press(text_button);
    EXPECT_EQ(held_meanwhile, 1);
    const FontAnswer font{ -20, [&] { held_meanwhile = held_ + 10; } };
    press(command::set_box_font);
    EXPECT_EQ(held_meanwhile, 11);
    EXPECT_EQ(held_, 0);
}

TEST_F(Palette, AColourForAPageThatIsGoneIsDropped)
{
    open();
    const auto expect_dropped = [&](const std::function<void()>& meanwhile, const char* how) {
        std::vector<book::Page> after;
        const ColorAnswer answer{ 0x123456, [&] {
                                     meanwhile();
                                     after = book_.pages;
                                 } };
        press(text_button);
        EXPECT_EQ(book_.pages, after) << how;
        EXPECT_TRUE(take_sent().empty()) << how;
    };
    expect_dropped([&] { book_.header.position = 1; }, "another page is shown");
    expect_dropped([&] { book_.remove_page_at(1, {}); }, "the page was deleted");
    expect_dropped([&] { book_.clear(); }, "the Book was closed");
}

TEST_F(Palette, AFontIsStoredInTheBookAndPassedToTheMainWindow)
{
    open();
    for (int box = 0; box < 3; ++box) {
        select(box);
        const auto index = static_cast<std::size_t>(box);
        const book::LogFont before = book_.header.fonts[index];
        const FontAnswer answer{ -30 - box };
        press(command::set_box_font);
        ASSERT_EQ(FontAnswer::shown.size(), 1u);
        EXPECT_EQ(FontAnswer::shown[0].Flags, DWORD{ 321 });
        EXPECT_EQ(FontAnswer::shown[0].nFontType, WORD{ SCREEN_FONTTYPE });
        EXPECT_EQ(FontAnswer::shown[0].hwndOwner, palette_.hwnd());
        EXPECT_EQ(std::bit_cast<book::LogFont>(FontAnswer::fonts[0]), before);
        EXPECT_EQ(book_.header.fonts[index].height, -30 - box);
        ASSERT_EQ(sent_.size(), 1u);
        EXPECT_EQ(sent_[0].id, command::set_box_font);
        EXPECT_EQ(sent_[0].code, box);
        ASSERT_TRUE(passed_font_);
        EXPECT_EQ(passed_font_->lfHeight, -30 - box);
        EXPECT_EQ(core::PassedObject::find<LOGFONTW>(sent_[0].lparam), nullptr) << "after the call";
        sent_.clear();
    }
}

TEST_F(Palette, ACancelledFontChangesNothing)
{
    open();
    const auto before = book_.header.fonts;
    const FontAnswer answer{ std::nullopt };
    press(command::set_box_font);
    EXPECT_EQ(book_.header.fonts, before);
    EXPECT_TRUE(sent_.empty());
}

TEST_F(Palette, AFontThatCannotBeDrawnIsNotShown)
{
    open();
    book_.header.fonts[1].height = 1'000'000;
    select(1);
    book::LogFont usual;
    book::default_box_font(1, usual);
    const FontAnswer answer{ std::nullopt };
    press(command::set_box_font);
    EXPECT_EQ(FontAnswer::fonts[0].lfHeight, usual.height);
}

TEST_F(Palette, AFontForAnotherPageIsKeptAndForAnotherBookDropped)
{
    open();
    {
        const FontAnswer answer{ -40, [&] { book_.header.position = 1; } };
        press(command::set_box_font);
        EXPECT_EQ(book_.header.fonts[0].height, -40);
    }
    sent_.clear();
    const FontAnswer answer{ -50, [&] { book_.clear(); } };
    press(command::set_box_font);
    EXPECT_NE(book_.header.fonts[0].height, -50);
    EXPECT_TRUE(sent_.empty());
}

TEST_F(Palette, AThemeWithTheCheckOffConcernsNoPage)
{
    open();
    for (int theme = command::first_theme; theme <= command::last_theme; ++theme) {
        choose(theme);
        EXPECT_EQ(take_sent(), Commands{ to_parent(theme) });
    }
}

TEST_F(Palette, AThemeWithTheCheckOnIsAppliedToAllPagesIfTheUserWantsThat)
{
    open();
    press(command::apply_theme_to_pages);
    const auto answered = [&](int button) {
        std::vector<std::wstring> met;
        int held_meanwhile = 0;
        gui::DialogDriver user{ [&](HWND dialog) {
            met = { gui::text_of(dialog), gui::text_of(GetDlgItem(dialog, question_text)) };
            held_meanwhile = held_;
            PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
        } };
        choose(6003);
        EXPECT_TRUE(user.finish());
        EXPECT_EQ(held_meanwhile, 1);
        EXPECT_EQ(held_, 0);
        return met;
    };
    EXPECT_EQ(answered(IDNO),
        (std::vector<std::wstring>{
            L"Pagewick - 色 / フォントの設定", L"全てのページにテーマが適用されます．\r\n実行しますか？" }));
    EXPECT_TRUE(sent_.empty());
    answered(IDYES);
    EXPECT_EQ(take_sent(), (Commands{ to_parent(6003), to_parent(command::apply_theme_to_pages) }));
}

TEST_F(Palette, AYesForABookThatIsGoneCountsAsNo)
{
    open();
    press(command::apply_theme_to_pages);
    gui::DialogDriver user{ [&](HWND dialog) {
        SendMessageW(top_.hwnd(), WM_APP, 0, 0);
        PostMessageW(dialog, WM_COMMAND, IDYES, 0);
    } };
    top_.answer = [this, inner = top_.answer](ovlib::WndMessage& message) {
        if (message.message == WM_APP)
            book_.clear();
        return inner(message);
    };
    choose(6003);
    EXPECT_TRUE(user.finish());
    EXPECT_TRUE(sent_.empty());
}

TEST_F(Palette, SurvivesItsDestructionDuringTheQuestion)
{
    open();
    press(command::apply_theme_to_pages);
    top_.answer = [this, inner = top_.answer](ovlib::WndMessage& message) {
        if (message.message == WM_APP) {
            palette_.destroy();
            PostQuitMessage(0); // as at the end of the program; the box's loop waits for a message
        }
        return inner(message);
    };
    gui::DialogDriver user{ [&](HWND) { SendMessageW(top_.hwnd(), WM_APP, 0, 0); } };
    choose(6003);
    EXPECT_TRUE(user.finish());
    EXPECT_TRUE(sent_.empty());
    gui::take_quit();
}

TEST_F(Palette, TheMenuMarksTheThemeAndSendsTheChosenOne)
{
    open();
    look::load_theme(look::theme_dark);
    UINT marks[6] = {};
    std::thread user{ [&, thread = GetCurrentThreadId()] {
        const gui::ShownMenu menu{ thread, 0 };
        if (!menu.wait())
            return;
        for (UINT i = 0; i < 6; ++i)
            marks[i] = GetMenuState(menu.menu(), i, MF_BYPOSITION) & MF_CHECKED;
        gui::press_key(VK_DOWN);
        gui::press_key(VK_DOWN);
        gui::press_key(VK_RETURN);
    } };
    press(theme_button);
    gui::pump_until([&] { return !sent_.empty(); });
    user.join();
    EXPECT_EQ(take_sent(), Commands{ to_parent(6001) });
    for (UINT i = 0; i < 6; ++i)
        EXPECT_EQ(marks[i] != 0, i == 2) << i;
}

TEST_F(Palette, AnyFreeSpotMovesItAsItsCaptionDoes)
{
    open();
    const auto hit = [&](POINT client) {
        const POINT at = gui::on_screen(palette_, client);
        return palette_.send(WM_NCHITTEST, 0, MAKELPARAM(at.x, at.y));
    };
    EXPECT_EQ(hit({ 3, 3 }), HTCAPTION);
    EXPECT_EQ(hit({ 230, 120 }), HTCAPTION);
    EXPECT_EQ(hit({ 100, -10 }), HTCAPTION);
    EXPECT_NE(hit({ -1, 50 }), HTCAPTION) << "the border";
}

TEST_F(Palette, HasTheColoursOfEveryThemeOpenAndHidden)
{
    open();
    for (std::int32_t theme = look::theme_standard; theme <= look::theme_blue; ++theme) {
        if (theme % 2 != 0)
            palette_.show(false);
        look::load_theme(theme);
        look::apply_theme_to_windows();
        if (theme % 2 != 0)
            open();
        const look::ThemePalette& colors = look::palette();
        HWND const hwnd = palette_.hwnd();
        SetFocus(control(theme_button)); // the focused combo box has the colours of a selection
        EXPECT_EQ(gui::pixel_of(hwnd, 3, 3), colors.panel_back.value) << theme;
        EXPECT_EQ(gui::pixel_of(hwnd, 8, 60), colors.panel_line.value) << theme;
        EXPECT_TRUE(gui::has_color(hwnd, { 14, 26, 82, 42 }, colors.list_text.value)) << theme << " label";
        EXPECT_TRUE(gui::has_color(hwnd, { 16, 8, 120, 24 }, colors.list_text.value)) << theme << " caption";
        HWND const combo = control(box_combo);
        EXPECT_TRUE(gui::has_color(combo, { 3, 3, 90, 18 }, colors.box_back.value)) << theme;
        HWND const check = control(command::apply_theme_to_pages);
        EXPECT_TRUE(gui::has_color(check, { 18, 0, 100, 18 }, colors.check_text.value)) << theme;
        gui::expect_complete_texts(hwnd);
    }
}

TEST_F(Palette, ReadsTheCustomColoursWhenItIsCreated)
{
    look::CustomColors colors{};
    colors[0] = 0x112233;
    colors[15] = 0x445566;
    const std::wstring file = core::custom_colors_file(core::folders());
    ASSERT_TRUE(look::write_custom_colors(file, colors));
    open();
    look::CustomColors shown{};
    const ColorAnswer answer{ 1,
        [&] { std::copy_n(ColorAnswer::shown[0].lpCustColors, 16, shown.begin()); } };
    press(text_button);
    EXPECT_EQ(shown, colors);
}

TEST_F(Palette, KeepsTheCustomColoursAndWritesThemAtTheEndOnly)
{
    const std::wstring file = core::custom_colors_file(core::folders());
    open();
    {
        const ColorAnswer answer{ std::nullopt, [&] { ColorAnswer::shown[0].lpCustColors[3] = 0xABCDEF; } };
        press(text_button);
    }
    press(command::close_window);
    EXPECT_EQ(GetFileAttributesW(file.c_str()), INVALID_FILE_ATTRIBUTES);
    open();
    COLORREF shown = 0;
    const ColorAnswer answer{ std::nullopt, [&] { shown = ColorAnswer::shown[0].lpCustColors[3]; } };
    press(text_button);
    EXPECT_EQ(shown, 0xABCDEFu);
    palette_.store_custom_colors();
    EXPECT_EQ(look::read_custom_colors(file)[3], 0xABCDEFu);
}

TEST_F(Palette, WritesTheCustomColoursEvenIfItWasNeverCreated)
{
    const std::wstring file = core::custom_colors_file(core::folders());
    palette_.store_custom_colors();
    EXPECT_EQ(look::read_custom_colors(file), look::CustomColors{});
    WIN32_FILE_ATTRIBUTE_DATA data{};
    ASSERT_TRUE(GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &data));
    EXPECT_EQ(data.nFileSizeLow, 64u);
    look::CustomColors colors{};
    colors[7] = 7;
    ASSERT_TRUE(look::write_custom_colors(file, colors));
    gui::TopWnd owner;
    look::PaletteWnd other{ &owner, &book_ };
    other.store_custom_colors();
    EXPECT_EQ(look::read_custom_colors(file), colors) << "the file of another run is kept";
}

TEST_F(Palette, ManyOpeningsCostNoHandles)
{
    open();
    const gui::UserCrowd windows{ 60 };
    const gui::GdiCrowd drawing{ 120 };
    for (int i = 0; i < 250; ++i) {
        palette_.show(false);
        palette_.show_at_cursor(true, static_cast<std::size_t>(i % 3));
        if (i % 100 == 0)
            gui::pump();
    }
    gui::expect_handles_to_spare(20);
}

} // namespace
