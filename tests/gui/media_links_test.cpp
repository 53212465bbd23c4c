// Shell links, and the thread that creates them.
#include "book/book.hpp"
#include "media/wnd/background_thread.hpp"
#include "media/wnd/shell_link.hpp"
#include "tests/support/environment.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_folder.hpp"
#include "tests/support/gui_links.hpp"
#include "tests/support/gui_log.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_silent_share.hpp"
#include <new>
#include <thread>

// The address of the import, which the linker names after the function.
extern "C" void* __imp_CoInitializeEx; // NOLINT(bugprone-reserved-identifier)

namespace {

using gui::link_of;
using gui::target_of;
using media::BackgroundThread;
using media::QueueCounts;
using media::ShellLink;
using Texts = std::vector<std::wstring>;

class ShellLinks : public testing::Test {
protected:
    std::wstring made(const std::wstring& name) const { return folder.write(name, { 'x' }); }

    gui::ComOnThread com;
    gui::TempFolder folder;
    ShellLink links{ nullptr };
};

TEST_F(ShellLinks, LeadToTheirTargets)
{
    ASSERT_TRUE(links.is_ready());
    for (const wchar_t* name : { L"a.txt", L"絵 と 音.png", L"長い名前の中の点.a.b" }) {
        const std::wstring link = folder.file(L"link.lnk");
        ASSERT_TRUE(links.save(made(name), link)) << name;
        EXPECT_EQ(target_of(link), folder.file(name));
    }
}

TEST_F(ShellLinks, LeadToFoldersToo)
{
    ASSERT_TRUE(links.save(folder.path(), folder.file(L"link.lnk")));
    EXPECT_EQ(links.resolve(folder.file(L"link.lnk")), folder.path());
}

TEST_F(ShellLinks, AreNotChangedWhenTheyAreResolved)
{
    links.save(made(L"a.txt"), folder.file(L"link.lnk"));
    const auto before = folder.read(L"link.lnk");
    links.resolve(folder.file(L"link.lnk"));
    EXPECT_EQ(folder.read(L"link.lnk"), before);
}

TEST_F(ShellLinks, ThatAreNoLinksLeadNowhere)
{
    EXPECT_EQ(links.resolve(folder.file(L"無い.lnk")), L"");
    EXPECT_EQ(links.resolve(made(L"junk.lnk")), L"");
    EXPECT_EQ(links.resolve(folder.path()), L"");
}

TEST_F(ShellLinks, AreWrittenUnderAnotherNameFirstAndReplaceALeftoverThere)
{
    const std::wstring link = folder.file(L"link.lnk");
    std::wstring beside;
    media::save_whole(link, [&](const std::wstring& file) {
        beside = file;
        return false;
    });
    {
        const HANDLE taken = CreateFileW(
            beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(taken, INVALID_HANDLE_VALUE);
        EXPECT_FALSE(links.save(made(L"a.txt"), link));
        EXPECT_FALSE(std::filesystem::exists(link));
        CloseHandle(taken);
    }
    ASSERT_TRUE(links.save(made(L"a.txt"), link));
    EXPECT_EQ(target_of(link), folder.file(L"a.txt"));
    EXPECT_FALSE(std::filesystem::exists(beside));
}

TEST_F(ShellLinks, AreNotSavedWhereNoFileCanBe)
{
    EXPECT_FALSE(links.save(made(L"a.txt"), folder.file(L"無い\\link.lnk")));
    EXPECT_FALSE(links.save(made(L"a.txt"), folder.path()));
}

// The shell is not available without COM.
TEST(ShellLink, IsNotReadyWithoutCom)
{
    std::thread{ [] {
        ShellLink link{ nullptr };
        EXPECT_FALSE(link.is_ready());
        EXPECT_EQ(link.resolve(L"C:\\a.lnk"), L"");
        EXPECT_FALSE(link.save(L"C:\\a", L"C:\\a.lnk"));
    } }.join();
}

class BackgroundLinks : public testing::Test {
protected:
    BackgroundLinks() { CreateDirectoryW(links().c_str(), nullptr); }

    std::wstring links() const { return folder.file(L"links"); }
    Texts made_files(int count) const
    {
        Texts paths;
        for (int i = 0; i < count; ++i)
            paths.push_back(folder.write(L"絵" + std::to_wstring(i) + L".png", { 'x' }));
        return paths;
    }
    std::size_t link_count() const { return gui::count_files(links()); }
    void start(const Texts& paths)
    {
        thread.stop_breaking_off();
        thread.queue_paths(paths, nullptr);
        thread.start(nullptr, 0);
    }
    // The worker holds the queue during a whole run.
    bool is_done() const
    {
        const std::unique_lock look{ thread.queue().lock(), std::try_to_lock };
        return look.owns_lock() && thread.queue().entries().empty();
    }
    bool wait() const
    {
        return gui::poll_until([this] { return is_done(); });
    }

    gui::TempFolder folder;
    BackgroundThread thread{ links() + L"\\" };
};

TEST_F(BackgroundLinks, AreCreatedForExistingFiles)
{
    const gui::ComOnThread com;
    Texts paths = made_files(3);
    paths.push_back(folder.path());
    paths.insert(paths.begin(), { folder.file(L"無い.png"), L"http://x.invalid/a", L"" });
    start(paths);
    ASSERT_TRUE(wait());
    EXPECT_EQ(link_count(), 4u);
    for (std::size_t i = 3; i < paths.size(); ++i)
        EXPECT_EQ(target_of(link_of(links(), paths[i])), paths[i]);
}

TEST_F(BackgroundLinks, AreCreatedForEveryPageOfABook)
{
    const Texts paths = made_files(4);
    book::Book book;
    book.pages.resize(3);
    book.pages[0].files = { paths[0], paths[0], L"https://x.invalid/b" };
    book.pages[2].files = { paths[1], paths[2] };
    thread.queue_paths({ paths[3] }, nullptr);
    EXPECT_EQ(thread.queue_whole_book(book, nullptr), (QueueCounts{ 0, 5 })) << "what was left is dropped";
    thread.start(nullptr, 0);
    ASSERT_TRUE(wait());
    EXPECT_EQ(link_count(), 3u);
}

TEST_F(BackgroundLinks, AreNeverRewritten)
{
    const Texts paths = made_files(1);
    const std::wstring link = link_of(links(), paths[0]);
    std::filesystem::copy_file(paths[0], link);
    start(paths);
    ASSERT_TRUE(wait());
    EXPECT_EQ(std::filesystem::file_size(link), 1u);
}

TEST_F(BackgroundLinks, AreNotChangedIfTheShellIsNotAvailable)
{
    const gui::ReplacedImport<decltype(CoInitializeEx)> failing{ &__imp_CoInitializeEx,
        [](LPVOID, DWORD) -> HRESULT { return E_FAIL; } };
    const Texts paths = made_files(2);
    start(paths);
    thread.stop_breaking_off();
    EXPECT_EQ(thread.queue().entries(), paths);
    EXPECT_EQ(link_count(), 0u);
}

TEST_F(BackgroundLinks, SurviveAnExceptionOfTheirThread)
{
    const gui::LogEar log;
    {
        const gui::ReplacedImport<decltype(CoInitializeEx)> raising{ &__imp_CoInitializeEx,
            [](LPVOID, DWORD) -> HRESULT { throw std::bad_alloc(); } };
        start(made_files(2));
        thread.stop_breaking_off();
    }
    EXPECT_EQ(log.heard(), L"BackgroundThread の処理に失敗\r\n");
    EXPECT_EQ(thread.queue().entries().size(), 2u);
    thread.start(nullptr, 0);
    ASSERT_TRUE(wait()) << "neither the queue nor the thread is held any more";
    EXPECT_EQ(link_count(), 2u);
}

DWORD handle_count()
{
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return count;
}

TEST_F(BackgroundLinks, CanBeStartedAndStoppedThousandsOfTimes)
{
    const auto rounds = static_cast<int>(test_support::number_from_environment("PAGEWICK_SOAK_ROUNDS", 2000));
    const Texts paths = made_files(5);
    start(paths);
    ASSERT_TRUE(wait());
    thread.stop_breaking_off();
    const DWORD before = handle_count();
    for (int round = 0; round < rounds; ++round) {
        start(paths);
        if (round % 3 == 0)
            Sleep(0);
    }
    ASSERT_TRUE(wait());
    thread.stop_breaking_off();
    EXPECT_LE(handle_count(), before + 2);
    EXPECT_EQ(link_count(), 5u);
}

TEST_F(BackgroundLinks, EndWithTheOwnerOfTheirThread)
{
    const gui::SilentShare share;
    const Texts paths = made_files(2);
    {
        BackgroundThread other{ links() + L"\\" };
        other.queue_paths({ paths[0], L"\\\\silent\\share\\a", paths[1] }, nullptr);
        other.start(nullptr, 0);
        ASSERT_TRUE(gui::SilentShare::asked.wait(15'000));
    }
    EXPECT_EQ(link_count(), 1u);
}

TEST_F(BackgroundLinks, AreGivenUpOnAShareThatDoesNotAnswer)
{
    const gui::SilentShare share;
    start({ L"\\\\silent\\share\\a", L"\\\\silent\\share\\b" });
    ASSERT_TRUE(gui::SilentShare::asked.wait(15'000));
    thread.stop_breaking_off();
    EXPECT_TRUE(thread.queue().is_interrupted());
    EXPECT_EQ(thread.queue().resume_index(), 1u) << "the entry in hand is given up, the next not begun";
}

TEST_F(BackgroundLinks, ContinueAStoppedRunButTakeNewPathsFirst)
{
    const Texts paths = made_files(4);
    {
        const gui::SilentShare share;
        start({ paths[0], L"\\\\silent\\share\\a", paths[1], paths[2] });
        ASSERT_TRUE(gui::SilentShare::asked.wait(15'000));
        thread.stop_breaking_off();
    }
    EXPECT_EQ(link_count(), 1u);
    EXPECT_EQ(thread.queue().resume_index(), 2u);
    EXPECT_EQ(thread.queue_paths({ paths[3] }, nullptr), (QueueCounts{ 1, 2 }));
    EXPECT_EQ(thread.queue().entries(), (Texts{ paths[3], paths[1], paths[2] }));
    thread.start(nullptr, 0);
    ASSERT_TRUE(wait());
    EXPECT_EQ(link_count(), 4u);
    EXPECT_FALSE(thread.queue().is_interrupted());
}

} // namespace
