// The creation of links by the main window, and the search for a moved file.
#include "core/folders.hpp"
#include "tests/support/gui_app_controls.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_file_dialog.hpp"
#include "tests/support/gui_links.hpp"
#include "tests/support/gui_silent_share.hpp"
#include <bcrypt.h>

// The addresses of the imports, which the linker names after the functions.
extern "C" void* __imp_BCryptHash; // NOLINT(bugprone-reserved-identifier)
extern "C" void* __imp_BCryptOpenAlgorithmProvider; // NOLINT(bugprone-reserved-identifier)
extern "C" void* __imp_CoCreateInstance; // NOLINT(bugprone-reserved-identifier)
extern "C" void* __imp__beginthreadex; // NOLINT(bugprone-reserved-identifier)

namespace {

namespace command = core::command;
namespace fs = std::filesystem;
using gui::MetBox;
using gui::target_of;
using test_support::write_text;
using Files = std::vector<std::wstring>;
using Texts = std::vector<std::wstring>;

constexpr std::wstring_view start_line = L"start_shortcut_creation_async()\r\n";

class AppLinks : public gui::AppControls {
protected:
    static std::wstring folder() { return core::folders().shortcut; }
    static std::wstring link_of(const std::wstring& path) { return gui::link_of(folder(), path); }
    static bool has_link(const std::wstring& path) { return fs::exists(link_of(path)); }
    static bool link_comes(const std::wstring& path)
    {
        return gui::pump_until([&] { return has_link(path); });
    }
    std::wstring made(const std::wstring& name) const
    {
        write_text(file(name), L"x");
        return file(name);
    }
    void open_with(Files files, std::uint64_t current = 0)
    {
        book::Book book = book_of({ page(L"1\r\n"), page(L"2\r\n") });
        book.pages[0].files = std::move(files);
        book.pages[0].current_file = current;
        open(book);
    }
    const Files& files() { return book().pages[0].files; }
    std::wstring row(int index) const
    {
        return control<ovlib::ComboBox>(command::file_combo).item_text(index);
    }
    // To be called on a box's thread while it is open.
    void send_command(int id) { SendMessageW(window().hwnd(), WM_COMMAND, static_cast<WPARAM>(id), 0); }
    static Texts texts_of(const std::vector<MetBox>& boxes)
    {
        Texts texts;
        for (const MetBox& box : boxes)
            texts.push_back(box.text);
        return texts;
    }

