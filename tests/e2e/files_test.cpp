// A page's files: adding, duplicating, opening, finding moved ones, reordering, and the page's folder.
#include "app/file_texts.hpp"
#include "app/menus.hpp"
#include "driver_main_window.hpp"
#include "driver_shell.hpp"
#include "media/file_links.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;
using Files = std::vector<std::wstring>;

class FilesOfAPage : public MainWindowTest {
protected:
    fs::path made(const std::wstring& name, const std::string& bytes = "x") const
    {
        const fs::path file = root().folder() / name;
        write_bytes(file, bytes);
        return file;
    }
    static book::Page page_with(Files files, std::uint64_t current = 0)
    {
        book::Page page = make_page(L"一");
        page.files = std::move(files);
        page.current_file = current;
        return page;
    }
    void open_with(Files files, std::uint64_t current = 0)
    {
        book_file_ = root().add_book(L"手帖.bok", { page_with(std::move(files), current), make_page(L"二") });
        open_settled(book_file_);
    }

    // The menu opens at the pointer, which must not be over a row yet.
    PopupMenu file_menu(const app::FileMenuState& state)
    {
        return { program(), app::file_menu(state), [this] {
                    move_mouse(background());
                    main_window().post_command(command::show_file_menu);
                } };
    }
    PopupMenu folder_menu(bool has_folder)
    {
        return { program(), app::folder_menu(has_folder),
            [this] { click_control(command::show_folder_menu); } };
    }
    static app::FileMenuState one_file(const fs::path& file)
    {
        return { .entry_count = 1,
            .entry = file.wstring(),
            .entry_name = file.filename().wstring(),
            .is_entry_file = true };
    }

    // The texts of the combo box in order.
    Files combo_rows() const
    {
        Files rows;
        const Window combo = box(command::file_combo);
        const auto count = static_cast<std::size_t>(combo.send(CB_GETCOUNT));
        for (std::size_t i = 0; i < count; ++i) {
            std::wstring row(static_cast<std::size_t>(combo.send(CB_GETLBTEXTLEN, i)) + 1, L'\0');
            row.resize(
                static_cast<std::size_t>(combo.send(CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(row.data()))));
            rows.push_back(row);
        }
        return rows;
    }
    void expect_rows(const Files& rows, LRESULT selected, const Where& where = Where::current()) const
    {
        expect_soon(
            rows, [this] { return combo_rows(); }, where);
        expect_soon(
            selected, [this] { return box(command::file_combo).send(CB_GETCURSEL); }, where);
    }
    Files saved_files()
    {
        close();
        return load_book(book_file_).pages[0].files;
    }

    fs::path link_of(const fs::path& file) const
    {
        media::HashedLinkNames names{ (root().folder() / L"dat" / L"shortcut").wstring() + L"\\" };
        return names.link_of(file.wstring()).value();
    }
    void wait_for_link(const fs::path& file) const
    {
        require("a link is made", [&] { return fs::exists(link_of(file)); });
    }
    void search() { main_window().post_command(command::search_moved_file); }
    static std::wstring no_link(const fs::path& file)
    {
        return L"ショートカットファイルが見つかりませんでした\r\n" + file.wstring();
    }
    static std::wstring removal(const fs::path& file)
    {
        return L"リストからこのファイルを削除しますか？\r\n" + file.wstring();
    }

    fs::path book_file_;
};

} // namespace

TEST_F(FilesOfAPage, OneIsAddedByTheMenuAndItsDialog)
{
    open_with({});
    const fs::path picture = made(L"絵 一.png");
    file_menu({}).choose(command::add_files, Hand::mouse);
    const FileDialog dialog = program().wait_for_file_dialog();
    EXPECT_EQ(dialog.caption(), L"ファイルの選択");
    dialog.choose(picture.wstring());
    expect_rows({ L"絵 一.png" }, 0);
    wait_for_link(picture);
    EXPECT_EQ(saved_files(), Files{ picture.wstring() });
}

TEST_F(FilesOfAPage, SeveralAreAddedAtOnceAfterTheOthers)
{
    open_with({ L"http://x.invalid/a" });
    const fs::path first = made(L"一.png");
    const fs::path second = made(L"二.png");
    main_window().post_command(command::add_files);
    program().wait_for_file_dialog().choose(L"\"" + first.wstring() + L"\" \"" + second.wstring() + L"\"");
    expect_soon(LRESULT{ 3 }, [&] { return box(command::file_combo).send(CB_GETCOUNT); });
    expect_soon(LRESULT{ 1 }, [&] { return box(command::file_combo).send(CB_GETCURSEL); });
    wait_for_link(first);
    wait_for_link(second);
    Files files = saved_files();
    std::sort(files.begin() + 1, files.end());
    EXPECT_EQ(files, (Files{ L"http://x.invalid/a", first.wstring(), second.wstring() }));
}

TEST_F(FilesOfAPage, NoneIsAddedWhenTheDialogIsCancelled)
{
    open_with({});
    main_window().post_command(command::add_files);
    program().wait_for_file_dialog().cancel();
    expect_rows({}, CB_ERR);
    settle();
    EXPECT_EQ(saved_files(), Files{});
}

