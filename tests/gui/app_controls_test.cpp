// The main window's controls: their places, their contents and their commands.
#include "app/control_rows.hpp"
#include "tests/support/gui_app_controls.hpp"
#include "tests/support/gui_calls.hpp"

namespace {

namespace command = core::command;
using platform::Rect;

class Controls : public gui::AppControls {
protected:
    app::MainLayout layout()
    {
        const SIZE client = window().client_size();
        return app::main_layout({ client.cx, client.cy });
    }
    bool is_enabled(int id) const { return IsWindowEnabled(box(id)) != FALSE; }
    bool is_on(int id) const { return check(id).is_checked(); }
};

TEST_F(Controls, AreAtTheirPlaces)
{
    open({ page(L"a\r\n") });
    const app::MainLayout at = layout();
    for (const app::ButtonRow& row : app::button_rows)
        EXPECT_EQ(place_of(box(row.command)), at.*row.place) << row.command;
    for (const app::CheckRow& row : app::check_rows) {
        if (row.width == app::CheckWidth::as_placed) {
            EXPECT_EQ(place_of(box(row.command)), at.*row.place) << row.command;
        }
    }
    EXPECT_EQ(place_of(the<look::TabWnd>().hwnd()), at.tabs);
    EXPECT_EQ(place_of(the<look::MySlider>().hwnd()), at.slider);
    EXPECT_EQ(place_of(box(command::search_box)), at.search_box);
    // The height of a closed combo box depends on its font.
    const Rect combo = place_of(box(command::file_combo));
    EXPECT_EQ((Rect{ combo.left, combo.top, combo.right, at.file_combo.bottom }), at.file_combo);
}

TEST_F(Controls, StayInsideTheWindowAndAboveTheStatusBar)
{
    open({ page(L"a\r\n") });
    const SIZE client = window().client_size();
    const Rect bar = place_of(the<look::MyStatusBar>().hwnd());
    EXPECT_EQ(bar.left, 0);
    EXPECT_EQ(bar.right, client.cx);
    EXPECT_EQ(bar.bottom, client.cy);
    for (const app::ButtonRow& row : app::button_rows)
        EXPECT_LE(place_of(box(row.command)).bottom, bar.top) << row.command;
    for (const app::CheckRow& row : app::check_rows)
        EXPECT_LE(place_of(box(row.command)).bottom, bar.top) << row.command;
    EXPECT_LE(app::checks_frame(layout()).bottom, bar.top);
}

TEST_F(Controls, AreAllVisible)
{
    open({ page(L"a\r\n") });
    ShowWindow(window().hwnd(), SW_SHOW);
    for (const app::ButtonRow& row : app::button_rows)
        EXPECT_TRUE(IsWindowVisible(box(row.command))) << row.command;
    for (const app::CheckRow& row : app::check_rows)
        EXPECT_TRUE(IsWindowVisible(box(row.command))) << row.command;
    EXPECT_TRUE(IsWindowVisible(box(command::search_box)));
    EXPECT_TRUE(IsWindowVisible(box(command::file_combo)));
}

TEST_F(Controls, ShowTheirWholeTexts)
{
    open({ page(L"a\r\n") });
    constexpr int text_left = 18;
    for (const app::CheckRow& row : app::check_rows) {
        const Rect place = place_of(box(row.command));
        EXPECT_EQ(gui::text_of(box(row.command)), row.text);
        EXPECT_LE(text_left + text_width(box(row.command)), place.width()) << row.command;
    }
    constexpr int borders = 4;
    for (const app::ButtonRow& row : app::button_rows) {
        EXPECT_EQ(gui::text_of(box(row.command)), row.text);
        EXPECT_LE(text_width(box(row.command)) + borders, place_of(box(row.command)).width()) << row.command;
    }
}

TEST_F(Controls, OfThePagesCoverTheSlidersEnds)
{
    open({ page(L"a\r\n") });
    for (const int id :
        { command::first_page, command::previous_page, command::next_page, command::last_page }) {
        const Rect place = place_of(box(id));
        const POINT middle{ (place.left + place.right) / 2, (place.top + place.bottom) / 2 };
        EXPECT_EQ(ChildWindowFromPointEx(window().hwnd(), middle, CWP_ALL), box(id)) << id;
    }
}

TEST_F(Controls, WorkWithoutTheirPictures)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    EXPECT_FALSE(button(command::next_page).has_image());
    click(command::next_page);
    EXPECT_EQ(box_text(command::box_1), L"2\r\n");
}

TEST_F(Controls, SendTheCommandsOfTheirIdentifiers)
{
    open({ page(L"1\r\n"), page(L"2\r\n"), page(L"3\r\n") });
    click(command::last_page);
    EXPECT_EQ(book().header.position, 2u);
    click(command::previous_page);
    EXPECT_EQ(book().header.position, 1u);
    click(command::toggle_mark);
    EXPECT_EQ(book().mark_count, 1u);
    click(command::toggle_tab);
    EXPECT_EQ(book().tab_count, 1u);
    click(command::first_page);
    click(command::toggle_mark_tracking);
    click(command::next_page);
    EXPECT_EQ(book().header.position, 1u);
    click(command::reverse_order);
    EXPECT_LT(book().header.order_mode, 0);
}

