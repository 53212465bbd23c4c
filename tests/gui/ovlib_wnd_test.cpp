// The life of windows: creation, lookup, closing, destruction.
#include "ovlib/win_app.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace {

using gui::Edit;
using gui::PlainChild;
using gui::PlainSub;
using gui::TopWnd;
using ovlib::Wnd;
using ovlib::WndMessage;

std::wstring class_of(HWND hwnd)
{
    wchar_t name[128] = {};
    GetClassNameW(hwnd, name, 128);
    return name;
}

std::vector<const Wnd*> listed()
{
    std::vector<const Wnd*> all;
    for (const Wnd* wnd = Wnd::first(); wnd != nullptr; wnd = wnd->next())
        all.push_back(wnd);
    return all;
}

class OwnerOfMember : public TopWnd {
public:
    PlainChild member{ this, 7 };
};

TEST(WndList, ContainsObjectsInOrderOfConstructionAndRemovesThemAnywhere)
{
    const auto before = listed();
    auto first = std::make_unique<TopWnd>();
    auto second = std::make_unique<TopWnd>();
    auto third = std::make_unique<TopWnd>();
    auto expected = before;
    expected.insert(expected.end(), { first.get(), second.get(), third.get() });
    EXPECT_EQ(listed(), expected);
    second.reset();
    expected = before;
    expected.insert(expected.end(), { first.get(), third.get() });
    EXPECT_EQ(listed(), expected);
    third.reset();
    first.reset();
    EXPECT_EQ(listed(), before);
}

TEST(WndList, ContainsAMemberAfterItsOwner)
{
    OwnerOfMember owner;
    EXPECT_EQ(owner.next(), &owner.member);
}

TEST(WndList, FindsAnObjectByItsHandleOnlyWhileItHasOne)
{
    TopWnd wnd;
    EXPECT_EQ(Wnd::from_handle(nullptr), nullptr);
    ASSERT_TRUE(wnd.create(L"a"));
    const HWND hwnd = wnd.hwnd();
    EXPECT_EQ(Wnd::from_handle(hwnd), &wnd);
    wnd.destroy();
    EXPECT_EQ(Wnd::from_handle(hwnd), nullptr);
}

TEST(WndList, FindsAWindowByItsControlIdWhileItLives)
{
    TopWnd top;
    PlainSub sub(&top, 2518);
    PlainChild child(&top, 31);
    EXPECT_EQ(Wnd::from_control_id(2518), nullptr);
    ASSERT_TRUE(top.create(L""));
    ASSERT_TRUE(sub.create(L""));
    ASSERT_TRUE(child.create(L""));
    EXPECT_EQ(Wnd::from_control_id(2518), &sub);
    EXPECT_EQ(Wnd::from_control_id(31), &child);
    top.destroy();
    EXPECT_EQ(Wnd::from_control_id(2518), nullptr);
}

TEST(Wnd, KnowsItsHandleInWmCreate)
{
    TopWnd wnd;
    HWND in_create = nullptr;
    wnd.answer = [&](WndMessage& message) {
        if (message.message == WM_CREATE)
            in_create = wnd.hwnd();
        return false;
    };
    ASSERT_TRUE(wnd.create(L"title"));
    EXPECT_EQ(in_create, wnd.hwnd());
    EXPECT_EQ(wnd.seen.front(), static_cast<std::uint32_t>(WM_CREATE))
        << "earlier messages have no object yet";
    EXPECT_EQ(wnd.text(), L"title");
    wnd.destroy();
    EXPECT_EQ(wnd.hwnd(), nullptr);
}

TEST(Wnd, CreatedTwiceKeepsItsFirstWindow)
{
    TopWnd wnd;
    ASSERT_TRUE(wnd.create(L"first"));
    const HWND hwnd = wnd.hwnd();
    EXPECT_FALSE(wnd.create(L"second"));
    EXPECT_EQ(wnd.hwnd(), hwnd);
    EXPECT_EQ(wnd.text(), L"first");
    wnd.destroy();
    EXPECT_TRUE(wnd.create(L"again"));
    wnd.destroy();
}

TEST(Wnd, OfARegisteredClassCanBeCreatedAgain)
{
    TopWnd first;
    TopWnd second;
    ASSERT_TRUE(first.create(L""));
    EXPECT_TRUE(second.create(L""));
    EXPECT_EQ(class_of(first.hwnd()), class_of(second.hwnd()));
    first.destroy();
    second.destroy();
}

