// Popup menus, used as a user does.
#include "ovlib/gui/menu.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_menu.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>
#include <memory>

namespace {

using gui::MenuDriver;
using gui::ShownMenu;
using ovlib::BaseMenu;
using ovlib::Menu;
using ovlib::MenuRows;

constexpr int plain_id = 1002;
constexpr int grey_id = 1004;
constexpr int inner_id = 2526;
constexpr int first_radio = 5000;

// The index of each item in the menu of the tests.
enum : int { plain, grey, line, inner_menu, radio_menu };

MenuRows sample_rows()
{
    return { ovlib::menu_item(plain_id, L"新規作成"), ovlib::menu_item(grey_id, L"保存", false),
        ovlib::menu_separator(),
        ovlib::submenu(L"ファイルの削除", { ovlib::menu_item(inner_id, L"このファイル") }, true, 2525),
        ovlib::submenu(L"画像の補間モード", ovlib::radio_items(first_radio, { L"a", L"b", L"c" }, 5001)) };
}

class PopupMenu : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top.create(L"owner"));
        top.answer = [this](ovlib::WndMessage& message) {
            if (message.message == WM_COMMAND)
                commands.push_back(static_cast<int>(message.wparam));
            return false;
        };
        top.show(true);
        SetForegroundWindow(top.hwnd());
        ASSERT_TRUE(gui::pump_until([&] { return GetForegroundWindow() == top.hwnd(); }));
        SetCursorPos(300, 200);
    }
    void TearDown() override { top.destroy(); }

    // Shows `menu`, calls `act` for it and dispatches the messages that follow.
    void use(BaseMenu& menu, const std::function<void(const ShownMenu&)>& act)
    {
        MenuDriver driver(act);
        menu.show(top, 0);
        EXPECT_TRUE(driver.finish());
        gui::pump();
    }
    void use(const std::function<void(const ShownMenu&)>& act)
    {
        Menu menu;
        ASSERT_TRUE(menu.add_rows(sample_rows()));
        use(menu, act);
    }

    gui::TopWnd top;
    std::vector<int> commands;
};

using Commands = std::vector<int>;

TEST_F(PopupMenu, APlainItemSendsItsCommandByKeyboard)
{
    use([](const ShownMenu& menu) { menu.choose(plain); });
    EXPECT_EQ(commands, Commands{ plain_id });
}

TEST_F(PopupMenu, APlainItemSendsItsCommandByMouse)
{
    use([](const ShownMenu& menu) { menu.click(plain); });
    EXPECT_EQ(commands, Commands{ plain_id });
}

TEST_F(PopupMenu, AGreyItemSendsNothingByKeyboard)
{
    use([](const ShownMenu& menu) {
        EXPECT_TRUE(menu.is_grey(grey));
        EXPECT_FALSE(menu.is_grey(plain));
        menu.choose(grey);
    });
    EXPECT_EQ(commands, Commands{});
}

TEST_F(PopupMenu, AGreyItemSendsNothingByMouseAndTheMenuStays)
{
    use([](const ShownMenu& menu) {
        menu.click(grey);
        menu.click(plain);
    });
    EXPECT_EQ(commands, Commands{ plain_id }) << "the second click came to the same menu";
}

TEST_F(PopupMenu, ASeparatorIsSkippedAndCannotBeChosen)
{
    use([](const ShownMenu& menu) {
        EXPECT_NE(menu.state(line) & MF_SEPARATOR, 0u);
        menu.step_to(grey);
        gui::press_key(VK_DOWN);
        EXPECT_TRUE(gui::poll_until([&] { return menu.highlighted() == inner_menu; }));
        menu.point_at(line);
        gui::press_button(MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP);
    });
    EXPECT_EQ(commands, Commands{});
}

TEST_F(PopupMenu, ASubmenuOpensAndSendsItsItemByKeyboard)
{
    use([](const ShownMenu& menu) {
        menu.step_to(inner_menu);
        gui::press_key(VK_RIGHT);
        ASSERT_TRUE(menu.inner().wait());
        menu.inner().choose(0);
    });
    EXPECT_EQ(commands, Commands{ inner_id });
}

TEST_F(PopupMenu, ASubmenuOpensAndSendsItsItemByMouse)
{
    use([](const ShownMenu& menu) {
        menu.click(inner_menu);
        ASSERT_TRUE(menu.inner().wait());
        menu.inner().click(0);
    });
    EXPECT_EQ(commands, Commands{ inner_id }) << "the submenu itself sends nothing";
}

TEST_F(PopupMenu, OfARadioGroupOneIsMarkedAndAnotherCanBeChosenByKeyboard)
{
    use([](const ShownMenu& menu) {
        menu.step_to(radio_menu);
        gui::press_key(VK_RIGHT);
        const ShownMenu group = menu.inner();
        ASSERT_TRUE(group.wait());
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(group.is_checked(i), i == 1) << i;
        MENUITEMINFOW info{};
        info.cbSize = sizeof info;
        info.fMask = MIIM_FTYPE;
        EXPECT_TRUE(GetMenuItemInfoW(group.menu(), 1, TRUE, &info));
        EXPECT_NE(info.fType & MFT_RADIOCHECK, 0u);
        group.choose(2);
    });
    EXPECT_EQ(commands, Commands{ first_radio + 2 });
}