TEST_F(FilesOfAPage, OneIsDuplicatedElsewhereAndOntoItself)
{
    const fs::path source = made(L"元.png", "old");
    open_with({ source.wstring() });
    const fs::path copy = root().folder() / L"写し.png";
    file_menu(one_file(source)).choose(command::duplicate_file, Hand::mouse);
    const FileDialog dialog = program().wait_for_file_dialog();
    EXPECT_EQ(dialog.caption(), L"ファイルの保存先を指定してください");
    EXPECT_EQ(dialog.file_name(), L"元.png");
    dialog.choose(copy.wstring());
    answer_box(app::duplicated_text(source.wstring(), copy.wstring()), Icon::none, IDOK);
    EXPECT_EQ(file_bytes(copy), "old");

    make_old(source);
    main_window().post_command(command::duplicate_file);
    program().wait_for_file_dialog().choose(source.wstring());
    program().wait_for_box().answer(IDYES); // the dialog asks whether to overwrite
    answer_box(app::duplicated_text(source.wstring(), source.wstring()), Icon::none, IDOK);
    EXPECT_EQ(file_bytes(source), "old");
    EXPECT_TRUE(is_old(source));
}

TEST_F(FilesOfAPage, ADuplicateThatCannotBeWrittenIsReported)
{
    const fs::path source = made(L"元.png", "new");
    const fs::path copy = made(L"写し.png", "old");
    open_with({ source.wstring() });
    const ReadOnly protection(copy);
    SetFileAttributesW(copy.c_str(), FILE_ATTRIBUTE_NORMAL); // otherwise the dialog itself refuses the file
    main_window().post_command(command::duplicate_file);
    program().wait_for_file_dialog().choose(copy.wstring());
    program().wait_for_box().answer(IDYES);
    const MessageDialog box = program().wait_for_box();
    EXPECT_EQ(box.caption(), L"Pagewick");
    EXPECT_EQ(box.text().find(L"複製しました"), std::wstring::npos);
    box.answer(IDOK);
    EXPECT_EQ(file_bytes(copy), "old");
}

TEST_F(FilesOfAPage, TheMenuIsGreyWhereThereIsNothingToWorkOn)
{
    open_with({});
    for (const int id : { command::duplicate_file, command::show_file_in_folder, command::open_file })
        file_menu({}).choose_in_vain(id, Hand::mouse);
    EXPECT_FALSE(program().has_dialog());
}

TEST_F(FilesOfAPage, OneIsOpenedByTheUsersProgram)
{
    const fs::path page = made(L"紙 一.pwtest");
    open_with({ L"紙 一.pwtest" });
    const RecordedProgram recorder(root().folder(), L".pwtest");
    file_menu(one_file(page)).choose(command::open_file, Hand::mouse);
    expect_soon(Files{ L"\"" + page.wstring() + L"\"" }, [&] { return recorder.calls(); });
    EXPECT_FALSE(program().has_dialog());
}

TEST_F(FilesOfAPage, ADoubleClickOnThePaneOpensAnExistingOne)
{
    const fs::path page = made(L"紙.pwtest");
    const RecordedProgram recorder(root().folder(), L".pwtest");
    open_with({ page.wstring() });
    double_click(middle(layout().file_pane));
    expect_soon(Files{ L"\"" + page.wstring() + L"\"" }, [&] { return recorder.calls(); });
}

TEST_F(FilesOfAPage, ADoubleClickOnThePaneSearchesAMissingOne)
{
    const fs::path gone = root().folder() / L"無い.png";
    open_with({ gone.wstring() });
    double_click(middle(layout().file_pane));
    answer_box(no_link(gone), Icon::warning, IDOK);
    answer_box(removal(gone), Icon::question, IDYES);
    expect_rows({}, CB_ERR);
    EXPECT_EQ(saved_files(), Files{});
}

TEST_F(FilesOfAPage, OneThatNoProgramOpensIsNamed)
{
    open_with({ made(L"紙.pwnone").wstring() });
    main_window().post_command(command::open_file);
    answer_box(app::open_file_failure((root().folder() / L"紙.pwnone").wstring()), Icon::warning, IDOK);
}

TEST_F(FilesOfAPage, OneIsShownInItsFolder)
{
    const fs::path picture = made(L"絵.png");
    open_with({ picture.wstring() });
    file_menu(one_file(picture)).choose(command::show_file_in_folder, Hand::mouse);
    close_folder_window(root().folder().filename().wstring());
}

TEST_F(FilesOfAPage, AMissingOneIsShownInNoFolder)
{
    const std::wstring gone = (root().folder() / L"無い.png").wstring();
    open_with({ gone });
    main_window().post_command(command::show_file_in_folder);
    answer_box(app::show_in_folder_failure(gone), Icon::warning, IDOK);
}