TEST(Wnd, HasTheClassOfItsPlace)
{
    TopWnd wnd;
    ASSERT_TRUE(wnd.create(L""));
    EXPECT_EQ(class_of(wnd.hwnd()), L"ovlib_ovlib/gui/basewnd[129]");
    EXPECT_EQ(ovlib::window_class_name(L"appwnd", 310), L"ovlib_appwnd[310]");
    EXPECT_EQ(wnd.class_background(), GetStockObject(WHITE_BRUSH));
    EXPECT_NE(wnd.class_icon(), nullptr);
    EXPECT_NE(wnd.class_small_icon(), nullptr);
    EXPECT_EQ(GetClassLongPtrW(wnd.hwnd(), GCL_STYLE), static_cast<ULONG_PTR>(CS_HREDRAW | CS_VREDRAW));
    EXPECT_EQ(GetClassLongPtrW(wnd.hwnd(), GCLP_HCURSOR),
        reinterpret_cast<ULONG_PTR>(LoadCursorW(nullptr, IDC_ARROW)));
    EXPECT_EQ(GetWindowLongW(wnd.hwnd(), GWL_STYLE) & WS_OVERLAPPEDWINDOW, WS_OVERLAPPEDWINDOW);
    wnd.destroy();
}

class NamelessWnd : public TopWnd {
public:
    std::wstring class_info(WNDCLASSEXW&) override { return {}; }
};

TEST(Wnd, WithoutAClassNameIsNotCreated)
{
    NamelessWnd wnd;
    EXPECT_FALSE(wnd.create(L""));
    EXPECT_EQ(wnd.hwnd(), nullptr);
}

TEST(Wnd, ThatRefusesItsCreationHasNoHandleAndEndsNoLoop)
{
    gui::Watched<ovlib::BaseWnd> wnd;
    wnd.answer = [](WndMessage& message) {
        if (message.message != WM_CREATE)
            return false;
        message.result = -1;
        return true;
    };
    EXPECT_FALSE(wnd.create(L""));
    EXPECT_EQ(wnd.hwnd(), nullptr);
    EXPECT_FALSE(gui::take_quit());
    wnd.answer = nullptr;
    EXPECT_TRUE(wnd.create(L"")) << "a second try is a new one";
    wnd.destroy();
    EXPECT_TRUE(gui::take_quit());
}

// Wine sends no WM_DESTROY for a refused creation, but other systems do.
TEST(Wnd, DestroyedBeforeItsCreationSucceededEndsNoLoop)
{
    gui::Watched<ovlib::BaseWnd> wnd;
    wnd.answer = [&](WndMessage& message) {
        if (message.message == WM_CREATE)
            SendMessageW(message.hwnd, WM_DESTROY, 0, 0);
        return false;
    };
    ASSERT_TRUE(wnd.create(L""));
    EXPECT_EQ(wnd.count(WM_DESTROY), 1);
    EXPECT_FALSE(gui::take_quit());
    wnd.destroy();
    EXPECT_TRUE(gui::take_quit());
}

TEST(Wnd, AtTheTopEndsTheLoopWithItsMessagesResult)
{
    gui::Watched<ovlib::BaseWnd> wnd;
    wnd.answer = [](WndMessage& message) {
        if (message.message == WM_DESTROY)
            message.result = 42;
        return false;
    };
    ASSERT_TRUE(wnd.create(L""));
    SendMessageW(wnd.hwnd(), WM_CLOSE, 0, 0);
    EXPECT_EQ(wnd.hwnd(), nullptr);
    int code = 0;
    EXPECT_TRUE(gui::take_quit(&code));
    EXPECT_EQ(code, 42);
}

TEST(Wnd, IsShownWithTheStartUpShowCommand)
{
    ovlib::WinApp::show_command = SW_HIDE;
    TopWnd hidden;
    ASSERT_TRUE(hidden.create(L""));
    EXPECT_FALSE(hidden.is_visible());
    ovlib::WinApp::show_command = SW_SHOWNORMAL;
    TopWnd shown;
    ASSERT_TRUE(shown.create(L""));
    EXPECT_TRUE(shown.is_visible());
    hidden.destroy();
    shown.destroy();
}

TEST(WndProc, ReturnsTheResultOfAHandledMessageAndPassesTheRestToTheSystem)
{
    TopWnd wnd;
    wnd.answer = [](WndMessage& message) {
        message.result = 77;
        return message.message == WM_APP;
    };
    ASSERT_TRUE(wnd.create(L"abc"));
    EXPECT_EQ(SendMessageW(wnd.hwnd(), WM_APP, 0, 0), 77);
    EXPECT_EQ(SendMessageW(wnd.hwnd(), WM_APP + 1, 0, 0), 0);
    EXPECT_EQ(wnd.text_length(), 3) << "WM_GETTEXTLENGTH was not handled";
    wnd.destroy();
}

