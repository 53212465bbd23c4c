// Finding a moved file, with fakes for the links, the file system and the user.
#include "media/moved_file_search.hpp"
#include "tests/support/fake_links.hpp"
#include <gtest/gtest.h>

namespace {

using test_support::FakeNames;
using test_support::FakePaths;
using test_support::FakeStore;
using Texts = std::vector<std::wstring>;

class FakeTalk : public media::SearchTalk {
public:
    void warn(const std::wstring& text) override { said.push_back(text); }
    bool ask(const std::wstring& text) override
    {
        said.push_back(L"? " + text);
        return answer;
    }
    void offer_removal() override { said.push_back(L"2526"); }
    bool replace_entry(const std::wstring& found) override
    {
        said.push_back(L"= " + found);
        return entry_stands;
    }

    Texts said;
    bool answer = true;
    bool entry_stands = true;
};

class SearchMovedFile : public testing::Test {
protected:
    SearchMovedFile()
    {
        paths.present = { L"<C:\\old>", L"D:\\new" };
        store.targets[L"<C:\\old>"] = L"D:\\new";
    }
    bool search(const std::wstring& entry = L"C:\\old")
    {
        return media::search_moved_file(entry, { store, names, paths, talk });
    }
    void expect_no_change(const Texts& said, const std::wstring& entry = L"C:\\old")
    {
        talk.said.clear();
        EXPECT_FALSE(search(entry));
        EXPECT_EQ(talk.said, said);
    }

    FakePaths paths;
    FakeNames names;
    FakeStore store{ paths };
    FakeTalk talk;
    const std::wstring question = L"? ファイルが見つかりました．リストを更新しますか？\r\nD:\\new";
};

TEST_F(SearchMovedFile, ReplacesTheEntryByTheFoundPath)
{
    EXPECT_TRUE(search());
    EXPECT_EQ(talk.said, (Texts{ question, L"= D:\\new" }));
    EXPECT_EQ(store.saved, (Texts{ L"D:\\new <D:\\new>" }));
    EXPECT_TRUE(paths.present.contains(L"<C:\\old>"));
}

TEST_F(SearchMovedFile, IsSilentForAnExistingFile)
{
    paths.present.insert(L"C:\\old");
    store.ready = names.ready = false;
    expect_no_change({});
    EXPECT_TRUE(store.resolved.empty());
}

TEST_F(SearchMovedFile, CannotSearchForAddressesAndEmptyEntries)
{
    expect_no_change({ L"このファイルは探索できません: http://x.invalid/a" }, L"http://x.invalid/a");
    expect_no_change({ L"このファイルは探索できません: https://x" }, L"https://x");
    expect_no_change({ L"このファイルは探索できません: " }, L"");
    paths.can_tell = false;
    expect_no_change({ L"このファイルは探索できません: C:\\old" });
    EXPECT_TRUE(store.resolved.empty());
}

TEST_F(SearchMovedFile, ReportsWhatIsNotReadyLinksFirst)
{
    names.ready = false;
    expect_no_change({ L"Hash の初期化に失敗しました" });
    store.ready = false;
    expect_no_change({ L"Shortcut の初期化に失敗しました" });
}

TEST_F(SearchMovedFile, ReportsAPathWithoutHash)
{
    names.failing = { L"C:\\old" };
    expect_no_change({ L"ハッシュの生成に失敗しました\r\nC:\\old" });
}

TEST_F(SearchMovedFile, OffersRemovalWithoutALink)
{
    paths.present.erase(L"<C:\\old>");
    expect_no_change({ L"ショートカットファイルが見つかりませんでした\r\nC:\\old", L"2526" });
    EXPECT_TRUE(store.resolved.empty());
}

// The worker hashes a relative entry as written, the search its absolute path.
TEST_F(SearchMovedFile, DoesNotFindTheLinkOfARelativeEntry)
{
    paths.present.insert(L"<b.txt>");
    store.targets[L"<b.txt>"] = L"D:\\new";
    expect_no_change(
        { L"ショートカットファイルが見つかりませんでした\r\nC:\\data\\b.txt", L"2526" }, L"b.txt");
}

TEST_F(SearchMovedFile, ReportsALinkWithoutATarget)
{
    const Texts failed{ L"ファイルの探索に失敗しました\r\nC:\\old" };
    paths.present.erase(L"D:\\new");
    expect_no_change(failed);
    store.targets.clear();
    expect_no_change(failed);
}

// A store that cannot find the file returns the path it was given.
TEST_F(SearchMovedFile, ReportsALinkThatStillNamesTheOldPath)
{
    store.targets[L"<C:\\old>"] = L"C:\\old";
    expect_no_change({ L"ファイルの探索に失敗しました\r\nC:\\old" });
}

TEST_F(SearchMovedFile, ChangesNothingWithoutConsent)
{
    talk.answer = false;
    expect_no_change({ question });
    EXPECT_TRUE(store.saved.empty());
}

TEST_F(SearchMovedFile, ChangesNothingWhenTheFoundPathHasNoHash)
{
    names.failing = { L"D:\\new" };
    expect_no_change({ question, L"ハッシュの生成に失敗しました\r\nD:\\new" });
    EXPECT_TRUE(store.saved.empty());
}

TEST_F(SearchMovedFile, ChangesNothingWhenTheNewLinkCannotBeMade)
{
    store.can_save = false;
    expect_no_change({ question, L"ショートカットの作成に失敗しました\r\n<D:\\new>" });
}

TEST_F(SearchMovedFile, ChangesNothingWhenTheEntryHasGone)
{
    talk.entry_stands = false;
    expect_no_change({ question, L"= D:\\new" });
    EXPECT_EQ(store.saved.size(), 1u);
}

TEST_F(SearchMovedFile, MakesASecondLinkForAPathThatDiffersInCase)
{
    paths.present.insert(L"C:\\OLD");
    store.targets[L"<C:\\old>"] = L"C:\\OLD";
    EXPECT_TRUE(search());
    EXPECT_EQ(store.saved, (Texts{ L"C:\\OLD <C:\\OLD>" }));
    EXPECT_TRUE(paths.present.contains(L"<C:\\old>"));
}

} // namespace
