// The hits of the search are those of the current page, however it became current.
#include "tests/support/gui_app_controls.hpp"

namespace {

namespace command = core::command;

// Each page contains the word a different number of times, so the number of hits identifies the page.
class Hits : public gui::AppControls {
protected:
    static book::Page page_with(std::size_t count, const std::wstring& key = L"")
    {
        std::wstring text = key;
        for (std::size_t i = 0; i < count; ++i)
            text += L"猫";
        return page((text + L"\r\n").c_str());
    }
    static book::Book four_pages()
    {
        return book_of({ page_with(3, L"c"), page_with(1, L"a"), page_with(4, L"d"), page_with(2, L"b") });
    }
    void open_searching(book::Book book)
    {
        open(std::move(book));
        write_search(L"猫");
        expect_those_of_the_page_in_view("before");
    }
    std::size_t words_in_view() const
    {
        const std::wstring text = box_text(command::box_1);
        return static_cast<std::size_t>(std::count(text.begin(), text.end(), L'猫'));
    }
    void expect_those_of_the_page_in_view(const std::string& after) const
    {
        EXPECT_GT(words_in_view(), 0u) << after;
        EXPECT_EQ(book().hits.size(), words_in_view()) << after;
    }
    book::Book& open_book() { return const_cast<book::Book&>(book()); }
};

TEST_F(Hits, FollowTheFirstAndTheLastPage)
{
    open_searching(four_pages());
    command(command::last_page);
    ASSERT_EQ(words_in_view(), 2u);
    expect_those_of_the_page_in_view("last");
    command(command::first_page);
    ASSERT_EQ(words_in_view(), 3u);
    expect_those_of_the_page_in_view("first");
}

TEST_F(Hits, FollowAClickOnATab)
{
    book::Book tabbed = four_pages();
    tabbed.pages[2].tab_number = 1;
    open_searching(std::move(tabbed));
    command(command::go_to_tab, 1); // sent by the strip
    ASSERT_EQ(words_in_view(), 4u);
    expect_those_of_the_page_in_view("tab");
}

TEST_F(Hits, FollowEveryChangeOfTheOrder)
{
    open_searching(four_pages());
    for (const int id : { command::toggle_sorted_order, command::reverse_order, command::toggle_sorted_order,
             command::reverse_order }) {
        const std::size_t before = words_in_view();
        command(id);
        ASSERT_NE(words_in_view(), before) << id;
        expect_those_of_the_page_in_view(std::to_string(id));
    }
}

// With so many pages the same one is unlikely to be first again.
TEST_F(Hits, FollowAShuffle)
{
    book::Book many;
    for (std::size_t i = 1; i <= 200; ++i)
        many.pages.push_back(page_with(i));
    open_searching(std::move(many));
    command(command::toggle_random_order);
    expect_those_of_the_page_in_view("on");
    command(command::toggle_random_order);
    ASSERT_EQ(words_in_view(), 1u);
    expect_those_of_the_page_in_view("off");
}

TEST_F(Hits, AreThoseOfThePageAfterADeletedOne)
{
    open_searching(four_pages());
    answered(IDYES, [&] { command(command::delete_page); });
    ASSERT_EQ(words_in_view(), 1u);
    expect_those_of_the_page_in_view("delete");
}

// The new page is first in the order, so another page is at the position.
TEST_F(Hits, AreThoseOfThePageThatBecomesCurrentWhenOneIsAdded)
{
    book::Book sorted = four_pages();
    sorted.header.order_mode = 2701;
    sorted.header.position = 2;
    for (const int id : { command::add_page_here, command::add_page_at_end }) {
        open_searching(sorted);
        command(id);
        ASSERT_EQ(book().pages.size(), 5u);
        expect_those_of_the_page_in_view(std::to_string(id));
        close();
    }
}

TEST_F(Hits, StayThoseOfAPageThatCtrlAndWheelMove)
{
    open_searching(four_pages());
    window().send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, -120), 0);
    ASSERT_EQ(book().header.position, 1u);
    ASSERT_EQ(words_in_view(), 3u);
    expect_those_of_the_page_in_view("wheel");
}

TEST_F(Hits, AreThoseOfALoadedBook)
{
    open_searching(four_pages());
    command(command::restore_book);
    ASSERT_EQ(words_in_view(), 3u);
    expect_those_of_the_page_in_view("restored");
}

TEST_F(Hits, AreFoundAgainWhenTheBoxesAreWrapped)
{
    open_searching(four_pages());
    for (const bool wrap : { true, false }) {
        open_book().hits.clear();
        open_book().header.wrap_text = wrap ? 1 : 0;
        command(command::request_refresh, core::refresh::full_but_page);
        expect_those_of_the_page_in_view("wrap");
    }
}

TEST_F(Hits, AreKeptByARefreshThatWrapsNothing)
{
    open_searching(four_pages());
    open_book().hits.clear();
    command(command::request_refresh, core::refresh::full);
    EXPECT_TRUE(book().hits.empty());
}

TEST_F(Hits, AreThoseOfTheTextThatWasSaved)
{
    open_searching(four_pages());
    type(command::box_1, L"猫と猫と");
    command(command::save_if_changed);
    ASSERT_EQ(words_in_view(), 5u);
    expect_those_of_the_page_in_view("saved");
    EXPECT_EQ(book().hits.front().start, 0u);
}

} // namespace