TEST(WndProc, PassesWideParametersUnchanged)
{
    TopWnd wnd;
    WndMessage got;
    wnd.answer = [&](WndMessage& message) {
        if (message.message == WM_APP)
            got = message;
        return false;
    };
    ASSERT_TRUE(wnd.create(L""));
    wnd.send(WM_APP, 0xFEDCBA9876543210u, -5);
    EXPECT_EQ(got.wparam, 0xFEDCBA9876543210u);
    EXPECT_EQ(got.lparam, -5);
    EXPECT_EQ(got.hwnd, wnd.hwnd());
    wnd.destroy();
}

TEST(WndProc, RefusesACloseThatAHandlerHandled)
{
    TopWnd wnd;
    bool refuse = true;
    wnd.answer = [&](WndMessage& message) { return message.message == WM_CLOSE && refuse; };
    ASSERT_TRUE(wnd.create(L""));
    EXPECT_EQ(wnd.send(WM_CLOSE, 0, 0), 0);
    EXPECT_TRUE(IsWindow(wnd.hwnd()));
    refuse = false;
    EXPECT_EQ(wnd.send(WM_CLOSE, 0, 0), 0);
    EXPECT_EQ(wnd.hwnd(), nullptr);
    EXPECT_EQ(wnd.destroyed, 1);
}

TEST(WndProc, ReportsDestructionWhateverTheHandlerReturns)
{
    TopWnd wnd;
    wnd.answer = [](WndMessage& message) { return message.message == WM_DESTROY; };
    ASSERT_TRUE(wnd.create(L""));
    wnd.destroy();
    EXPECT_EQ(wnd.destroyed, 1);
}

TEST(WndProc, SurvivesAnObjectDeletedByItsOwnHandler)
{
    for (const std::uint32_t fatal : { WM_APP, WM_CLOSE, WM_DESTROY, WM_NCDESTROY }) {
        auto* wnd = new TopWnd;
        bool deleted = false;
        wnd->answer = [&deleted, wnd, fatal](WndMessage& message) {
            if (message.message != fatal)
                return false;
            deleted = true;
            delete wnd;
            return false;
        };
        ASSERT_TRUE(wnd->create(L""));
        const HWND hwnd = wnd->hwnd();
        if (fatal == WM_DESTROY || fatal == WM_NCDESTROY)
            wnd->destroy();
        else
            SendMessageW(hwnd, fatal, 0, 0);
        EXPECT_TRUE(deleted);
        DestroyWindow(hwnd);
        EXPECT_FALSE(IsWindow(hwnd));
    }
}

TEST(WndProc, SurvivesAnObjectDeletedInWmCreate)
{
    auto* wnd = new TopWnd;
    wnd->answer = [wnd](WndMessage& message) {
        if (message.message != WM_CREATE)
            return false;
        message.result = -1;
        delete wnd;
        return true;
    };
    const auto before = listed().size();
    EXPECT_FALSE(wnd->create(L""));
    EXPECT_EQ(listed().size(), before - 1);
}

// Throws from its handler for WM_APP, under a caller that would catch.
template <class Window> void throw_through(Window& window)
{
    window.answer = [](WndMessage& message) -> bool {
        return message.message == WM_APP ? throw std::runtime_error("lost") : false;
    };
    try {
        window.send(WM_APP, 0, 0);
    } catch (const std::runtime_error&) {
    }
}

TEST(WndDeathTest, AnExceptionThatLeavesAHandlerEndsTheProcess)
{
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_DEATH(
        {
            TopWnd wnd;
            if (wnd.create(L""))
                throw_through(wnd);
        },
        "lost");
    EXPECT_DEATH(
        {
            TopWnd top;
            Edit edit(&top, 1);
            if (top.create(L"") && edit.create(L"")) {
                edit.set_subclassed(true);
                throw_through(edit);
            }
        },
        "lost");
}

TEST(Wnd, LosesItsHandleWithItsParentAndCanBeCreatedAgain)
{
    TopWnd top;
    PlainChild child(&top, 1);
    Edit plain(&child, 2);
    Edit subclassed(&top, 3);
    PlainSub owned(&top, 4);
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(top.create(L""));
        ASSERT_TRUE(child.create(L""));
        ASSERT_TRUE(plain.create(L""));
        ASSERT_TRUE(subclassed.create(L""));
        ASSERT_TRUE(owned.create(L""));
        EXPECT_FALSE(subclassed.is_subclassed()) << "a new control";
        subclassed.set_tab_order(1, 1);
        EXPECT_TRUE(subclassed.is_subclassed());
        DestroyWindow(top.hwnd());
        for (const Wnd* wnd : { static_cast<Wnd*>(&top), static_cast<Wnd*>(&child), static_cast<Wnd*>(&plain),
                 static_cast<Wnd*>(&subclassed), static_cast<Wnd*>(&owned) })
            EXPECT_EQ(wnd->hwnd(), nullptr);
    }
}

