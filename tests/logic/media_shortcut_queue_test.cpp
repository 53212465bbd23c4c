// The queue of links to make, the worker's run and its start.
#include "app/page_note.hpp"
#include "media/shortcut_queue.hpp"
#include "tests/support/fake_links.hpp"
#include <gtest/gtest.h>
#include <thread>

namespace {

using media::QueueCounts;
using media::ShortcutQueue;
using test_support::FakeNames;
using test_support::FakePaths;
using test_support::FakeStore;
using Texts = std::vector<std::wstring>;

class FakeControl : public media::WorkerControl {
public:
    bool is_stopped() const override { return entries_before_stop-- <= 0; }
    void yield() override { ++yields; }

    mutable int entries_before_stop = 1000000;
    int yields = 0;
};

class MakeLinks : public testing::Test {
protected:
    void run() { media::make_links(queue, store, names, paths, control); }
    void interrupt_after(int entries)
    {
        control.entries_before_stop = entries;
        run();
        control.entries_before_stop = 1000000;
    }

    ShortcutQueue queue;
    FakePaths paths;
    FakeNames names;
    FakeStore store{ paths };
    FakeControl control;
};

TEST_F(MakeLinks, MakesOneForEachExistingEntry)
{
    paths.present = { L"C:\\a", L"C:\\b" };
    queue.replace({ L"C:\\a", L"C:\\gone", L"http://x", L"", L"C:\\b" });
    run();
    EXPECT_EQ(store.saved, (Texts{ L"C:\\a <C:\\a>", L"C:\\b <C:\\b>" }));
    EXPECT_TRUE(queue.entries().empty());
    EXPECT_EQ(queue.resume_index(), 0u);
    EXPECT_FALSE(queue.is_interrupted());
}

TEST_F(MakeLinks, RewritesNoLink)
{
    paths.present = { L"C:\\a", L"<C:\\a>" };
    queue.replace({ L"C:\\a" });
    run();
    EXPECT_TRUE(store.saved.empty());
    paths.present.erase(L"<C:\\a>");
    queue.replace({ L"C:\\a", L"C:\\a" });
    run();
    EXPECT_EQ(store.saved.size(), 1u);
}

TEST_F(MakeLinks, NamesARelativeEntryAsWritten)
{
    paths.present = { L"b.txt" };
    queue.replace({ L"b.txt" });
    run();
    EXPECT_EQ(store.saved, (Texts{ L"b.txt <b.txt>" }));
}

TEST_F(MakeLinks, SkipsFailures)
{
    paths.present = { L"C:\\a", L"C:\\b" };
    names.failing = { L"C:\\a" };
    store.can_save = false;
    queue.replace({ L"C:\\a", L"C:\\b" });
    run();
    EXPECT_EQ(store.saved, (Texts{ L"C:\\b <C:\\b>" }));
    EXPECT_TRUE(queue.entries().empty());
    store.can_save = true;
    queue.replace({ L"C:\\b" });
    run();
    EXPECT_EQ(store.saved.size(), 2u);
}

TEST_F(MakeLinks, LeavesTheQueueUnchangedWithoutStoreOrNames)
{
    queue.replace({ L"C:\\a" });
    store.ready = false;
    run();
    EXPECT_EQ(queue.entries(), (Texts{ L"C:\\a" }));
    store.ready = true;
    names.ready = false;
    run();
    EXPECT_EQ(queue.entries(), (Texts{ L"C:\\a" }));
    EXPECT_TRUE(paths.asked.empty());
}

TEST_F(MakeLinks, StopsBetweenTwoEntriesAndKeepsTheQueue)
{
    paths.present = { L"C:\\a", L"C:\\b", L"C:\\c" };
    queue.replace({ L"C:\\a", L"C:\\b", L"C:\\c" });
    interrupt_after(2);
    EXPECT_TRUE(queue.is_interrupted());
    EXPECT_EQ(queue.resume_index(), 2u);
    EXPECT_EQ(queue.entries(), (Texts{ L"C:\\a", L"C:\\b", L"C:\\c" }));
    EXPECT_EQ(store.saved.size(), 2u);
    queue.merge({});
    run();
    EXPECT_FALSE(queue.is_interrupted());
    EXPECT_EQ(store.saved.back(), L"C:\\c <C:\\c>");
}

TEST_F(MakeLinks, YieldsWhereALinkWasMadeAtAMultipleOf256)
{
    Texts entries;
    for (int i = 0; i < 1000; ++i)
        entries.push_back(L"C:\\" + std::to_wstring(i));
    paths.present = { entries.begin(), entries.end() };
    queue.replace(entries);
    run();
    EXPECT_EQ(control.yields, 4);
    queue.replace(entries);
    run();
    EXPECT_EQ(control.yields, 4);
}

TEST_F(MakeLinks, HoldsTheQueueForTheWholeRun)
{
    struct Looking : FakeControl {
        explicit Looking(const ShortcutQueue& queue)
            : queue_(queue)
        {
        }
        bool is_stopped() const override
        {
            std::thread{ [&] { got_lock |= queue_.lock().try_lock(); } }.join();
            return false;
        }
        const ShortcutQueue& queue_;
        mutable bool got_lock = false;
    };
    Looking looking{ queue };
    queue.replace({ L"C:\\a", L"C:\\b" });
    media::make_links(queue, store, names, paths, looking);
    EXPECT_FALSE(looking.got_lock);
    EXPECT_TRUE(queue.entries().empty());
}

TEST(EntryList, ReturnsEachTextAlsoEmptyOnes)
{
    media::EntryList list{ L"a", L"", L"絵.png" };
    list.push_back(L"");
    ASSERT_EQ(list.size(), 4u);
    EXPECT_EQ(list[0], L"a");
    EXPECT_EQ(list[1], L"");
    EXPECT_EQ(list[2], L"絵.png");
    EXPECT_EQ(list[3], L"");
    EXPECT_NE(list, (media::EntryList{ L"a", L"", L"絵.png" }));
    EXPECT_NE((media::EntryList{ L"ab", L"c" }), (media::EntryList{ L"a", L"bc" }));
    EXPECT_TRUE(media::EntryList{}.empty());
}

TEST(ShortcutQueue, IsReplacedCompletely)
{
    ShortcutQueue queue;
    queue.replace({ L"old" });
    queue.interrupt_at(1);
    EXPECT_EQ(queue.replace({ L"a", L"a", L"http://x" }), (QueueCounts{ 0, 3 }));
    EXPECT_EQ(queue.entries(), (Texts{ L"a", L"a", L"http://x" }));
    EXPECT_EQ(queue.resume_index(), 0u);
    EXPECT_EQ(queue.replace({}), QueueCounts{});
}

TEST(ShortcutQueue, PutsNewPathsAheadOfWhatWasLeft)
{
    ShortcutQueue queue;
    EXPECT_EQ(queue.merge({ L"x" }), (QueueCounts{ 1, 0 }));
    queue.replace({ L"a", L"b", L"c" });
    queue.interrupt_at(1);
    EXPECT_EQ(queue.merge({ L"x", L"y" }), (QueueCounts{ 2, 2 }));
    EXPECT_EQ(queue.entries(), (Texts{ L"x", L"y", L"b", L"c" }));
    EXPECT_EQ(queue.resume_index(), 0u);
    queue.interrupt_at(3);
    EXPECT_EQ(queue.merge({}), (QueueCounts{ 0, 1 }));
    EXPECT_EQ(queue.entries(), (Texts{ L"c" }));
}

TEST(ShortcutQueue, IsUnchangedWithoutNewOrPendingPaths)
{
    ShortcutQueue queue;
    queue.replace({ L"a" });
    queue.interrupt_at(1);
    EXPECT_EQ(queue.merge({}), QueueCounts{});
    EXPECT_EQ(queue.entries(), (Texts{ L"a" }));
    EXPECT_EQ(queue.resume_index(), 1u);
}

class FakeStarter : public media::ShortcutStarter {
public:
    void log(const std::wstring& line) override { steps.push_back(L"log " + line); }
    void warn(const std::wstring& text) override { steps.push_back(L"warn " + text); }
    bool stop_worker() override
    {
        steps.push_back(L"stop");
        return can_stop;
    }
    bool start_worker() override
    {
        steps.push_back(L"start");
        return can_start;
    }
    bool has_folder(const std::wstring& path) override
    {
        steps.push_back(L"folder " + path);
        return folder_there;
    }
    bool create_folder(const std::wstring&) override
    {
        steps.push_back(L"create");
        return can_create;
    }

