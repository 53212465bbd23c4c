// Searching from the main window: the search box, its checks and the banner.
#include "look/wnd/warningwnd.hpp"
#include "tests/support/gui_app_controls.hpp"

namespace {

namespace command = core::command;

class SearchControls : public gui::AppControls {
protected:
    std::wstring banner() const { return the<look::WarningWnd>().shown_text(); }
    bool has_banner() const { return the<look::WarningWnd>().is_visible(); }
};

TEST_F(SearchControls, LeadToTheNextPageWithTheWord)
{
    open({ page(L"1\r\n"), page(L"2\r\n"), page(L"猫\r\n"), page(L"4\r\n") });
    write_search(L"猫");
    click(command::next_page);
    EXPECT_EQ(book().header.position, 2u);
    EXPECT_FALSE(has_banner());
    click(command::clear_search);
    EXPECT_EQ(box_text(command::search_box), L"");
    click(command::next_page);
    EXPECT_EQ(book().header.position, 3u);
}

TEST_F(SearchControls, UpdateTheHitsWhileTheWordIsTyped)
{
    open({ page(L"aba\r\n") });
    write_search(L"a");
    EXPECT_EQ(book().hits.size(), 2u);
    write_search(L"ab");
    EXPECT_EQ(book().hits.size(), 1u);
    write_search(L"");
    EXPECT_TRUE(book().hits.empty());
}

TEST_F(SearchControls, IgnoreTheCaseIfChecked)
{
    open({ page(L"ABC\r\n") });
    write_search(L"abc");
    EXPECT_TRUE(book().hits.empty());
    click(command::toggle_ignore_case);
    EXPECT_TRUE(check(command::toggle_ignore_case).is_checked());
    EXPECT_EQ(book().hits.size(), 1u);
    click(command::toggle_ignore_case);
    EXPECT_TRUE(book().hits.empty());
}

TEST_F(SearchControls, RequireEveryTermIfChecked)
{
    open({ page(L"1\r\n"), page(L"犬\r\n"), page(L"犬と猫\r\n") });
    write_search(L"犬　猫");
    click(command::toggle_all_terms);
    click(command::next_page);
    EXPECT_EQ(book().header.position, 2u);
    click(command::toggle_all_terms);
    click(command::previous_page);
    EXPECT_EQ(book().header.position, 1u);
}

TEST_F(SearchControls, SearchTheFileListIfChecked)
{
    open({ page(L"1\r\n"), page_with_files({ L"C:\\絵\\猫.png" }) });
    write_search(L"猫");
    click(command::next_page);
    EXPECT_EQ(book().header.position, 0u);
    click(command::toggle_file_list_search);
    click(command::next_page);
    EXPECT_EQ(book().header.position, 1u);
    EXPECT_EQ(book().hits.size(), 1u);
}

TEST_F(SearchControls, ShowTheConditionOfASearchThatFoundNothing)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    ShowWindow(window().hwnd(), SW_SHOW);
    write_search(L"犬 猫");
    click(command::toggle_all_terms);
    click(command::next_page);
    EXPECT_EQ(book().header.position, 0u);
    EXPECT_TRUE(has_banner());
    EXPECT_EQ(banner(), L"一致条件: <犬 && 猫>");
    click(command::clear_search);
    click(command::next_page);
    EXPECT_FALSE(has_banner());
}

TEST_F(SearchControls, ShowNoBannerAtTheLastPageWithoutACondition)
{
    open({ page(L"1\r\n") });
    ShowWindow(window().hwnd(), SW_SHOW);
    click(command::next_page);
    EXPECT_FALSE(has_banner());
}

TEST_F(SearchControls, UseTheSelectionOfTheFocusedBox)
{
    open({ page(L"一二三\r\n", L"四五六") });
    ShowWindow(window().hwnd(), SW_SHOW);
    SetFocus(box(command::box_2));
    SendMessageW(box(command::box_1), EM_SETSEL, 0, 1);
    SendMessageW(box(command::box_2), EM_SETSEL, 1, 3);
    command(command::search_selection);
    EXPECT_EQ(box_text(command::search_box), L"五六");
    EXPECT_EQ(book().hits.size(), 1u);
    SendMessageW(box(command::box_2), EM_SETSEL, 0, 0);
    command(command::search_selection);
    EXPECT_EQ(box_text(command::search_box), L"五六") << "nothing is selected";
}

TEST_F(SearchControls, AreCombinedWithTheTrackingFlags)
{
    book::Page marked = page(L"2\r\n");
    marked.mark = 1;
    open({ page(L"1\r\n"), marked, page(L"猫\r\n") });
    write_search(L"猫");
    click(command::toggle_mark_tracking);
    click(command::next_page);
    EXPECT_EQ(book().header.position, 1u);
    click(command::next_page);
    EXPECT_EQ(book().header.position, 2u);
}

} // namespace