TEST(Wnd, LosesItsHandleWithAControlThatIsItsParent)
{
    TopWnd top;
    Edit outer(&top, 1);
    Edit inner(&outer, 2);
    ASSERT_TRUE(top.create(L""));
    for (const bool subclassed : { false, true }) {
        ASSERT_TRUE(outer.create(L"") && inner.create(L""));
        outer.set_subclassed(subclassed);
        outer.destroy();
        EXPECT_EQ(inner.hwnd(), nullptr);
    }
    top.destroy();
}

TEST(Wnd, DestroysItsChildrenFromTheLastAndCountsThem)
{
    TopWnd top;
    PlainChild first(&top, 1);
    PlainChild second(&top, 2);
    PlainSub third(&top, 3);
    PlainChild never_created(&top, 4);
    PlainChild grandchild(&first, 5);
    std::vector<int> order;
    for (auto* wnd : { &first, &second }) {
        wnd->answer = [&order, wnd](WndMessage& message) {
            if (message.message == WM_DESTROY)
                order.push_back(wnd->control_id());
            return false;
        };
    }
    ASSERT_TRUE(top.create(L"") && first.create(L"") && second.create(L"") && third.create(L""));
    ASSERT_TRUE(grandchild.create(L""));
    EXPECT_EQ(top.count_children(), 3);
    EXPECT_EQ(first.count_children(), 1);
    EXPECT_EQ(top.destroy_children(), 3);
    EXPECT_EQ(order, (std::vector<int>{ 2, 1 }));
    EXPECT_EQ(top.count_children(), 0);
    EXPECT_EQ(grandchild.hwnd(), nullptr);
    EXPECT_EQ(top.destroy_children(), 0);
    top.destroy();
}

TEST(Wnd, DestroysAllChildrenEvenIfOneDeletesItsNeighbour)
{
    TopWnd top;
    PlainChild first(&top, 1);
    auto* neighbour = new PlainChild(&top, 2);
    PlainChild last(&top, 3);
    last.answer = [&](WndMessage& message) {
        if (message.message == WM_DESTROY && neighbour != nullptr) {
            neighbour->destroy();
            delete neighbour;
            neighbour = nullptr;
        }
        return false;
    };
    ASSERT_TRUE(top.create(L"") && first.create(L"") && neighbour->create(L"") && last.create(L""));
    top.destroy_children();
    EXPECT_EQ(neighbour, nullptr);
    EXPECT_EQ(first.hwnd(), nullptr);
    EXPECT_EQ(last.hwnd(), nullptr);
    top.destroy();
}

TEST(Wnd, DestroyedTwiceHasNoHandleAndDoesNoHarm)
{
    TopWnd wnd;
    ASSERT_TRUE(wnd.create(L""));
    wnd.destroy();
    wnd.destroy();
    EXPECT_EQ(wnd.hwnd(), nullptr);
    EXPECT_EQ(wnd.destroyed, 1);
}

TEST(ChildWnd, IsAChildWithItsIdAndEndsNoLoop)
{
    TopWnd top;
    PlainChild child(&top, 40'000);
    ASSERT_TRUE(top.create(L""));
    ASSERT_TRUE(child.create(L""));
    EXPECT_EQ(GetWindowLongW(child.hwnd(), GWL_STYLE), 0x56000000);
    EXPECT_EQ(GetDlgCtrlID(child.hwnd()), 40'000);
    EXPECT_EQ(child.control_id(), 40'000);
    EXPECT_EQ(GetParent(child.hwnd()), top.hwnd());
    child.destroy();
    EXPECT_FALSE(gui::take_quit());
    top.destroy();
}

TEST(ChildWnd, WithoutAParentHasNoWindow)
{
    PlainChild child(nullptr, 1);
    EXPECT_FALSE(child.create(L""));
    EXPECT_EQ(child.hwnd(), nullptr);
}

TEST(SubWnd, IsAHiddenTopLevelWindowThatKeepsItsIdToItself)
{
    TopWnd top;
    PlainSub sub(&top, 2518);
    ASSERT_TRUE(top.create(L""));
    ASSERT_TRUE(sub.create(L"")) << "a menu handle of 2518 would be refused";
    EXPECT_EQ(GetWindowLongW(sub.hwnd(), GWL_STYLE) & WS_CHILD, 0);
    EXPECT_EQ(GetMenu(sub.hwnd()), nullptr);
    EXPECT_EQ(sub.control_id(), 2518);
    EXPECT_EQ(GetWindow(sub.hwnd(), GW_OWNER), top.hwnd());
    EXPECT_FALSE(sub.is_visible());
    sub.destroy();
    EXPECT_FALSE(gui::take_quit());
    top.destroy();
}

} // namespace