    Texts steps;
    bool folder_there = true;
    bool can_create = true;
    bool can_start = true;
    bool can_stop = true;
};

class StartShortcutCreation : public testing::Test {
protected:
    bool start()
    {
        return media::start_shortcut_creation(request, starter, [&] {
            starter.steps.push_back(L"queue");
            return counts;
        });
    }

    media::ShortcutStart request{ false, true, L"C:\\data\\shortcut" };
    FakeStarter starter;
    QueueCounts counts{ 1, 0 };
    const std::wstring logged = L"log start_shortcut_creation_async()\r\n";
    const std::wstring asked = L"folder C:\\data\\shortcut";
};

TEST_F(StartShortcutCreation, QueuesBetweenStopAndStart)
{
    EXPECT_TRUE(start());
    EXPECT_EQ(starter.steps, (Texts{ logged, L"stop", asked, L"queue", L"start" }));
    counts = { 0, 1 };
    EXPECT_TRUE(start());
}

TEST_F(StartShortcutCreation, DoesNothingDuringCleanup)
{
    request.is_cleaning_up = true;
    EXPECT_FALSE(start());
    EXPECT_EQ(starter.steps, (Texts{ L"log start_shortcut_creation_async() ※cleanup中につき処理中止\r\n" }));
}

TEST_F(StartShortcutCreation, QueuesNothingWhenTheBookDoesNotWantIt)
{
    request.auto_file_search = false;
    EXPECT_FALSE(start());
    EXPECT_EQ(starter.steps, (Texts{ logged }));
}

TEST_F(StartShortcutCreation, LeavesTheQueueToAWorkerThatCannotBeStopped)
{
    starter.can_stop = false;
    EXPECT_FALSE(start());
    EXPECT_EQ(starter.steps, (Texts{ logged, L"stop" }));
}

TEST_F(StartShortcutCreation, CreatesTheFolder)
{
    starter.folder_there = false;
    EXPECT_TRUE(start());
    EXPECT_EQ(starter.steps, (Texts{ logged, L"stop", asked, L"create", L"queue", L"start" }));
}

TEST_F(StartShortcutCreation, ReportsAFolderThatCannotBeCreated)
{
    starter.folder_there = starter.can_create = false;
    EXPECT_FALSE(start());
    EXPECT_EQ(starter.steps.back(), L"warn ショートカットフォルダの作成に失敗\r\nC:\\data\\shortcut");
    EXPECT_EQ(starter.steps.size(), 5u);
}

TEST_F(StartShortcutCreation, StartsNothingForAnEmptyQueue)
{
    counts = {};
    EXPECT_FALSE(start());
    EXPECT_EQ(starter.steps.back(), L"queue");
}

TEST_F(StartShortcutCreation, ReportsAWorkerThatDoesNotStart)
{
    starter.can_start = false;
    EXPECT_FALSE(start());
    EXPECT_EQ(starter.steps.back(), L"warn BackgroundThread の起動に失敗");
}

book::Book two_pages()
{
    book::Book book;
    book.pages.resize(2);
    book.pages[0].files = { L"a", L"http://x", L"a" };
    book.pages[1].files = { L"b", L"c" };
    book.pages[1].current_file = 1;
    book.pages[1].stamp = L"2020010203040520200102030405";
    book.header.position = 1;
    return book;
}

TEST(TrackedFiles, AreEveryEntryInPageOrder)
{
    const media::EntryList entries = media::every_entry(two_pages());
    EXPECT_EQ(entries, (Texts{ L"a", L"http://x", L"a", L"b", L"c" }));
}

TEST(TrackedFiles, ReplaceTheNotedEntryOnly)
{
    book::Book book = two_pages();
    const auto note = app::note_entry(book);
    ASSERT_TRUE(note);
    EXPECT_TRUE(app::replace_entry(book, *note, L"C:\\found"));
    EXPECT_EQ(book.pages[1].files, (Texts{ L"b", L"C:\\found" }));
    EXPECT_EQ(book.pages[1].stamp, L"2020010203040520200102030405");
    EXPECT_FALSE(app::replace_entry(book, *note, L"again"));
    book.pages[1].files.clear();
    EXPECT_FALSE(app::replace_entry(book, *note, L"again"));
    EXPECT_TRUE(book.pages[1].files.empty());
}

} // namespace