TEST_F(PopupMenu, ARadioItemCanBeChosenByMouse)
{
    use([](const ShownMenu& menu) {
        menu.click(radio_menu);
        ASSERT_TRUE(menu.inner().wait());
        menu.inner().click(0);
    });
    EXPECT_EQ(commands, Commands{ first_radio });
}

TEST_F(PopupMenu, EscapeSendsNothing)
{
    use([](const ShownMenu&) { gui::press_key(VK_ESCAPE); });
    EXPECT_EQ(commands, Commands{});
}

TEST_F(PopupMenu, AClickOutsideTheMenuSendsNothing)
{
    use([](const ShownMenu&) {
        SetCursorPos(130, 150); // inside the owner
        gui::press_button(MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP);
    });
    EXPECT_EQ(commands, Commands{});
}

TEST_F(PopupMenu, ReportsThatItIsShowing)
{
    Menu menu;
    menu.add_item(L"a", 1);
    bool during = false;
    EXPECT_FALSE(menu.is_showing());
    use(menu, [&](const ShownMenu&) { during = menu.is_showing(); });
    EXPECT_TRUE(during);
    EXPECT_FALSE(menu.is_showing());
}

TEST_F(PopupMenu, OpensAtTheCursorOrAtAGivenPoint)
{
    Menu menu;
    menu.add_item(L"a", 1);
    RECT rect{};
    const auto look = [&](const ShownMenu& shown) { GetWindowRect(shown.hwnd(), &rect); };
    use(menu, look);
    EXPECT_EQ(rect.left, 300);
    EXPECT_EQ(rect.top, 200);
    {
        MenuDriver driver(look);
        menu.show_at(top, 0, { 420, 333 });
    }
    EXPECT_EQ(rect.left, 420);
    EXPECT_EQ(rect.top, 333);
}

TEST_F(PopupMenu, AcceptsTheFlagsAsNumbers)
{
    Menu menu;
    menu.add_item(L"a", 1);
    menu.add_item(L"b", 2);
    RECT rect{};
    constexpr std::uint32_t vertically_centred = 0x10;
    {
        MenuDriver driver([&](const ShownMenu& shown) { GetWindowRect(shown.hwnd(), &rect); });
        EXPECT_NE(menu.show_at(top, vertically_centred, { 420, 333 }), 0);
    }
    EXPECT_EQ(rect.left, 420);
    EXPECT_NEAR((rect.top + rect.bottom) / 2, 333, 1);
    MenuDriver driver([](const ShownMenu& shown) { shown.choose(1); });
    EXPECT_EQ(menu.show(top, TPM_RETURNCMD), 2);
    driver.finish();
    gui::pump();
    EXPECT_EQ(commands, Commands{});
}

TEST_F(PopupMenu, CanBeShownAgain)
{
    Menu menu;
    menu.add_item(L"a", 1);
    for (int round = 0; round < 3; ++round)
        use(menu, [](const ShownMenu& shown) { shown.choose(0); });
    EXPECT_EQ(commands, (Commands{ 1, 1, 1 }));
}

TEST_F(PopupMenu, CanBeDeletedWithItsOwnerWhileItIsShowing)
{
    auto menu = std::make_unique<Menu>();
    menu->add_item(L"a", 1);
    top.answer = [&](ovlib::WndMessage& message) {
        if (message.message != WM_APP)
            return false;
        EndMenu();
        menu.reset();
        return true;
    };
    MenuDriver driver([&](const ShownMenu&) { PostMessageW(top.hwnd(), WM_APP, 0, 0); });
    menu->show(top, 0);
    EXPECT_TRUE(driver.finish());
    EXPECT_EQ(menu, nullptr);
}

TEST_F(PopupMenu, IsNotShownTwiceAtOnce)
{
    Menu menu;
    menu.add_item(L"a", 1);
    int second = -1;
    top.answer = [&](ovlib::WndMessage& message) {
        if (message.message != WM_APP)
            return false;
        second = menu.show(top, 0);
        return true;
    };
    use(menu, [&](const ShownMenu&) {
        SendMessageW(top.hwnd(), WM_APP, 0, 0);
        EXPECT_TRUE(menu.is_showing());
    });
    EXPECT_EQ(second, 0);
    EXPECT_FALSE(menu.is_showing());
}

TEST(Menu, AppendsInOrder)
{
    Menu menu;
    EXPECT_EQ(menu.count(), 0);
    EXPECT_TRUE(menu.add_item(L"一", 11));
    EXPECT_TRUE(menu.add_separator());
    EXPECT_TRUE(menu.add_item(L"二", 12));
    ASSERT_EQ(menu.count(), 3);
    EXPECT_EQ(GetMenuItemID(menu.handle(), 0), 11u);
    EXPECT_NE(GetMenuState(menu.handle(), 1, MF_BYPOSITION) & MF_SEPARATOR, 0u);
    EXPECT_EQ(GetMenuItemID(menu.handle(), 2), 12u);
    wchar_t text[8] = {};
    GetMenuStringW(menu.handle(), 12, text, 8, MF_BYCOMMAND);
    EXPECT_EQ(std::wstring(text), L"二");
}

