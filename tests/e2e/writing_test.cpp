// Typing into the boxes of a page, and the saved file.
#include "book/page_text.hpp"
#include "driver_test.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

constexpr auto question = L"ページの内容が変更されています．\r\nファイルに保存しますか？";

class Writing : public EndToEnd {
protected:
    void write_at_end(int id, const std::wstring& text)
    {
        program().click_into(box(id));
        const std::wstring before = box(id).text();
        box(id).select(before.size(), before.size());
        type_text(text);
        expect_soon(before + text, [&] { return box(id).text(); });
    }
    // Box 1 of the page in the file.
    static std::wstring stored_box1(const fs::path& file, std::size_t page = 0)
    {
        return load_book(file).pages.at(page).text[0];
    }
    void expect_title(const std::wstring& text)
    {
        expect_soon(text, [&] { return title(); });
    }
};

// A character outside the basic plane: two units, two keystrokes.
std::wstring yoshi()
{
    return { wchar_t{ 0xD842 }, wchar_t{ 0xDFB7 } };
}

} // namespace

TEST_F(Writing, TheFirstTypedCharacterPutsAStarIntoTheTitle)
{
    open_numbered_book(2);
    EXPECT_EQ(title(), L"手帖");
    program().click_on(box(core::command::box_1));
    EXPECT_EQ(title(), L"手帖");
    write_first(L"あ");
    EXPECT_EQ(box(core::command::box_1).text(), L"あ一\r\n");
    type_text(L"い");
    expect_soon(L"あい一\r\n", [&] { return box(core::command::box_1).text(); });
    EXPECT_EQ(title(), L"手帖 *");
}

TEST_F(Writing, CtrlSSavesJapaneseTextTypedIntoEachBox)
{
    const fs::path file = open_numbered_book(2);
    const std::wstring typed = L"日本語、" + yoshi() + L"野家。";
    const std::wstring before = book::current_time_text();
    write_at_end(core::command::box_1, typed);
    write_at_end(core::command::box_2, L"見出し" + yoshi());
    write_at_end(core::command::box_3, L"本文");
    press(VK_RETURN);
    type_text(L"二行目");
    expect_soon(L"本文\r\n二行目", [&] { return box(core::command::box_3).text(); });
    make_old(file);

    chord({ VK_CONTROL, 'S' });
    expect_title(L"手帖");
    const std::wstring after = book::current_time_text();

    EXPECT_FALSE(is_old(file));
    EXPECT_NE(file_bytes(file).find(utf16_bytes(L"一\r\n" + typed + L"\r\n\x3\r\n")), std::string::npos);
    const book::Book saved = load_book(file);
    ASSERT_EQ(saved.pages.size(), 2u);
    const book::Page& page = saved.pages[0];
    EXPECT_EQ(page.text[0], L"一\r\n" + typed + L"\r\n");
    EXPECT_EQ(page.text[1], L"見出し" + yoshi());
    EXPECT_EQ(page.text[2], L"本文\r\n二行目\r\n");
    EXPECT_EQ(page.stamp.substr(0, 14), old_stamp.substr(0, 14));
    EXPECT_GE(page.stamp.substr(14), before);
    EXPECT_LE(page.stamp.substr(14), after);
    EXPECT_EQ(saved.pages[1].stamp, old_stamp);
    EXPECT_EQ(saved.pages[1].text[0], L"二\r\n");
}

TEST_F(Writing, CtrlSWithNothingChangedWritesNothing)
{
    const fs::path file = open_numbered_book(2);
    program().click_on(box(core::command::box_1));
    make_old(file);
    const std::string before = file_bytes(file);
    {
        const HeldKey ctrl(VK_CONTROL);
        press('S');
    }
    // Keys are served in order: when this one has an effect, the one before is done.
    type_text(L"あ");
    expect_title(L"手帖 *");
    EXPECT_TRUE(is_old(file));
    EXPECT_EQ(file_bytes(file), before);
    chord({ VK_CONTROL, 'S' });
    expect_title(L"手帖");
    EXPECT_FALSE(is_old(file));
}

