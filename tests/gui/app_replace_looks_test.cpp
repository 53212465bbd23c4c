// The replace window: its look, its menu and its keys.
#include "tests/support/gui_replacing.hpp"

namespace {

namespace command = core::command;
using gui::Replacing;

TEST_F(Replacing, TakesOverASelectionOfOneLineIntoAnEmptyField)
{
    open({ page(L"一行目\r\n二行目\r\n") });
    HWND const box_1 = box(command::box_1);
    window().set_focus();
    SetFocus(box_1);
    SendMessageW(box_1, EM_SETSEL, 0, 2);
    open_replace();
    EXPECT_EQ(gui::text_of(item(replace(), command::replace_search_text)), L"一行");
    replace().send(WM_CLOSE, 0, 0);
    SetFocus(box_1);
    SendMessageW(box_1, EM_SETSEL, 1, 3);
    open_replace();
    EXPECT_EQ(gui::text_of(item(replace(), command::replace_search_text)), L"一行") << "not empty";
    replace().send(WM_CLOSE, 0, 0);
    set_field(replace(), command::replace_search_text, L"");
    SetFocus(box_1);
    SendMessageW(box_1, EM_SETSEL, 0, 6);
    open_replace();
    EXPECT_EQ(gui::text_of(item(replace(), command::replace_search_text)), L"") << "two lines";
}

TEST_F(Replacing, AFieldKeepsItsSelectionUnlessItsTextIsChanged)
{
    open_three();
    HWND const field = item(replace(), command::replace_search_text);
    const auto selection_after = [&](const std::wstring& search) {
        set_field(replace(), command::replace_search_text, search);
        SendMessageW(field, EM_SETSEL, 1, 2);
        answered(IDOK, [&] { replace().send_command(command::replace_all_pages, 0, 0); });
        return SendMessageW(field, EM_GETSEL, 0, 0);
    };
    EXPECT_EQ(selection_after(L"象牙"), MAKELRESULT(1, 2));
    EXPECT_NE(selection_after(L"象\x3牙"), MAKELRESULT(1, 2));
}

TEST_F(Replacing, OffersTheRestoreInItsMenuOnlyAfterAChange)
{
    open_three();
    constexpr int restore_row = 3;
    for (const bool changed : { false, true }) {
        if (changed)
            replaced(L"猫", L"兎", command::replace_all_pages);
        bool is_grey = !changed;
        std::wstring text;
        gui::MenuDriver user{ [&](const gui::ShownMenu& menu) {
            is_grey = menu.is_grey(restore_row);
            text = menu.text(restore_row);
        } };
        RECT place{};
        GetWindowRect(replace().hwnd(), &place);
        replace().send(WM_CONTEXTMENU, 0, MAKELPARAM(place.left + 20, place.bottom - 8));
        EXPECT_TRUE(user.finish());
        EXPECT_EQ(is_grey, !changed);
        EXPECT_EQ(text, L"置換の取消し(復元)");
    }
}

TEST_F(Replacing, EnterInAFieldShowsTheMenuBelowIt)
{
    open_three();
    set_field(replace(), command::replace_search_text, L"猫");
    HWND const field = item(replace(), command::replace_search_text);
    RECT field_place{};
    GetWindowRect(field, &field_place);
    RECT menu_place{};
    gui::MenuDriver user{ [&](const gui::ShownMenu& menu) { GetWindowRect(menu.hwnd(), &menu_place); } };
    SendMessageW(field, WM_CHAR, VK_RETURN, 0);
    EXPECT_TRUE(user.finish());
    EXPECT_EQ(menu_place.left, field_place.left);
    EXPECT_EQ(menu_place.top, field_place.bottom);
}

// Enter is the way to the menu by keyboard, also when the new text is empty and from the checks.
TEST_F(Replacing, EnterShowsTheMenuBelowEveryOtherControlToo)
{
    open_three();
    ASSERT_TRUE(gui::bring_to_front(replace()));
    const auto expect_menu_below = [&](int id, UINT message) {
        HWND const control = item(replace(), id);
        SetFocus(control);
        RECT place{};
        GetWindowRect(control, &place);
        RECT menu_place{};
        gui::MenuDriver user{ [&](const gui::ShownMenu& menu) { GetWindowRect(menu.hwnd(), &menu_place); } };
        SendMessageW(control, message, VK_RETURN, 1);
        EXPECT_TRUE(user.finish()) << id;
        EXPECT_EQ(menu_place.left, place.left) << id;
        EXPECT_EQ(menu_place.top, place.bottom) << id;
    };
    expect_menu_below(command::replace_new_text, WM_KEYDOWN);
    expect_menu_below(command::replace_in_folder, WM_KEYDOWN);
    set_field(replace(), command::replace_new_text, L"兎");
    expect_menu_below(command::replace_new_text, WM_CHAR);
}

TEST_F(Replacing, HasTheColoursOfEveryTheme)
{
    open_three();
    const auto& check = check_in(replace(), command::replace_in_folder);
    for (int theme = look::theme_standard; theme < look::theme_blue_plain_links; ++theme) {
        command(theme);
        RedrawWindow(replace().hwnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ERASENOW);
        const ovlib::ClientDC dc{ replace() };
        EXPECT_EQ(GetPixel(dc.handle(), 4, 4), look::palette().panel_back.value) << theme;
        EXPECT_EQ(check.colors().back, look::palette().check_back) << theme;
        const std::uint32_t text = look::palette().list_text.value;
        for (const book::ReplaceField& field : book::replace_fields)
            EXPECT_TRUE(gui::has_color(replace().hwnd(), label_area(field), text))
                << theme << " " << field.id;
        const platform::Rect& frame = book::replace_targets_frame;
        EXPECT_TRUE(gui::has_color(
            replace().hwnd(), { frame.left + 8, frame.top - 8, frame.left + 100, frame.top + 8 }, text))
            << theme;
        EXPECT_EQ(GetPixel(dc.handle(), frame.left, (frame.top + frame.bottom) / 2),
            look::palette().panel_line.value)
            << theme;
    }
}

TEST_F(Replacing, ARightClickOnItsCaptionShowsNoMenuOfTheProgram)
{
    open_three();
    std::wstring first_row;
    gui::MenuDriver user{ [&](const gui::ShownMenu& menu) { first_row = menu.text(0); } };
    RECT place{};
    GetWindowRect(replace().hwnd(), &place);
    replace().send(WM_CONTEXTMENU, 0, MAKELPARAM(place.left + 40, place.top + 8));
    user.finish();
    EXPECT_NE(first_row, L"現在のページを置換");
}

// Changing the theme colours every window that exists.
TEST_F(Replacing, OpensInTheThemeOfTheBook)
{
    book::Book dark = book_of({ page(L"猫\r\n") });
    dark.header.theme = look::theme_dark;
    open(dark);
    open_replace();
    for (const book::ReplaceCheck& row : book::replace_checks) {
        const auto& check = check_in(replace(), row.id);
        EXPECT_EQ(check.colors().back, look::palette().check_back) << row.id;
        EXPECT_EQ(check.colors().text, look::palette().check_text) << row.id;
    }
}

TEST_F(Replacing, OpensOverTheMiddleOfTheMainWindowAndLaterWhereItWasLeft)
{
    open_three();
    RECT main{};
    GetWindowRect(window().hwnd(), &main);
    RECT place{};
    GetWindowRect(replace().hwnd(), &place);
    EXPECT_NEAR((place.left + place.right) / 2, (main.left + main.right) / 2, 1);
    EXPECT_NEAR((place.top + place.bottom) / 2, (main.top + main.bottom) / 2, 1);
    SetWindowPos(replace().hwnd(), nullptr, 40, 50, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    replace().send(WM_CLOSE, 0, 0);
    open_replace();
    GetWindowRect(replace().hwnd(), &place);
    EXPECT_EQ(place.left, 40);
    EXPECT_EQ(place.top, 50);
}

TEST_F(Replacing, HasRoomForAllItsTexts)
{
    open_three();
    EXPECT_EQ(replace().text(), L"文字列の置換");
    EXPECT_EQ(replace().client_size().cx, 340);
    EXPECT_EQ(replace().client_size().cy, 192);
    EXPECT_EQ(frame_style(replace()), editing_frame);
    for (const book::ReplaceCheck& row : book::replace_checks) {
        EXPECT_EQ(gui::text_of(item(replace(), row.id)), row.text);
        constexpr int box_and_gap = 18;
        EXPECT_LE(text_width(item(replace(), row.id)) + box_and_gap, row.place.width()) << row.id;
    }
}

TEST_F(Replacing, TabGoesFromTheFieldsToTheChecks)
{
    open_three();
    const std::vector<int> expected{ command::replace_search_text, command::replace_new_text,
        command::replace_in_boxes, command::replace_in_file_list, command::replace_in_folder,
        command::toggle_ignore_case, command::replace_search_text };
    EXPECT_EQ(tabbed_controls(replace(), expected.size()), expected);
}

TEST_F(Replacing, EscClosesIt)
{
    open_three();
    SendMessageW(item(replace(), command::replace_search_text), WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_FALSE(replace().is_open());
}

TEST_F(Replacing, OpeningItCostsNoHandles)
{
    open_three();
    replace().send(WM_CLOSE, 0, 0);
    const gui::GdiCrowd crowd{ 120 };
    window().show(false);
    for (int i = 0; i < 250; ++i) {
        replace().show(true);
        replace().show(false);
    }
    gui::expect_handles_to_spare(20);
}

} // namespace