    gui::ComOnThread com;
};

TEST_F(AppLinks, AreCreatedForEveryEntryOfALoadedBook)
{
    const gui::LogEar log;
    book::Book two = book_of({ page(L"1\r\n"), page(L"2\r\n") });
    two.pages[0].files = { made(L"絵.png"), file(L"無い.png"), L"http://x.invalid/a" };
    two.pages[1].files = { made(L"音.mp3") };
    open(two);
    EXPECT_EQ(gui::link_lines(log), start_line);
    ASSERT_TRUE(link_comes(file(L"音.mp3")));
    EXPECT_EQ(target_of(link_of(file(L"絵.png"))), file(L"絵.png"));
    EXPECT_EQ(gui::count_files(folder()), 2u);
}

TEST_F(AppLinks, AreNotCreatedForABookThatDisablesThem)
{
    const gui::LogEar log;
    book::Book unwanting = book_of({ page(L"1\r\n") });
    unwanting.pages[0].files = { made(L"絵.png") };
    unwanting.header.auto_file_search = 0;
    open(unwanting);
    EXPECT_EQ(gui::link_lines(log), start_line);
    close();
    EXPECT_FALSE(fs::exists(folder()));
}

TEST_F(AppLinks, HaveAFolderEvenWithoutFiles)
{
    open({ page(L"1\r\n") });
    EXPECT_TRUE(fs::is_directory(folder()));
}

TEST_F(AppLinks, WhoseFolderCannotBeCreatedAreGivenUpWithAMessage)
{
    write_text(folder(), L"in the way");
    book::Book one = book_of({ page(L"1\r\n") });
    one.pages[0].files = { made(L"絵.png") };
    const MetBox met = answered(IDOK, [&] { open(one); });
    EXPECT_EQ(met.text, L"ショートカットフォルダの作成に失敗\r\n" + folder());
    EXPECT_TRUE(window().is_accepting_input());
}

TEST_F(AppLinks, WhoseThreadCannotBeStartedAreGivenUpWithAMessage)
{
    using Start = std::uintptr_t(void*, unsigned, unsigned(__stdcall*)(void*), void*, unsigned, unsigned*);
    book::Book one = book_of({ page(L"1\r\n") });
    one.pages[0].files = { made(L"絵.png") };
    const MetBox met = answered(IDOK, [&] {
        const gui::ReplacedImport<Start> failing{ &__imp__beginthreadex,
            [](void*, unsigned, unsigned(__stdcall*)(void*), void*, unsigned, unsigned*) -> std::uintptr_t {
                return 0;
            } };
        open(one);
    });
    EXPECT_EQ(met.text, L"BackgroundThread の起動に失敗");
    EXPECT_FALSE(has_link(file(L"絵.png")));
}

TEST_F(AppLinks, AreNotStartedWhileTheWindowCloses)
{
    const gui::LogEar log;
    open_with({ made(L"絵.png") });
    const gui::Unwritable protection{ file(L"手帖.bok") };
    // The box about the failed save dispatches a further command.
    answered(
        IDOK, [&] { window().send(WM_CLOSE, 0, 0); }, [&] { send_command(command::restore_book); });
    EXPECT_EQ(gui::link_lines(log),
        std::wstring{ start_line } + L"start_shortcut_creation_async() ※cleanup中につき処理中止\r\n");
}

TEST_F(AppLinks, LetTheComboQueryAShareThatDoesNotAnswerOnlyOnce)
{
    const gui::SilentShare share;
    book::Book unwanting = book_of({ page(L"1\r\n") });
    for (int i = 0; i < 9; ++i)
        unwanting.pages[0].files.push_back(L"\\\\silent\\share\\" + std::to_wstring(i));
    unwanting.header.auto_file_search = 0;
    open(unwanting);
    gui::SilentShare::makers_questions = 0;
    command(command::request_refresh, static_cast<std::int64_t>(core::View::file_combo));
    EXPECT_EQ(gui::SilentShare::makers_questions, 1);
    EXPECT_EQ(row(8), L"\\\\silent\\share\\8");
}

TEST_F(AppLinks, StopWithTheWindowEvenOnAShareThatDoesNotAnswer)
{
    const gui::SilentShare share;
    open_with({ L"\\\\silent\\share\\a", L"\\\\silent\\share\\b", made(L"絵.png") });
    ASSERT_TRUE(gui::SilentShare::asked.wait(15'000));
    close();
    EXPECT_FALSE(has_link(file(L"絵.png"))) << "the window waits for the entry in hand, not for the others";
    EXPECT_EQ(saved().pages.size(), 2u);
}

TEST_F(AppLinks, StopBeforeTheBookIsSavedAtTheEnd)
{
    const gui::SilentShare share;
    open_with({ L"\\\\silent\\share\\a" });
    ASSERT_TRUE(gui::SilentShare::asked.wait(15'000));
    const gui::Unwritable protection{ file(L"手帖.bok") };
    bool had_stopped = false;
    answered(
        IDOK, [&] { window().send(WM_CLOSE, 0, 0); },
        [&] { had_stopped = gui::SilentShare::broken_off.wait(0); });
    EXPECT_TRUE(had_stopped);
}

TEST_F(AppLinks, StopEvenIfTheWindowWasNeverClosed)
{
    const gui::SilentShare share;
    open_with({ L"\\\\silent\\share\\a", made(L"絵.png") });
    ASSERT_TRUE(gui::SilentShare::asked.wait(15'000));
    abandon(); // a thread that still ran would end the process
    EXPECT_FALSE(has_link(file(L"絵.png")));
}

class SearchForAMovedFile : public AppLinks {
protected:
    // Imitates a shell that tracks files: the link of the old path leads to the new one.
    void follow(const std::wstring& from, const std::wstring& to) const
    {
        CreateDirectoryW(folder().c_str(), nullptr);
        ASSERT_TRUE((media::ShellLink{ nullptr }.save(to, link_of(from))));
    }
    Texts told(
        const std::vector<int>& answers, const std::function<void()>& meanwhile = [] {})
    {
        return texts_of(answered_all(
            answers, [&] { command(command::search_moved_file); }, meanwhile));
    }
    std::wstring question(const std::wstring& found) const
    {
        return L"ファイルが見つかりました．リストを更新しますか？\r\n" + found;
    }
    std::wstring no_link(const std::wstring& path) const
    {
        return L"ショートカットファイルが見つかりませんでした\r\n" + path;
    }
    static std::wstring removal(const std::wstring& entry)
    {
        return L"リストからこのファイルを削除しますか？\r\n" + entry;
    }
};

TEST_F(SearchForAMovedFile, PutsTheFoundPathIntoTheListAndTheCombo)
{
    follow(file(L"元.png"), made(L"先.png"));
    open_with({ L"http://x.invalid/a", file(L"元.png") }, 1);
    EXPECT_EQ(row(1), file(L"元.png"));
    EXPECT_EQ(told({ IDYES }), Texts{ question(file(L"先.png")) });
    EXPECT_EQ(files(), (Files{ L"http://x.invalid/a", file(L"先.png") }));
    EXPECT_EQ(row(1), L"先.png");
    EXPECT_EQ(control<ovlib::ComboBox>(command::file_combo).selected(), 1);
    EXPECT_EQ(target_of(link_of(file(L"先.png"))), file(L"先.png"));
    EXPECT_TRUE(has_link(file(L"元.png"))) << "no link is ever deleted";
    EXPECT_EQ(saved().pages[0].files[1], file(L"元.png")) << "the Book is not saved by this";
}

TEST_F(SearchForAMovedFile, ChangesNothingIfTheUserDeclines)
{
    follow(file(L"元.png"), made(L"先.png"));
    open_with({ file(L"元.png") });
    EXPECT_EQ(told({ IDNO }), Texts{ question(file(L"先.png")) });
    EXPECT_EQ(files(), Files{ file(L"元.png") });
    EXPECT_FALSE(has_link(file(L"先.png")));
}

TEST_F(SearchForAMovedFile, ReportsNothingForAnExistingFile)
{
    open_with({ made(L"絵.png") });
    command(command::search_moved_file); // a box would block the test
    EXPECT_EQ(files(), Files{ file(L"絵.png") });
}

TEST_F(SearchForAMovedFile, FailsForAnAddress)
{
    open_with({ L"http://x.invalid/a" });
    EXPECT_EQ(told({ IDOK }), Texts{ L"このファイルは探索できません: http://x.invalid/a" });
}

TEST_F(SearchForAMovedFile, FailsForAnEmptyEntry)
{
    open_with({});
    EXPECT_EQ(told({ IDOK }), Texts{ L"このファイルは探索できません: " });
}

TEST_F(SearchForAMovedFile, OffersToRemoveAnEntryWithoutALink)
{
    const std::wstring gone = file(L"無い.png");
    open_with({ gone, L"http://x.invalid/a" });
    EXPECT_EQ(told({ IDOK, IDNO }), (Texts{ no_link(gone), removal(gone) }));
    EXPECT_EQ(files().size(), 2u);
    EXPECT_EQ(told({ IDOK, IDYES }), (Texts{ no_link(gone), removal(gone) }));
    EXPECT_EQ(files(), Files{ L"http://x.invalid/a" });
    EXPECT_EQ(control<ovlib::ComboBox>(command::file_combo).count(), 1);
}

// The entry in the question is no longer selected, so neither it nor the other may be removed.
TEST_F(SearchForAMovedFile, OffersNoRemovalIfAnotherEntryWasSelectedMeanwhile)
{
    open_with({ file(L"無い.png"), L"http://x.invalid/a" });
    EXPECT_EQ(told({ IDOK }, [&] { send_command(command::next_file); }), Texts{ no_link(file(L"無い.png")) });
    EXPECT_EQ(files().size(), 2u);
}

TEST_F(SearchForAMovedFile, ReplacesNothingIfAnotherEntryWasSelectedMeanwhile)
{
    follow(file(L"元.png"), made(L"先.png"));
    open_with({ file(L"元.png"), L"http://x.invalid/a" });
    told({ IDYES }, [&] { send_command(command::next_file); });
    EXPECT_EQ(files(), (Files{ file(L"元.png"), L"http://x.invalid/a" }));
}

TEST_F(SearchForAMovedFile, ReplacesNothingIfAnotherPageArrivedMeanwhile)
{
    follow(file(L"元.png"), made(L"先.png"));
    open_with({ file(L"元.png") });
    told({ IDYES }, [&] { send_command(command::add_page_at_end); });
    EXPECT_EQ(files(), Files{ file(L"元.png") });
    EXPECT_EQ(control<ovlib::ComboBox>(command::file_combo).count(), 0);
}

// The shell tracks files by a service. Without it the link still names the old path.
TEST_F(SearchForAMovedFile, ReportsALinkThatStillNamesTheOldPath)
{
    open_with({ made(L"元.png") });
    ASSERT_TRUE(link_comes(file(L"元.png")));
    fs::rename(file(L"元.png"), file(L"先.png"));
    EXPECT_EQ(told({ IDOK }), Texts{ L"ファイルの探索に失敗しました\r\n" + file(L"元.png") });
    EXPECT_EQ(files(), Files{ file(L"元.png") });
}

TEST_F(SearchForAMovedFile, ReportsAFileThatIsNoLink)
{
    CreateDirectoryW(folder().c_str(), nullptr);
    write_text(link_of(file(L"元.png")), L"junk");
    open_with({ file(L"元.png") });
    EXPECT_EQ(told({ IDOK }), Texts{ L"ファイルの探索に失敗しました\r\n" + file(L"元.png") });
}

// The worker uses the entry as written, the search its full path.
TEST_F(SearchForAMovedFile, DoesNotFindTheLinkOfARelativeEntry)
{
    made(L"元.png");
    open_with({ L"元.png" });
    ASSERT_TRUE(link_comes(L"元.png"));
    fs::remove(file(L"元.png"));
    EXPECT_EQ(told({ IDOK, IDNO }), (Texts{ no_link(file(L"元.png")), removal(L"元.png") }));
}

TEST_F(SearchForAMovedFile, UsesEarlierLinksEvenForABookThatDisablesThem)
{
    follow(file(L"元.png"), made(L"先.png"));
    book::Book unwanting = book_of({ page(L"1\r\n") });
    unwanting.pages[0].files = { file(L"元.png") };
    unwanting.header.auto_file_search = 0;
    open(unwanting);
    told({ IDYES });
    EXPECT_EQ(files(), Files{ file(L"先.png") });
}

TEST_F(SearchForAMovedFile, ReportsThatTheShellIsNotAvailable)
{
    open_with({ file(L"元.png") });
    const gui::ReplacedImport<decltype(CoCreateInstance)> failing{ &__imp_CoCreateInstance,
        [](REFCLSID, LPUNKNOWN, DWORD, REFIID, LPVOID* object) -> HRESULT {
            *object = nullptr;
            return E_FAIL;
        } };
    EXPECT_EQ(told({ IDOK }), Texts{ L"Shortcut の初期化に失敗しました" });
}

TEST_F(SearchForAMovedFile, ReportsThatNoHashIsAvailable)
{
    open_with({ file(L"元.png") });
    const gui::ReplacedImport<decltype(BCryptOpenAlgorithmProvider)> failing{
        &__imp_BCryptOpenAlgorithmProvider,
        [](BCRYPT_ALG_HANDLE*, LPCWSTR, LPCWSTR, ULONG) -> NTSTATUS { return -1; }
    };
    EXPECT_EQ(told({ IDOK }), Texts{ L"Hash の初期化に失敗しました" });
}

TEST_F(SearchForAMovedFile, ReportsThatThePathHasNoHash)
{
    open_with({ file(L"元.png") });
    const gui::ReplacedImport<decltype(BCryptHash)> failing{ &__imp_BCryptHash,
        [](BCRYPT_ALG_HANDLE, PUCHAR, ULONG, PUCHAR, ULONG, PUCHAR, ULONG) -> NTSTATUS { return -1; } };
    EXPECT_EQ(told({ IDOK }), Texts{ L"ハッシュの生成に失敗しました\r\n" + file(L"元.png") });
}

TEST_F(SearchForAMovedFile, ReportsThatTheNewLinkCannotBeCreated)
{
    follow(file(L"元.png"), made(L"先.png"));
    open_with({ file(L"元.png") });
    fs::create_directory(link_of(file(L"先.png")));
    EXPECT_EQ(told({ IDYES, IDOK }),
        (Texts{ question(file(L"先.png")),
            L"ショートカットの作成に失敗しました\r\n" + link_of(file(L"先.png")) }));
    EXPECT_EQ(files(), Files{ file(L"元.png") });
}

TEST_F(SearchForAMovedFile, EndsIfTheWindowIsClosedMeanwhile)
{
    follow(file(L"元.png"), made(L"先.png"));
    open_with({ file(L"元.png") });
    told({ IDYES }, [&] { SendMessageW(window().hwnd(), WM_CLOSE, 0, 0); });
    EXPECT_EQ(files(), Files{ file(L"元.png") });
}

} // namespace