TEST_F(Writing, CtrlSWorksInEveryBoxAndKeepsTheFocusThere)
{
    const fs::path file = open_numbered_book(1);
    for (const int id : { core::command::box_1, core::command::box_2, core::command::box_3 }) {
        write_at_end(id, L"字");
        expect_title(L"手帖 *");
        make_old(file);
        chord({ VK_CONTROL, 'S' });
        expect_title(L"手帖");
        EXPECT_FALSE(is_old(file)) << id;
        EXPECT_EQ(program().focus(), box(id));
    }
}

TEST_F(Writing, TheSaveCommandWritesAnUnchangedBookToo)
{
    const fs::path file = open_numbered_book(1);
    make_old(file);
    main_window().send_command(core::command::save_always);
    EXPECT_FALSE(is_old(file));
    EXPECT_EQ(load_book(file).pages[0].stamp, old_stamp);
}

TEST_F(Writing, LeavingAChangedPageAndAnsweringYesWritesIt)
{
    const fs::path file = open_numbered_book(2);
    write_at_end(core::command::box_1, L"追記");
    expect_title(L"手帖 *");
    main_window().post_command(core::command::next_page);

    const MessageDialog asked = program().wait_for_box();
    EXPECT_EQ(asked.text(), question);
    EXPECT_EQ(asked.caption(), L"Pagewick v1.06 - 手帖");
    EXPECT_EQ(asked.icon(), Icon::question);
    EXPECT_TRUE(asked.has_button(IDYES));
    EXPECT_TRUE(asked.has_button(IDNO));
    EXPECT_FALSE(asked.has_button(IDCANCEL));
    press('Y');
    asked.wait_until_gone();

    expect_page(L"二");
    EXPECT_EQ(title(), L"手帖");
    EXPECT_EQ(stored_box1(file), L"一\r\n追記\r\n");
    EXPECT_NE(load_book(file).pages[0].stamp, old_stamp);
    main_window().send_command(core::command::previous_page);
    EXPECT_EQ(box(core::command::box_1).text().substr(0, 5), L"一\r\n追記");
}

TEST_F(Writing, LeavingAChangedPageAndAnsweringNoDiscardsTheEdit)
{
    const fs::path file = open_numbered_book(2);
    make_old(file);
    write_at_end(core::command::box_1, L"追記");
    expect_title(L"手帖 *");
    main_window().post_command(core::command::next_page);
    answer_box(question, Icon::question, IDNO);
    expect_page(L"二");
    EXPECT_EQ(title(), L"手帖");
    EXPECT_TRUE(is_old(file));
    main_window().send_command(core::command::previous_page);
    expect_page(L"一");
    close();
    EXPECT_EQ(stored_box1(file), L"一\r\n");
}

TEST_F(Writing, SavingTrimsTheSecondBoxAndDropsTheSeparatorOfTheFile)
{
    const fs::path file = open_numbered_book(1);
    const std::wstring divided = L"前\x3後";
    for (const int id : { core::command::box_1, core::command::box_2, core::command::box_3 }) {
        box(id).select(0, static_cast<std::size_t>(-1));
        box(id).send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>((L" \x3000" + divided + L" \t").c_str()));
    }
    main_window().send_command(core::command::save_if_changed);
    const book::Page page = load_book(file).pages.at(0);
    EXPECT_EQ(page.text[0], L" \x3000前後\r\n");
    EXPECT_EQ(page.text[1], L"前後");
    EXPECT_EQ(page.text[2], L" \x3000前後\r\n");
}

