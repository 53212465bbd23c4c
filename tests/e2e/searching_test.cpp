// Searching with several terms, letter case, file lists, marks and tabs, and the banner at the end.
#include "driver_main_window.hpp"
#include "look/banner.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

book::Page with_file(book::Page page, std::wstring file)
{
    page.files.push_back(std::move(file));
    return page;
}

book::Page marked(book::Page page)
{
    page.mark = 1;
    return page;
}

class Searching : public MainWindowTest {
protected:
    void open_pages(std::vector<book::Page> pages)
    {
        open_settled(root().add_book(L"手帖.bok", std::move(pages)));
    }
    void search_for(const std::wstring& terms)
    {
        retype(command::search_box, terms);
        click_control(command::first_page);
    }
    // Clicks the button and expects that no further page matches.
    void expect_end(int step, const std::wstring& page, const Where& where = Where::current())
    {
        click_control(step);
        expect_banner(where);
        expect_page(page, where);
    }
    void expect_next(const std::wstring& page, const Where& where = Where::current())
    {
        click_control(command::next_page);
        expect_page(page, where);
    }
    void expect_in_turn(std::initializer_list<const wchar_t*> pages, const Where& where = Where::current())
    {
        for (const wchar_t* page : pages)
            expect_next(page, where);
    }
    // Expects exactly these pages, in this order.
    void expect_only(std::initializer_list<const wchar_t*> pages, const Where& where = Where::current())
    {
        expect_in_turn(pages, where);
        expect_end(command::next_page, *(pages.end() - 1), where);
    }
};

} // namespace

TEST_F(Searching, AnyOfSeveralTermsOrAllOfThem)
{
    open_pages({ make_page(L"一"), make_page(L"赤い花"), make_page(L"青い空"), make_page(L"なし"),
        make_page(L"空と花", L"赤") });
    search_for(L"赤 空");
    expect_only({ L"赤い花", L"青い空", L"空と花" });
    toggle_check(command::toggle_all_terms, true);
    click_control(command::first_page);
    expect_page(L"一");
    expect_only({ L"空と花" });
    expect_end(command::previous_page, L"空と花");
}

TEST_F(Searching, AQuotedTermKeepsItsSpaceAndAWideSpaceSeparates)
{
    open_pages({ make_page(L"一"), make_page(L"cat dog"), make_page(L"dog cat"), make_page(L"dog") });
    search_for(L"\"dog cat\"");
    expect_only({ L"dog cat" });
    search_for(L"dog\x3000pig");
    expect_page(L"一");
    expect_in_turn({ L"cat dog", L"dog cat", L"dog" });
}

TEST_F(Searching, BothLetterCasesInAllBoxes)
{
    open_pages({ make_page(L"一"), make_page(L"二", L"Ａbc"), make_page(L"三", L"", L"ａBC"),
        make_page(L"四", L"ａbc") });
    search_for(L"ａbc");
    expect_next(L"四");
    expect_end(command::previous_page, L"四");
    toggle_check(command::toggle_ignore_case, true);
    click_control(command::previous_page);
    expect_page(L"三");
    click_control(command::previous_page);
    expect_page(L"二");
    expect_end(command::previous_page, L"二");
    toggle_check(command::toggle_ignore_case, false);
    expect_next(L"四");
}

TEST_F(Searching, FileListsAreSearchedOnRequest)
{
    open_pages({ make_page(L"一"), with_file(make_page(L"二"), L"C:\\資料\\ねこ.png"), make_page(L"三"),
        with_file(make_page(L"四"), L"http://example.com/ねこ") });
    search_for(L"ねこ");
    expect_end(command::next_page, L"一");
    toggle_check(command::toggle_file_list_search, true);
    expect_only({ L"二", L"四" });
    toggle_check(command::toggle_file_list_search, false);
    expect_end(command::previous_page, L"四");
}

TEST_F(Searching, TrackingMarksStopsAtThemAndWidensASearch)
{
    open_pages({ make_page(L"一"), make_page(L"二"), marked(make_page(L"三")), make_page(L"花"),
        marked(make_page(L"五")), make_page(L"六") });
    toggle_check(command::toggle_mark_tracking, true);
    expect_only({ L"三", L"五" });
    search_for(L"花");
    expect_page(L"一");
    expect_only({ L"三", L"花", L"五" });
    toggle_check(command::toggle_mark_tracking, false);
    click_control(command::previous_page);
    expect_page(L"花");
    expect_end(command::previous_page, L"花");
}

TEST_F(Searching, TrackingTabsAndMarksStopsAtBoth)
{
    std::vector<book::Page> pages{ make_page(L"一"), make_page(L"二"), marked(make_page(L"三")),
        make_page(L"四"), make_page(L"五") };
    pages[3].tab_number = 1;
    open_pages(pages);
    toggle_check(command::toggle_tab_tracking, true);
    expect_only({ L"四" });
    toggle_check(command::toggle_mark_tracking, true);
    click_control(command::previous_page);
    expect_page(L"三");
    expect_next(L"四");
    // A new mark is tracked at once.
    toggle_check(command::toggle_tab_tracking, false);
    toggle_check(command::toggle_mark_tracking, false);
    expect_next(L"五");
    toggle_check(command::toggle_mark, true);
    toggle_check(command::toggle_mark_tracking, true);
    click_control(command::previous_page);
    expect_page(L"三");
    expect_next(L"五");
}

TEST_F(Searching, TheBannerIsShownOverTheWindowFadesAndIsHiddenByAFind)
{
    open_pages({ make_page(L"一"), make_page(L"花"), make_page(L"三") });
    search_for(L"花");
    expect_next(L"花");
    EXPECT_FALSE(has_banner());
    click_control(command::next_page);
    expect_banner();
    const RECT place = banner().rect();
    const POINT middle = main_window().center();
    EXPECT_LE(std::abs((place.left + place.right) / 2 - middle.x), 1);
    EXPECT_LE(std::abs((place.top + place.bottom) / 2 - middle.y), 1);
    expect_color(look::banner_colors(look::theme_colors(look::theme_standard)).fill,
        { place.left + 3, place.bottom - 3 });
    EXPECT_EQ(GetForegroundWindow(), main_window().handle());
    expect_soon(false, [&] { return has_banner(); });
    expect_page(L"花");
    click_control(command::next_page);
    expect_banner();
    click_control(command::clear_search);
    expect_next(L"三");
    EXPECT_FALSE(has_banner());
}

TEST_F(Searching, AtTheEndOfABookWithoutAConditionNoBannerShows)
{
    open_pages({ make_page(L"一"), make_page(L"二") });
    expect_next(L"二");
    click_control(command::next_page);
    // Clicks are served in order: when this one has an effect, the one before is done.
    toggle_check(command::toggle_mark, true);
    EXPECT_FALSE(has_banner());
    expect_page(L"二");
}

TEST_F(Searching, AnEditAnsweredWithNoIsDiscardedEvenIfNothingIsFound)
{
    open_pages({ make_page(L"一"), make_page(L"二") });
    retype(command::search_box, L"花");
    write_first(L"い");
    click_control(command::next_page);
    answer_box(leave_question, Icon::question, IDNO);
    expect_banner();
    expect_page(L"一");
    EXPECT_EQ(title(), L"手帖");
}
