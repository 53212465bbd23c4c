// Adding and deleting pages by the menu of the window's background.
#include "driver_main_window.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

class Pages : public MainWindowTest, public testing::WithParamInterface<Hand> {
protected:
    fs::path open_pages(std::size_t count)
    {
        const fs::path file = open_numbered(count);
        return file;
    }
    void choose(int id) { main_menu().choose(id, GetParam()); }
    void delete_page(std::size_t number, int answer, const Where& where = Where::current())
    {
        choose(command::delete_page);
        answer_box(L"このページを削除しますか？\r\n[ p." + std::to_wstring(number) + L" ]", Icon::question,
            answer, where);
    }
    static std::vector<std::wstring> stored(const fs::path& file)
    {
        std::vector<std::wstring> texts;
        for (const book::Page& page : load_book(file).pages)
            texts.push_back(page.text[0].substr(0, page.text[0].find(L"\r\n")));
        return texts;
    }
};

using Texts = std::vector<std::wstring>;

INSTANTIATE_TEST_SUITE_P(By, Pages, testing::Values(Hand::mouse, Hand::keys),
    [](const auto& test) { return std::string(test.param == Hand::mouse ? "Mouse" : "Keys"); });

} // namespace

TEST_P(Pages, AreAddedAtTheEndAndAtTheCurrentPositionAndWrittenInto)
{
    const fs::path file = open_pages(2);
    choose(command::add_page_at_end);
    expect_page(L"");
    write_first(L"末");
    chord({ VK_CONTROL, 'S' });
    expect_soon(L"手帖", [&] { return title(); });
    EXPECT_EQ(stored(file), (Texts{ L"一", L"二", L"末" }));
    click_control(command::previous_page);
    expect_page(L"二");
    choose(command::add_page_here);
    expect_page(L"");
    write_first(L"間");
    chord({ VK_CONTROL, 'S' });
    expect_soon(L"手帖", [&] { return title(); });
    EXPECT_EQ(stored(file), (Texts{ L"一", L"間", L"二", L"末" }));
    click_control(command::next_page);
    expect_page(L"二");
}

TEST_P(Pages, AreDeletedAfterAYesUntilAnEmptyOneIsLeft)
{
    const fs::path file = open_pages(3);
    click_control(command::next_page);
    expect_page(L"二");
    delete_page(2, IDNO);
    expect_page(L"二");
    delete_page(2, IDYES);
    expect_page(L"三");
    EXPECT_EQ(stored(file), (Texts{ L"一", L"三" }));
    delete_page(2, IDYES);
    expect_page(L"一");
    delete_page(1, IDYES);
    expect_page(L"");
    EXPECT_EQ(stored(file), (Texts{ L"" }));
    write_first(L"新");
    chord({ VK_CONTROL, 'S' });
    expect_soon(L"手帖", [&] { return title(); });
    EXPECT_EQ(stored(file), (Texts{ L"新" }));
}

TEST_P(Pages, DeletingAPageDiscardsItsEdit)
{
    const fs::path file = open_pages(3);
    write_first(L"い");
    delete_page(1, IDYES);
    expect_page(L"二");
    EXPECT_EQ(title(), L"手帖");
    EXPECT_EQ(stored(file), (Texts{ L"二", L"三" }));
    click_control(command::next_page);
    expect_page(L"三");
    EXPECT_FALSE(program().has_dialog());
}

TEST_P(Pages, AnEditIsAskedAboutBeforeAPageIsAdded)
{
    const fs::path file = open_pages(1);
    write_first(L"い");
    choose(command::add_page_at_end);
    answer_box(leave_question, Icon::question, IDYES);
    expect_page(L"");
    EXPECT_EQ(stored(file), (Texts{ L"い一", L"" }));
}
