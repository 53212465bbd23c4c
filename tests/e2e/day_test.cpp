// A day's writing: whole sessions over many pages, two Books, and a Book that cannot be written.
#include "driver_main_window.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

class Day : public MainWindowTest {
protected:
    void expect_title(const std::wstring& text, const Where& where = Where::current())
    {
        expect_soon(
            text, [&] { return title(); }, where);
    }
    void add_page()
    {
        main_menu().choose(command::add_page_at_end, Hand::mouse);
        expect_page(L"");
    }
    void choose_file(int id, const fs::path& file)
    {
        book_menu(false).choose(id, Hand::mouse);
        program().wait_for_file_dialog().choose(file.wstring());
    }
    static std::wstring first_line(const book::Page& page)
    {
        return page.text[0].substr(0, page.text[0].find(L"\r\n"));
    }
};

std::wstring note(std::size_t number)
{
    return L"その" + std::to_wstring(number);
}

} // namespace

TEST_F(Day, TwelvePagesAreWrittenWithSavesAndRefusals)
{
    constexpr std::size_t count = 12;
    const fs::path file = root().add_book(L"手帖.bok", { make_page(L"") });
    open_settled(file);
    for (std::size_t page = 1; page <= count; ++page) {
        retype(command::box_1, note(page));
        retype(command::box_2, L"見出し" + std::to_wstring(page));
        expect_title(L"手帖 *");
        if (page % 3 == 1)
            chord({ VK_CONTROL, 'S' });
        else if (page % 3 == 2)
            click_control(command::save_if_changed);
        if (page % 3 != 0)
            expect_title(L"手帖");
        if (page == count)
            break;
        main_menu().choose(command::add_page_at_end, Hand::mouse);
        if (page % 3 == 0)
            answer_box(leave_question, Icon::question, page % 2 ? IDNO : IDYES);
        expect_page(L"");
    }
    click_control(command::previous_page); // leaves the twelfth page, which is unsaved
    answer_box(leave_question, Icon::question, IDYES);
    expect_page(note(11));
    restart();
    expect_page(note(11));
    const book::Book saved = load_book(file);
    ASSERT_EQ(saved.pages.size(), count);
    for (std::size_t page = 1; page <= count; ++page) {
        const bool was_refused = page == 3 || page == 9;
        EXPECT_EQ(first_line(saved.pages[page - 1]), was_refused ? L"" : note(page));
        EXPECT_EQ(saved.pages[page - 1].text[1], was_refused ? L"" : L"見出し" + std::to_wstring(page));
    }
}

TEST_F(Day, TwoBooksInTurnKeepTheirPagesPositionsOrdersAndThemes)
{
    book::BookHeader dark;
    dark.theme = look::theme_dark;
    dark.order_mode = -2700;
    dark.position = 1;
    const fs::path night =
        root().add_book(L"夜.bok", { make_page(L"夜一"), make_page(L"夜二"), make_page(L"夜三") }, dark);
    const fs::path file = open_numbered(4);
    click_control(command::next_page);
    expect_page(L"二");
    retype(command::box_1, L"昼の記");
    book_menu(true).choose(command::open_book, Hand::keys);
    program().wait_for_file_dialog().choose(night.wstring());
    expect_page(L"夜二");
    expect_title(L"夜");
    move_mouse(background());
    expect_color(look::theme_colors(look::theme_dark).panel_back, background());
    click_control(command::next_page);
    expect_page(L"夜一");
    retype(command::box_1, L"夜の記");
    chord({ VK_CONTROL, 'S' });
    expect_title(L"夜");
    choose_file(command::open_book, file);
    expect_page(L"昼の記");
    expect_title(L"手帖");
    move_mouse(background());
    expect_color(look::theme_colors(look::theme_standard).panel_back, background());
    click_control(command::next_page);
    expect_page(L"三");
    choose_file(command::open_book, night);
    expect_page(L"夜の記");
    close();
    EXPECT_EQ(first_line(load_book(file).pages[1]), L"昼の記");
    EXPECT_EQ(first_line(load_book(night).pages[0]), L"夜の記");
    EXPECT_EQ(root().history(), (std::vector{ night.wstring(), file.wstring() }));
}

TEST_F(Day, ABookThatCannotBeWrittenIsReadEditedAndSavedElsewhere)
{
    const fs::path file = open_numbered(3);
    const std::string before = file_bytes(file);
    const fs::path copy = root().folder() / L"写し.bok";
    const std::wstring failure =
        L"Error: Book の保存に失敗\r\n" + file.wstring() + L"\r\n\r\nこのファイルは読取り専用";
    {
        const ReadOnly protection(file);
        click_control(command::next_page);
        expect_page(L"二");
        click_control(command::toggle_mark);
        write_first(L"い");
        click_control(command::save_if_changed);
        answer_box(failure, Icon::warning, IDOK);
        expect_title(L"手帖 *");
        click_control(command::next_page);
        answer_box(leave_question, Icon::question, IDYES);
        answer_box(failure, Icon::warning, IDOK);
        expect_page(L"い二");
        book_menu(true).choose(command::save_book_as, Hand::mouse);
        program().wait_for_file_dialog().choose(copy.wstring());
        expect_title(L"写し");
        click_control(command::next_page);
        expect_page(L"三");
        close();
    }
    EXPECT_EQ(file_bytes(file), before);
    EXPECT_EQ(first_line(load_book(copy).pages[1]), L"い二");
    EXPECT_NE(load_book(copy).pages[1].mark, 0);
}

TEST_F(Day, ABackupIsMadeBySwitchingBooksWhenTheSettingIsOn)
{
    write_bytes(root().settings_file(), "[COMMON]\r\nAUTOBACKUP=1\r\n");
    const fs::path other = root().add_book(L"ほか.bok", { make_page(L"ほか") });
    const fs::path file = open_numbered(1);
    const fs::path backups = root().folder() / L"book_backup";
    const std::string at_start = file_bytes(file);
    EXPECT_EQ(file_bytes(backups / L"手帖.bok"), at_start);
    write_first(L"い");
    chord({ VK_CONTROL, 'S' });
    expect_title(L"手帖");
    EXPECT_EQ(file_bytes(backups / L"手帖.bok"), at_start);
    choose_file(command::open_book, other);
    expect_page(L"ほか");
    EXPECT_EQ(file_bytes(backups / L"ほか.bok"), file_bytes(other));
    choose_file(command::open_book, file);
    expect_page(L"い一");
    EXPECT_FALSE(program().has_dialog());
    EXPECT_EQ(file_bytes(backups / L"手帖.bok"), file_bytes(file));
    EXPECT_NE(file_bytes(file), at_start);
}