TEST_F(Controls, OfThePageAndTheOrderFollowTheBook)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    for (const int id : { command::toggle_mark, command::toggle_mark_tracking, command::toggle_tab,
             command::toggle_tab_tracking, command::toggle_sorted_order, command::toggle_random_order,
             command::reverse_order }) {
        EXPECT_FALSE(is_on(id)) << id;
        command(id);
        EXPECT_TRUE(is_on(id)) << id;
        command(id);
        EXPECT_FALSE(is_on(id)) << id;
    }
    command(command::toggle_mark);
    command(command::next_page);
    EXPECT_FALSE(is_on(command::toggle_mark));
    command(command::toggle_sorted_order);
    command(command::toggle_random_order);
    EXPECT_FALSE(is_on(command::toggle_sorted_order));
    EXPECT_TRUE(is_on(command::toggle_random_order));
}

TEST_F(Controls, OfThePageAndTheOrderAreDisabledWhileAnotherWindowOwnsTheBook)
{
    open({ page(L"1\r\n") });
    gui::EditingWindow editor{ &window() };
    ASSERT_TRUE(editor.create(L""));
    window().add_busy_window(editor);
    const std::array ids{ int{ command::toggle_mark }, int{ command::toggle_mark_tracking },
        int{ command::toggle_tab }, int{ command::toggle_tab_tracking }, int{ command::toggle_sorted_order },
        int{ command::toggle_random_order }, int{ command::reverse_order }, int{ command::show_book_menu } };
    for (const bool is_free : { false, true }) {
        editor.show(!is_free);
        command(command::request_refresh, core::refresh::controls_and_enable);
        for (const int id : ids)
            EXPECT_EQ(is_enabled(id), is_free) << id;
        EXPECT_TRUE(is_enabled(command::next_page));
    }
    close(); // before the window that it may query is destroyed
}

TEST_F(Controls, OfferNoTabToAPageIfTheBookHasTheMaximum)
{
    book::Book full = book_of({});
    for (int i = 0; i < 257; ++i) {
        full.pages.push_back(page(L"a\r\n"));
        full.pages.back().tab_number = i < 256 ? static_cast<std::uint64_t>(i) + 1 : 0;
    }
    open(full);
    EXPECT_TRUE(is_enabled(command::toggle_tab));
    command(command::last_page);
    EXPECT_FALSE(is_enabled(command::toggle_tab));
    command(command::previous_page);
    EXPECT_TRUE(is_enabled(command::toggle_tab));
}

TEST_F(Controls, LightTheSaveButtonWhileThereIsSomethingToSave)
{
    open({ page(L"a\r\n") });
    const auto is_lit = [&] {
        const bool lit = button(command::save_if_changed).is_highlighted();
        EXPECT_EQ(is_enabled(command::save_if_changed), lit);
        return lit;
    };
    EXPECT_FALSE(is_lit());
    type(command::box_2, L"い");
    EXPECT_TRUE(is_lit());
    click(command::save_if_changed);
    EXPECT_FALSE(is_lit());
    EXPECT_EQ(saved().pages[0].text[1], L"い");
}

TEST_F(Controls, ReturnTheFocusToTheLastBoxWhenTheSaveButtonIsDisabled)
{
    open({ page(L"a\r\n") });
    ShowWindow(window().hwnd(), SW_SHOW);
    SetFocus(box(command::box_3));
    type(command::box_3, L"い");
    SetFocus(box(command::save_if_changed));
    click(command::save_if_changed);
    EXPECT_FALSE(is_enabled(command::save_if_changed));
    EXPECT_EQ(GetFocus(), box(command::box_3));
}

TEST_F(Controls, LeaveTheFocusToAnotherControl)
{
    open({ page(L"a\r\n") });
    ShowWindow(window().hwnd(), SW_SHOW);
    SetFocus(box(command::box_3));
    type(command::box_3, L"い");
    SetFocus(box(command::search_box));
    command(command::save_if_changed);
    EXPECT_EQ(GetFocus(), box(command::search_box));
}

TEST_F(Controls, LightTheFolderButtonIfThePageHasAFolder)
{
    book::Page with_folder = page(L"2\r\n");
    with_folder.reference_folder = L"C:\\資料";
    open({ page(L"1\r\n"), with_folder });
    EXPECT_FALSE(button(command::show_folder_menu).is_highlighted());
    command(command::next_page);
    EXPECT_TRUE(button(command::show_folder_menu).is_highlighted());
    command(command::previous_page);
    EXPECT_FALSE(button(command::show_folder_menu).is_highlighted());
}

