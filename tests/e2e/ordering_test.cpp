// Sorted, shuffled and reversed Books, with the check boxes below the text.
#include "driver_main_window.hpp"
#include <algorithm>

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

using Texts = std::vector<std::wstring>;

book::Page stamped(std::wstring box1, std::wstring box2, std::wstring box3, const std::wstring& created,
    const std::wstring& modified)
{
    book::Page page = make_page(std::move(box1), std::move(box2), std::move(box3));
    page.stamp = created + modified;
    return page;
}

// Pages that every sort key orders differently.
std::vector<book::Page> varied_pages()
{
    return { stamped(L"b", L"2", L"x", L"20030101000000", L"20100101000000"),
        stamped(L"d", L"1", L"zzzzzz", L"20010101000000", L"20130101000000"),
        stamped(L"a", L"4", L"yyyyyyyyy", L"20020101000000", L"20120101000000"),
        stamped(L"c", L"3", L"wwww", L"20040101000000", L"20110101000000") };
}

struct KeyCase {
    book::SortKey key;
    Texts sorted;
    const char* name;
};

class Ordering : public MainWindowTest {
protected:
    fs::path open_varied(book::SortKey key)
    {
        book::BookHeader header;
        header.sort_key = static_cast<std::int32_t>(key);
        const fs::path file = root().add_book(L"手帖.bok", varied_pages(), header);
        open_settled(file);
        return file;
    }
    void click_and_expect(int id, const std::wstring& first_page)
    {
        click_control(id);
        expect_page(first_page);
    }
};

class SortKeys : public Ordering, public testing::WithParamInterface<KeyCase> { };

INSTANTIATE_TEST_SUITE_P(Each, SortKeys,
    testing::Values(KeyCase{ book::SortKey::box1, { L"a", L"b", L"c", L"d" }, "Box1" },
        KeyCase{ book::SortKey::box2, { L"d", L"b", L"c", L"a" }, "Box2" },
        KeyCase{ book::SortKey::box3, { L"c", L"b", L"a", L"d" }, "Box3" },
        KeyCase{ book::SortKey::created, { L"d", L"a", L"b", L"c" }, "Created" },
        KeyCase{ book::SortKey::modified, { L"b", L"c", L"a", L"d" }, "Modified" },
        KeyCase{ book::SortKey::size, { L"b", L"c", L"d", L"a" }, "Size" }),
    [](const auto& test) { return std::string(test.param.name); });

const Texts stored{ L"b", L"d", L"a", L"c" };

} // namespace

TEST_P(SortKeys, PutThePagesInOrderAndBack)
{
    open_varied(GetParam().key);
    toggle_check(command::toggle_sorted_order, true);
    EXPECT_EQ(read_on(4), GetParam().sorted);
    toggle_check(command::toggle_sorted_order, false);
    go_to_first(stored.front());
    EXPECT_EQ(read_on(4), stored);
}

TEST_F(Ordering, ASortedBookIsReadBackwardsWithReverse)
{
    open_varied(book::SortKey::box1);
    click_and_expect(command::toggle_sorted_order, L"a");
    click_and_expect(command::reverse_order, L"d");
    EXPECT_EQ(read_on(4), (Texts{ L"d", L"c", L"b", L"a" }));
    restart();
    expect_checked(command::toggle_sorted_order, true);
    expect_checked(command::reverse_order, true);
    go_to_first(L"d");
    EXPECT_EQ(read_on(4), (Texts{ L"d", L"c", L"b", L"a" }));
}

TEST_F(Ordering, AShuffledBookHasTheSameOrderAfterARestart)
{
    std::vector<book::Page> pages;
    for (std::size_t i = 1; i <= 9; ++i)
        pages.push_back(make_page(numeral(i)));
    open_settled(root().add_book(L"手帖.bok", pages));
    toggle_check(command::toggle_random_order, true);
    const Texts shuffled = read_on(9);
    Texts in_order = shuffled;
    std::ranges::sort(in_order);
    EXPECT_TRUE(std::ranges::adjacent_find(in_order) == in_order.end());
    restart();
    expect_checked(command::toggle_random_order, true);
    go_to_first(shuffled.front());
    EXPECT_EQ(read_on(9), shuffled);
    toggle_check(command::reverse_order, true);
    go_to_first(shuffled.back());
    EXPECT_EQ(read_on(9), Texts(shuffled.rbegin(), shuffled.rend()));
    toggle_check(command::toggle_random_order, false);
    go_to_first(L"九");
}

TEST_F(Ordering, SortingAndShufflingExcludeEachOther)
{
    open_varied(book::SortKey::box1);
    click_and_expect(command::toggle_sorted_order, L"a");
    click_control(command::toggle_random_order);
    expect_checked(command::toggle_sorted_order, false);
    expect_checked(command::toggle_random_order, true);
    click_control(command::toggle_sorted_order);
    expect_checked(command::toggle_random_order, false);
    EXPECT_EQ(read_on(4), (Texts{ L"a", L"b", L"c", L"d" }));
}

TEST_F(Ordering, AnEditIsSavedIntoItsOwnPageWhenTheOrderChanges)
{
    const fs::path file = open_varied(book::SortKey::box1);
    write_first(L"い");
    click_control(command::toggle_sorted_order);
    answer_box(leave_question, Icon::question, IDYES);
    expect_page(L"a");
    EXPECT_EQ(load_book(file).pages[0].text[0], L"いb\r\n");
    write_first(L"ろ");
    click_control(command::reverse_order);
    answer_box(leave_question, Icon::question, IDNO);
    expect_page(L"いb"); // now sorted after the Latin letters
    close();
    EXPECT_EQ(load_book(file).pages[2].text[0], L"a\r\n");
}

TEST_F(Ordering, TheMenuOffersNoEditingWhileTheOrderIsNotTheStoredOne)
{
    open_varied(book::SortKey::box1);
    click_and_expect(command::reverse_order, L"c");
    for (const int id : { command::show_book_editor, command::show_replace })
        main_menu(-2700).choose_in_vain(id, Hand::mouse);
    EXPECT_TRUE(box(command::show_book_menu).is_enabled());
}
