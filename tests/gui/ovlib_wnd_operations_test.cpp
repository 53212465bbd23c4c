// The operations of a window.
#include "ovlib/system_error.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_driver.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>
#include <string>

extern "C" void* __imp_SetLayeredWindowAttributes;

namespace {

using gui::Edit;
using gui::PlainChild;
using gui::PlainSub;
using gui::TopWnd;
using ovlib::WndMessage;

class WndOperations : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(top.create(L"top")); }
    void TearDown() override { top.destroy(); }

    TopWnd top;
};

bool same(const RECT& a, const RECT& b)
{
    return EqualRect(&a, &b) != FALSE;
}

TEST_F(WndOperations, TextIsSetAndReturnedWhole)
{
    top.set_text(L"表題 title");
    EXPECT_EQ(top.text(), L"表題 title");
    EXPECT_EQ(top.text_length(), 8);
    top.set_text(L"");
    EXPECT_EQ(top.text(), L"");
    const std::wstring long_text(100'000, L'あ');
    Edit edit(&top, 1);
    ASSERT_TRUE(edit.create(L""));
    edit.set_text(long_text);
    EXPECT_EQ(edit.text(), long_text);
}

TEST_F(WndOperations, EnableCallsTheSystemOnlyForAChange)
{
    top.enable(false);
    EXPECT_FALSE(top.is_enabled());
    top.seen.clear();
    top.enable(false);
    EXPECT_TRUE(top.seen.empty()) << "disabling a disabled window cancels modes";
    top.enable(true);
    EXPECT_TRUE(top.is_enabled());
    EXPECT_EQ(top.count(WM_ENABLE), 1);
    top.seen.clear();
    top.enable(true);
    EXPECT_TRUE(top.seen.empty());
}

TEST_F(WndOperations, AlphaOf255ClearsTheLayeredStyle)
{
    const auto is_layered = [&] { return (GetWindowLongW(top.hwnd(), GWL_EXSTYLE) & WS_EX_LAYERED) != 0; };
    EXPECT_FALSE(is_layered());
    top.set_alpha(255);
    EXPECT_FALSE(is_layered());
    top.set_alpha(100);
    ASSERT_TRUE(is_layered());
    BYTE alpha = 0;
    DWORD flags = 0;
    ASSERT_TRUE(GetLayeredWindowAttributes(top.hwnd(), nullptr, &alpha, &flags));
    EXPECT_EQ(alpha, 100);
    EXPECT_EQ(flags, static_cast<DWORD>(LWA_ALPHA));
    top.set_alpha(0);
    GetLayeredWindowAttributes(top.hwnd(), nullptr, &alpha, &flags);
    EXPECT_EQ(alpha, 0);
    top.set_alpha(255);
    EXPECT_FALSE(is_layered());
}

TEST_F(WndOperations, AlphaOf255SetsNoAttributes)
{
    static int calls;
    calls = 0;
    const gui::ReplacedImport<decltype(SetLayeredWindowAttributes)> counted{
        &__imp_SetLayeredWindowAttributes,
        [](HWND, COLORREF, BYTE, DWORD) -> BOOL {
            ++calls;
            return TRUE;
        }
    };
    top.set_alpha(255);
    EXPECT_EQ(calls, 0) << "not layered before";
    top.set_alpha(254);
    EXPECT_EQ(calls, 1);
    top.set_alpha(255);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(GetWindowLongW(top.hwnd(), GWL_EXSTYLE) & WS_EX_LAYERED, 0);
}

TEST_F(WndOperations, MovesResizesAndPlaces)
{
    top.move(120, 90, true);
    EXPECT_EQ(top.position().x, 120);
    EXPECT_EQ(top.position().y, 90);
    top.resize(640, 480, false);
    EXPECT_EQ(top.size().cx, 640);
    EXPECT_EQ(top.size().cy, 480);
    top.move(POINT{ 130, 95 }, true);
    top.resize(SIZE{ 600, 400 }, true);
    EXPECT_TRUE(same(top.rect(), { 130, 95, 730, 495 }));
    top.set_rect({ 50, 60, 450, 360 }, true);
    EXPECT_TRUE(same(top.rect(), { 50, 60, 450, 360 }));
    EXPECT_EQ(top.client_rect().left, 0);
    EXPECT_EQ(top.client_size().cx, top.client_rect().right);
}

TEST_F(WndOperations, CentersOnTheScreenOrOverAnother)
{
    top.set_rect({ 0, 0, 500, 400 }, true);
    top.center(nullptr, true);
    EXPECT_EQ(top.position().x, (GetSystemMetrics(SM_CXSCREEN) - 500) / 2);
    EXPECT_EQ(top.position().y, (GetSystemMetrics(SM_CYSCREEN) - 400) / 2);
    top.move(200, 200, true);
    PlainSub sub(&top, 1);
    ASSERT_TRUE(sub.create(L""));
    sub.resize(700, 100, true); // wider than the other window
    sub.center(&top, true);
    EXPECT_TRUE(same(sub.rect(), { 100, 350, 800, 450 }));
}

TEST_F(WndOperations, AChildReturnsItsPlaceInItsParent)
{
    PlainChild child(&top, 1);
    ASSERT_TRUE(child.create(L""));
    EXPECT_EQ(child.position().x, 10);
    EXPECT_EQ(child.position().y, 20);
    EXPECT_TRUE(same(child.rect(), { 10, 20, 110, 50 }));
    child.set_rect({ 30, 40, 60, 90 }, true);
    EXPECT_TRUE(same(child.rect(), { 30, 40, 60, 90 }));
}

TEST_F(WndOperations, ASubWindowReturnsItsPlaceOnTheScreen)
{
    PlainSub sub(&top, 1);
    ASSERT_TRUE(sub.create(L""));
    sub.set_rect({ 210, 220, 410, 330 }, true);
    EXPECT_TRUE(same(sub.rect(), { 210, 220, 410, 330 }));
}

TEST_F(WndOperations, ShowsAndHides)
{
    top.show(false);
    EXPECT_FALSE(top.is_visible());
    top.seen.clear();
    top.show(true);
    EXPECT_TRUE(top.is_visible());
    EXPECT_EQ(top.count(WM_PAINT), 1) << "painted at once";
    top.show_cmd(SW_HIDE);
    EXPECT_FALSE(top.is_visible());
}

TEST_F(WndOperations, MinimizesMaximizesAndRestoresAsItsMenuDoes)
{
    std::vector<std::uint64_t> asked;
    top.answer = [&](WndMessage& message) {
        if (message.message == WM_SYSCOMMAND)
            asked.push_back(message.wparam);
        return message.message == WM_SYSCOMMAND;
    };
    top.minimize();
    top.maximize();
    top.restore();
    EXPECT_EQ(asked, (std::vector<std::uint64_t>{ SC_MINIMIZE, SC_MAXIMIZE, SC_RESTORE }));
}

// Uses a child, because a window manager may act on a top-level window.
TEST_F(WndOperations, KnowsWhetherItIsMinimizedOrMaximized)
{
    PlainChild child(&top, 1);
    ASSERT_TRUE(child.create(L""));
    EXPECT_FALSE(child.is_minimized() || child.is_maximized());
    child.maximize();
    EXPECT_TRUE(child.is_maximized());
    EXPECT_FALSE(child.is_minimized());
    child.restore();
    EXPECT_FALSE(child.is_maximized());
    child.minimize();
    EXPECT_TRUE(child.is_minimized());
    child.restore();
    EXPECT_FALSE(child.is_minimized());
}

TEST_F(WndOperations, TopmostIsSetAndCleared)
{
    const auto is_topmost = [&] { return (GetWindowLongW(top.hwnd(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; };
    top.set_topmost(true);
    EXPECT_TRUE(is_topmost());
    top.set_topmost(false);
    EXPECT_FALSE(is_topmost());
}

TEST_F(WndOperations, FontAndRedrawAreTheControls)
{
    Edit edit(&top, 1);
    ASSERT_TRUE(edit.create(L""));
    const auto font = static_cast<HFONT>(GetStockObject(ANSI_VAR_FONT));
    edit.set_font(font);
    EXPECT_EQ(edit.font(), font);
    edit.set_subclassed(true);
    edit.set_redraw(false);
    edit.set_redraw(true);
    EXPECT_EQ(edit.count(WM_SETREDRAW), 2);
    EXPECT_TRUE(edit.is_visible());
}

TEST_F(WndOperations, PostsAndSendsRecordsAndNumbers)
{
    std::vector<WndMessage> got;
    top.answer = [&](WndMessage& message) {
        if (message.message < WM_APP || message.message > WM_APP + 9)
            return false;
        got.push_back(message);
        message.result = 5;
        return true;
    };
    EXPECT_EQ(top.send(WM_APP, 1, 2), 5);
    EXPECT_EQ(top.send(WndMessage{ nullptr, WM_APP + 1, 3, 4, 0 }), 5);
    EXPECT_TRUE(top.post(WM_APP + 2, 5, 6));
    EXPECT_TRUE(top.post(WndMessage{ nullptr, WM_APP + 3, 7, 8, 0 }));
    EXPECT_EQ(got.size(), 2u) << "posted ones come later";
    ASSERT_TRUE(gui::pump_until([&] { return got.size() == 4; }));
    EXPECT_EQ(got[1].wparam, 3u);
    EXPECT_EQ(got[1].lparam, 4);
    EXPECT_EQ(got[2].message, static_cast<std::uint32_t>(WM_APP + 2));
    EXPECT_EQ(got[3].wparam, 7u);
}

TEST_F(WndOperations, ACommandIsBuiltFromTwoWords)
{
    std::uint64_t word = 0;
    top.answer = [&](WndMessage& message) {
        if (message.message == WM_COMMAND)
            word = message.wparam;
        return false;
    };
    top.send_command(33000, 33001, 0);
    EXPECT_EQ(word, 33000u | 33001u << 16) << "no sign spreads into the upper half";
    top.send_command(1007, 0, 0);
    EXPECT_EQ(word, 1007u);
}

TEST_F(WndOperations, SiblingsShareAParentAndAreOthers)
{
    PlainChild a(&top, 1);
    PlainChild b(&top, 2);
    PlainChild stranger(&a, 3);
    TopWnd orphan;
    TopWnd other_orphan;
    EXPECT_TRUE(a.is_sibling(&b));
    EXPECT_FALSE(a.is_sibling(&a));
    EXPECT_FALSE(a.is_sibling(nullptr));
    EXPECT_FALSE(a.is_sibling(&stranger));
    EXPECT_FALSE(orphan.is_sibling(&other_orphan)) << "no parent is not a common parent";
}

TEST_F(WndOperations, AParentCanBeChanged)
{
    TopWnd other;
    PlainChild child(&top, 1);
    ASSERT_TRUE(other.create(L""));
    ASSERT_TRUE(child.create(L""));
    EXPECT_EQ(child.parent(), &top);
    child.set_parent(&other);
    EXPECT_EQ(child.parent(), &other);
    EXPECT_EQ(GetParent(child.hwnd()), other.hwnd());
    other.destroy();
    EXPECT_EQ(child.hwnd(), nullptr);
}

TEST_F(WndOperations, TheReservedOperationReturnsFalse)
{
    Edit edit(&top, 1);
    EXPECT_FALSE(top.reserved());
    EXPECT_FALSE(edit.reserved());
}

// A window like a banner: its plain show does nothing and its own show takes a text.
class Banner : public PlainSub {
public:
    using PlainSub::PlainSub;
    void show(bool) override { ++plain; }
    void show(const std::wstring& text) { shown = text; }
    void show(const wchar_t* text) { show(std::wstring(text)); }

    int plain = 0;
    std::wstring shown;
};

template <class Window, class Argument>
concept CanShow = requires(Window& window, Argument argument)
{
    window.show(argument);
};

TEST_F(WndOperations, ALiteralIsATextAndNeverABool)
{
    static_assert(CanShow<TopWnd, bool>);
    static_assert(!CanShow<ovlib::BaseWnd, const wchar_t*>);
    static_assert(!CanShow<ovlib::BaseWnd, int>);
    Banner banner(&top, 1);
    banner.show(L"検索終了");
    EXPECT_EQ(banner.shown, L"検索終了");
    EXPECT_EQ(banner.plain, 0);
    top.set_text(L"literal");
    EXPECT_EQ(top.text(), L"literal");
}

struct BoxSeen {
    std::wstring caption;
    std::wstring text;
    bool has_owner = false;
};

// Answers the next box of this thread with `button` and returns its texts.
template <class Show> BoxSeen see_box(const TopWnd& owner, int button, int& result, Show show)
{
    BoxSeen seen;
    gui::DialogDriver driver([&](HWND box) {
        seen.caption = gui::text_of(box);
        seen.text = gui::text_of(GetDlgItem(box, 0xFFFF));
        seen.has_owner = GetWindow(box, GW_OWNER) == owner.hwnd();
        PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
    });
    result = show();
    EXPECT_TRUE(driver.finish());
    return seen;
}

TEST_F(WndOperations, AMessageBoxTakesLiteralsAndIsOwned)
{
    int result = 0;
    BoxSeen seen =
        see_box(top, IDYES, result, [&] { return top.message_box(L"保存しますか？", L"見出し", MB_YESNO); });
    EXPECT_EQ(result, IDYES);
    EXPECT_EQ(seen.text, L"保存しますか？");
    EXPECT_EQ(seen.caption, L"見出し");
    EXPECT_TRUE(seen.has_owner);
    seen = see_box(top, IDNO, result, [&] { return top.message_box("narrow", "caption", MB_YESNO); });
    EXPECT_EQ(result, IDNO);
    EXPECT_EQ(seen.text, L"narrow");
    EXPECT_EQ(seen.caption, L"caption");
}

// The system's texts end in a line break, which a box may keep or drop.
std::wstring without_line_end(std::wstring text)
{
    while (!text.empty() && (text.back() == L'\r' || text.back() == L'\n'))
        text.pop_back();
    return text;
}

TEST_F(WndOperations, AnErrorBoxShowsTheSystemsMessage)
{
    const std::wstring words = ovlib::system_error_text(ERROR_ACCESS_DENIED);
    ASSERT_FALSE(words.empty());
    int result = 0;
    BoxSeen seen =
        see_box(top, IDOK, result, [&] { return top.error_box(ERROR_ACCESS_DENIED, L"Pagewick"); });
    EXPECT_EQ(without_line_end(seen.text), without_line_end(words));
    EXPECT_EQ(seen.caption, L"Pagewick");
    seen = see_box(top, IDOK, result, [&] { return top.error_box(ERROR_ACCESS_DENIED, "narrow"); });
    EXPECT_EQ(without_line_end(seen.text), without_line_end(words));
    EXPECT_EQ(seen.caption, L"narrow");
}

TEST_F(WndOperations, AnErrorBoxForAnUnknownCodeIsEmpty)
{
    EXPECT_EQ(ovlib::system_error_text(0x2FFFFFFF), L"");
    EXPECT_EQ(ovlib::narrow_system_error_text(0x2FFFFFFF), "");
    int result = 0;
    const BoxSeen seen = see_box(top, IDOK, result, [&] { return top.error_box(0x2FFFFFFF, L"caption"); });
    EXPECT_EQ(seen.text, L"");
    EXPECT_EQ(seen.caption, L"caption");
}

TEST_F(WndOperations, TheCursorIsReturnedInClientCoordinates)
{
    POINT screen{ 0, 0 };
    ClientToScreen(top.hwnd(), &screen);
    POINT cursor{};
    GetCursorPos(&cursor);
    EXPECT_EQ(top.cursor_pos().x, cursor.x - screen.x);
    EXPECT_EQ(top.cursor_pos().y, cursor.y - screen.y);
}

} // namespace