// A new edit control accepts only about 30,000 characters.
TEST_F(Writing, TypingContinuesInAPageOfManyCharacters)
{
    const std::wstring line(100, L'字');
    std::wstring text = line;
    for (int i = 1; i < 450; ++i)
        text += L"\r\n" + line;
    const fs::path file = root().add_book(L"手帖.bok", { make_page(text, L"", text) });
    open(file);
    for (const int id : { core::command::box_1, core::command::box_3 }) {
        ASSERT_EQ(box(id).text(), text + L"\r\n");
        write_at_end(id, L"続き");
        expect_soon(text + L"\r\n続き", [&] { return box(id).text(); });
    }
    chord({ VK_CONTROL, 'S' });
    expect_title(L"手帖");
    EXPECT_EQ(load_book(file).pages[0].text[0], text + L"\r\n続き\r\n");
    EXPECT_EQ(load_book(file).pages[0].text[2], text + L"\r\n続き\r\n");
}

TEST_F(Writing, ADoubleClickSelectsNoWord)
{
    open(root().add_book(L"手帖.bok", { make_page(L"wordwordwordwordwordwordwordword") }));
    const RECT rect = box(core::command::box_1).rect();
    const POINT on_the_text{ rect.left + 40, rect.top + 12 };
    program().click_on(box(core::command::box_1));
    double_click(on_the_text);
    type_text(L"+");
    expect_soon(35u, [&] { return box(core::command::box_1).text().size(); });
    EXPECT_NE(box(core::command::box_1).text().find(L'+'), 0u);
}

TEST_F(Writing, TabGoesThroughTheBoxesAndTheSearchBoxAndShiftTabWritesATab)
{
    namespace command = core::command;
    open_numbered_book(1);
    program().click_on(box(command::box_1));
    for (const int id : { command::box_2, command::box_3, command::search_box, command::box_1, command::box_2,
             command::box_3 }) {
        press(VK_TAB);
        expect_soon(id, [&] { return GetDlgCtrlID(program().focus().handle()); });
    }
    EXPECT_EQ(box(core::command::box_1).text(), L"一\r\n");
    EXPECT_EQ(box(core::command::box_2).text(), L"");
    EXPECT_EQ(title(), L"手帖");
    {
        const HeldKey shift(VK_SHIFT);
        press(VK_TAB);
        expect_soon(L"\t", [&] { return box(core::command::box_3).text(); });
    }
    EXPECT_EQ(program().focus(), box(core::command::box_3));
}

// Wrapping recreates the edit controls: the new ones must work like the old ones.
TEST_F(Writing, TheBoxesOfAWrappedBookTypeTabAndSave)
{
    book::BookHeader header;
    header.wrap_text = 1;
    const fs::path file = root().add_book(L"手帖.bok", { make_page(L"一", L"", L"三") }, header);
    open(file);
    EXPECT_EQ(box(core::command::box_1).style() & (WS_HSCROLL | ES_AUTOHSCROLL), 0);
    EXPECT_EQ(title(), L"手帖");
    program().click_on(box(core::command::box_1));
    for (const int id : { core::command::box_2, core::command::box_3 }) {
        press(VK_TAB);
        expect_soon(id, [&] { return GetDlgCtrlID(program().focus().handle()); });
    }
    const std::wstring typed(200, L'字');
    type_text(typed);
    expect_soon(typed + L"三\r\n", [&] { return box(core::command::box_3).text(); });
    expect_title(L"手帖 *");
    chord({ VK_CONTROL, 'S' });
    expect_title(L"手帖");
    EXPECT_EQ(load_book(file).pages[0].text[2], typed + L"三\r\n");
}

TEST_F(Writing, ACopiedTextIsPastedWithItsSurrogatePairs)
{
    open_numbered_book(1);
    write_at_end(core::command::box_1, yoshi() + L"野家");
    chord({ VK_CONTROL, 'A' });
    chord({ VK_CONTROL, 'C' });
    program().click_on(box(core::command::box_3));
    chord({ VK_CONTROL, 'V' });
    expect_soon(L"一\r\n" + yoshi() + L"野家", [&] { return box(core::command::box_3).text(); });
}