TEST(Menu, ItemsAreGreyedRenamedAndMarkedByTheirIds)
{
    Menu menu;
    ASSERT_TRUE(menu.add_rows(sample_rows()));
    const auto state = [&](int id) { return GetMenuState(menu.handle(), static_cast<UINT>(id), 0); };
    menu.enable(inner_id, false);
    EXPECT_NE(state(inner_id) & MF_GRAYED, 0u) << "inside a submenu too";
    menu.enable(inner_id, true);
    EXPECT_EQ(state(inner_id) & MF_GRAYED, 0u);
    menu.set_item_text(plain_id, L"ソート中は編集不可");
    wchar_t text[32] = {};
    GetMenuStringW(menu.handle(), plain_id, text, 32, MF_BYCOMMAND);
    EXPECT_EQ(std::wstring(text), L"ソート中は編集不可");
    menu.check(plain_id, true);
    EXPECT_NE(state(plain_id) & MF_CHECKED, 0u);
    menu.check(plain_id, false);
    EXPECT_EQ(state(plain_id) & MF_CHECKED, 0u);
    menu.set_default(grey_id);
    EXPECT_EQ(GetMenuDefaultItem(menu.handle(), FALSE, GMDI_USEDISABLED), static_cast<UINT>(grey_id));
}

TEST(Menu, OfAGroupExactlyOneIsMarked)
{
    Menu menu;
    ASSERT_TRUE(menu.add_rows(ovlib::radio_items(6000, { L"a", L"b", L"c" }, 6000)));
    menu.check_radio(6000, 6002, 6002);
    for (UINT id = 6000; id <= 6002; ++id)
        EXPECT_EQ((GetMenuState(menu.handle(), id, 0) & MF_CHECKED) != 0, id == 6002) << id;
}

TEST(Menu, RowsDetermineGreyMarkedAndDefaultItems)
{
    MenuRows rows = sample_rows();
    rows[plain].is_default = true;
    rows[plain].mark = ovlib::MenuMark::check;
    Menu menu;
    ASSERT_TRUE(menu.add_rows(rows));
    ASSERT_EQ(menu.count(), 5);
    EXPECT_NE(GetMenuState(menu.handle(), grey_id, 0) & MF_GRAYED, 0u);
    EXPECT_EQ(GetMenuDefaultItem(menu.handle(), TRUE, 0), static_cast<UINT>(plain));
    EXPECT_NE(GetMenuState(menu.handle(), plain_id, 0) & MF_CHECKED, 0u);
    EXPECT_EQ(GetMenuItemCount(GetSubMenu(menu.handle(), radio_menu)), 3);
}

TEST(Menu, HasOneColumnForMarksAndPictures)
{
    const Menu menu;
    MENUINFO info{};
    info.cbSize = sizeof info;
    info.fMask = MIM_STYLE;
    ASSERT_TRUE(GetMenuInfo(menu.handle(), &info));
    EXPECT_EQ(info.dwStyle, static_cast<DWORD>(MNS_CHECKORBMP));
}

TEST(Menu, CanBeClearedAndFilledAgain)
{
    Menu menu;
    for (int round = 0; round < 3; ++round) {
        menu.clear();
        EXPECT_EQ(menu.count(), 0);
        ASSERT_TRUE(menu.add_rows(sample_rows()));
        EXPECT_EQ(menu.count(), 5);
    }
}

TEST(Menu, CostsNoHandles)
{
    constexpr int room = 200;
    const gui::UserCrowd crowd{ room };
    for (int i = 0; i < 10 * room; ++i) {
        Menu menu;
        ASSERT_TRUE(menu.add_rows(sample_rows())) << "after " << i;
        menu.clear();
        ASSERT_TRUE(menu.add_rows(sample_rows())) << "after " << i;
    }
}

TEST(Menu, IsDestroyedWithItsObject)
{
    HMENU handle = nullptr;
    {
        const Menu menu;
        handle = menu.handle();
        EXPECT_TRUE(IsMenu(handle));
    }
    EXPECT_FALSE(IsMenu(handle));
}

TEST(Menu, ASubmenuBelongsToTheMenuThatContainsIt)
{
    HMENU handle = nullptr;
    {
        Menu outer;
        {
            Menu inner;
            handle = inner.handle();
            inner.add_item(L"a", 1);
            EXPECT_TRUE(outer.add_submenu(L"inner", inner, 7));
            EXPECT_TRUE(inner.is_owned_elsewhere());
            Menu other;
            EXPECT_FALSE(other.add_submenu(L"again", inner)) << "it has an owner already";
            EXPECT_EQ(other.count(), 0);
        }
        EXPECT_TRUE(IsMenu(handle));
        EXPECT_EQ(GetSubMenu(outer.handle(), 0), handle);
        EXPECT_FALSE(outer.is_owned_elsewhere());
    }
    EXPECT_FALSE(IsMenu(handle));
}

} // namespace