TEST_F(Controls, ListTheFilesOfThePageByTheirNames)
{
    CreateDirectoryW(file(L"絵").c_str(), nullptr);
    const std::wstring folder = file(L"絵");
    open({ page_with_files({ folder.c_str(), L"絵", L"C:\\失\\b.txt", L"https://example.org/x" }, 1),
        page(L"2\r\n") });
    auto& combo = control<ovlib::ComboBox>(command::file_combo);
    ASSERT_EQ(combo.count(), 4);
    EXPECT_EQ(combo.item_text(0), L"絵");
    EXPECT_EQ(combo.item_text(1), L"絵");
    EXPECT_EQ(combo.item_text(2), L"C:\\失\\b.txt") << "nobody knows what a missing entry was";
    EXPECT_EQ(combo.item_text(3), L"https://example.org/x");
    EXPECT_EQ(combo.selected(), 1);
    EXPECT_EQ(combo.send(CB_GETMINVISIBLE, 0, 0), 4);
    command(command::next_page);
    EXPECT_EQ(combo.count(), 0);
    EXPECT_EQ(combo.send(CB_GETMINVISIBLE, 0, 0), 1);
}

TEST_F(Controls, ShowTenFilesOfALongListAtOnce)
{
    book::Page many = page(L"1\r\n");
    many.files.assign(40, L"C:\\a.txt");
    open({ many });
    auto& combo = control<ovlib::ComboBox>(command::file_combo);
    EXPECT_EQ(combo.count(), 40);
    EXPECT_EQ(combo.send(CB_GETMINVISIBLE, 0, 0), 10);
}

TEST_F(Controls, ChooseAFileFromTheCombo)
{
    open({ page_with_files({ L"C:\\a.txt", L"C:\\b.txt", L"C:\\c.txt" }) });
    control<ovlib::ComboBox>(command::file_combo).select(2);
    command(command::file_combo, 0, CBN_SELCHANGE);
    EXPECT_EQ(book().pages[0].current_file, 2u);
    control<ovlib::ComboBox>(command::file_combo).clear_selection();
    command(command::file_combo, 0, CBN_SELCHANGE);
    EXPECT_EQ(book().pages[0].current_file, 2u);
    command(command::file_combo, 0, CBN_DROPDOWN);
    EXPECT_EQ(book().pages[0].current_file, 2u);
}

TEST_F(Controls, ShowTheFileThatTheButtonsChoose)
{
    open({ page_with_files({ L"C:\\a.txt", L"C:\\b.txt", L"C:\\c.txt" }) });
    auto& combo = control<ovlib::ComboBox>(command::file_combo);
    click(command::last_file);
    EXPECT_EQ(combo.selected(), 2);
    click(command::first_file);
    EXPECT_EQ(combo.selected(), 0);
    command(command::next_file);
    EXPECT_EQ(combo.selected(), 1);
    command(command::move_file_up);
    EXPECT_EQ(combo.selected(), 0);
    EXPECT_EQ(combo.item_text(0), L"C:\\b.txt");
}

TEST_F(Controls, ShowTheTabsOfTheBookAndGoToTheirPages)
{
    book::Page first = page(L"1\r\n");
    book::Page third = page(L"3\r\n");
    first.tab_number = 1;
    third.tab_number = 2;
    open({ first, page(L"2\r\n"), third });
    auto& tabs = the<look::TabWnd>();
    ASSERT_EQ(tabs.items().size(), 2u);
    EXPECT_EQ(tabs.current_tab(), 1u);
    const Rect second = tabs.items()[1].rect;
    tabs.send(WM_LBUTTONDOWN, 0, MAKELPARAM(second.left + 20, 10));
    EXPECT_EQ(box_text(command::box_1), L"3\r\n");
    EXPECT_EQ(tabs.current_tab(), 2u);
    command(command::previous_page);
    EXPECT_EQ(tabs.current_tab(), 0u);
    command(command::toggle_tab);
    ASSERT_EQ(tabs.items().size(), 3u);
    EXPECT_EQ(tabs.current_tab(), 2u);
}

TEST_F(Controls, ShowTheBooksNumbersInFiveParts)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    auto& bar = the<look::MyStatusBar>();
    ASSERT_EQ(bar.part_count(), 5);
    std::array<int, 5> edges{};
    SendMessageW(bar.hwnd(), SB_GETPARTS, 5, reinterpret_cast<LPARAM>(edges.data()));
    EXPECT_EQ(edges, (std::array{ 120, 330, 530, 930, -1 }));
    ShowWindow(window().hwnd(), SW_SHOW);
    gui::pump();
    {
        const gui::MessageCount drawn{ WM_DRAWITEM };
        RedrawWindow(bar.hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        EXPECT_EQ(drawn.of(window().hwnd()), 5);
    }
    const gui::MessageCount drawn{ WM_DRAWITEM };
    command(command::next_page);
    gui::pump();
    EXPECT_EQ(drawn.of(window().hwnd()), 1); // the part with the page number; the dates are equal
}

TEST_F(Controls, HaveTheThemesColours)
{
    open({ page(L"1\r\n") });
    for (const std::int32_t theme : { 6002, 6003, 6000 }) {
        command(theme);
        EXPECT_EQ(the<look::MySlider>().groove, look::palette().slider_groove);
        EXPECT_EQ(the<look::MySlider>().back, look::palette().slider_back);
        EXPECT_EQ(check(command::toggle_mark).colors().back, look::palette().check_back);
    }
}

} // namespace