TEST_F(FilesOfAPage, AMovedOneIsNotFoundIfTheSystemDoesNotTrackFiles)
{
    const fs::path old_place = made(L"元.png");
    open_with({ old_place.wstring() });
    wait_for_link(old_place);
    fs::rename(old_place, root().folder() / L"先.png");
    search();
    answer_box(L"ファイルの探索に失敗しました\r\n" + old_place.wstring(), Icon::warning, IDOK);
    EXPECT_EQ(saved_files(), Files{ old_place.wstring() });
}

TEST_F(FilesOfAPage, AMovedOneIsFoundAgainThroughItsLink)
{
    const fs::path old_place = made(L"元.png");
    const fs::path new_place = made(L"先.png");
    open_with({ old_place.wstring(), new_place.wstring() });
    wait_for_link(old_place);
    wait_for_link(new_place);
    // What a system that tracks files does: the old link now has the new target.
    write_bytes(link_of(old_place), file_bytes(link_of(new_place)));
    fs::remove(old_place);
    fs::remove(link_of(new_place));
    search();
    answer_box(
        L"ファイルが見つかりました．リストを更新しますか？\r\n" + new_place.wstring(), Icon::question, IDYES);
    expect_rows({ L"先.png", L"先.png" }, 0);
    EXPECT_TRUE(fs::exists(link_of(new_place)));
    EXPECT_TRUE(fs::exists(link_of(old_place)));
    EXPECT_EQ(saved_files(), (Files{ new_place.wstring(), new_place.wstring() }));
}

TEST_F(FilesOfAPage, OneWithoutALinkIsRemovedOnYesAndKeptOnNo)
{
    const fs::path gone = root().folder() / L"無い.png";
    open_with({ L"http://x.invalid/a", gone.wstring() }, 1);
    for (const int answer : { IDNO, IDYES }) {
        expect_rows({ L"http://x.invalid/a", gone.wstring() }, 1);
        search();
        answer_box(no_link(gone), Icon::warning, IDOK);
        answer_box(removal(gone), Icon::question, answer);
    }
    expect_rows({ L"http://x.invalid/a" }, 0);
    EXPECT_EQ(saved_files(), Files{ L"http://x.invalid/a" });
}

TEST_F(FilesOfAPage, AnAddressIsNotSearchedFor)
{
    open_with({ L"http://x.invalid/a" });
    search();
    answer_box(L"このファイルは探索できません: http://x.invalid/a", Icon::warning, IDOK);
}

TEST_F(FilesOfAPage, EntriesAreSelectedMovedAndSorted)
{
    open_with({ L"C:\\い.png", L"C:\\ろ.png", L"C:\\は.png" });
    click_control(command::last_file);
    expect_rows({ L"C:\\い.png", L"C:\\ろ.png", L"C:\\は.png" }, 2);
    click_control(command::first_file);
    expect_rows({ L"C:\\い.png", L"C:\\ろ.png", L"C:\\は.png" }, 0);
    main_window().send_command(command::next_file);
    main_window().send_command(command::move_file_down);
    expect_rows({ L"C:\\い.png", L"C:\\は.png", L"C:\\ろ.png" }, 2);
    main_window().send_command(command::move_file_to_top);
    expect_rows({ L"C:\\ろ.png", L"C:\\い.png", L"C:\\は.png" }, 0);
    main_window().send_command(command::sort_files_ascending);
    expect_rows({ L"C:\\い.png", L"C:\\は.png", L"C:\\ろ.png" }, 0);
    main_window().send_command(command::sort_files_descending);
    expect_rows({ L"C:\\ろ.png", L"C:\\は.png", L"C:\\い.png" }, 0);
    EXPECT_EQ(saved_files(), (Files{ L"C:\\ろ.png", L"C:\\は.png", L"C:\\い.png" }));
}

TEST_F(FilesOfAPage, TheirFolderIsChosenOpenedAndRemoved)
{
    const fs::path folder = root().folder() / L"資 料";
    fs::create_directory(folder);
    open_with({});
    folder_menu(false).choose(command::choose_reference_folder, Hand::mouse);
    const FileDialog dialog = program().wait_for_file_dialog();
    EXPECT_EQ(dialog.caption(), L"ライブラリの選択");
    dialog.choose(folder.wstring());

    folder_menu(true).choose(command::open_reference_folder, Hand::mouse);
    close_folder_window(L"資 料");
    EXPECT_EQ(load_book(book_file_).pages[0].reference_folder, folder.wstring());

    folder_menu(true).choose(command::clear_reference_folder, Hand::mouse);
    answer_box(L"フォルダの選択を取消しますか？\r\n" + folder.wstring(), Icon::question, IDYES);
    close();
    EXPECT_EQ(load_book(book_file_).pages[0].reference_folder, L"");
}

TEST_F(FilesOfAPage, AMissingFolderIsNamed)
{
    book::Page page = make_page(L"一");
    page.reference_folder = (root().folder() / L"無い").wstring();
    open_settled(root().add_book(L"手帖.bok", { page }));
    main_window().post_command(command::open_reference_folder);
    answer_box(app::open_folder_failure(page.reference_folder), Icon::none, IDOK);
}
