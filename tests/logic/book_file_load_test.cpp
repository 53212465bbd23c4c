// Loading a Book's file: the header, the older format, damage and failures.
#include "tests/support/book_file_fixture.hpp"
#include <limits>

namespace {

using namespace test_support;

TEST_F(BookFile, KeepsEveryValueOfTheHeader)
{
    book::BookHeader header;
    header.version = 1;
    header.position = static_cast<std::uint64_t>(-1);
    header.order_mode = std::numeric_limits<std::int32_t>::min();
    header.sort_key = 3006;
    header.tab_label_box = -5;
    header.theme = 7000;
    header.reserved_0 = 9;
    header.fonts[2].face_name.fill(u'x');
    ASSERT_TRUE(load(header_lines(header) + page_of_box1(L"")));
    EXPECT_EQ(book.header, header);
    EXPECT_EQ(saved(), header_lines(header) + page_of_box1(L""));
    EXPECT_TRUE(asker.questions.empty());
}

TEST_F(BookFile, DoesNotTreatAVersionOf1Or2AsAStatus)
{
    for (const std::uint32_t version : { 0u, 1u, 2u, 0xFFFFFFFFu }) {
        book::BookHeader header;
        header.version = version;
        EXPECT_TRUE(load(header_lines(header) + page_of_box1(L"")));
        EXPECT_EQ(book.header.version, version);
        EXPECT_TRUE(asker.questions.empty());
    }
}

TEST_F(BookFile, ReadsAMarkerWithAByteOrderMarkAndWhiteSpaceAround)
{
    const std::wstring digits(656, L'0');
    ASSERT_TRUE(load(L"\uFEFF \3\3\u3000\r\n\t" + digits + L" \r\n  \3\3\r\n" + page_of_box1(L"a\r\n")));
    EXPECT_TRUE(asker.questions.empty());
    EXPECT_EQ(book.header.version, 0u);
    EXPECT_EQ(book.pages.at(0).text[0], L"a\r\n");
}

TEST_F(BookFile, FailsWhenALineOfTheHeaderIsMissingBlankOrWrong)
{
    const std::wstring digits(656, L'0');
    const std::wstring files[] = { L"", L"\r\n", L" \u3000\r\n" + marker, L"\uFEFF", L"\uFEFF\r\n", marker,
        marker + L"\r\n" + marker, marker + L" \r\n" + marker, marker + digits, marker + digits + L"\r\n",
        marker + digits + L"\r\n\r\n", marker + digits + L"\r\nx\r\n", marker + digits + L"\r\n\3\r\n",
        marker + digits + L"\r\n\3\3\3\r\n", marker + L"broken\r\nx\r\n" };
    for (const std::wstring& text : files) {
        EXPECT_FALSE(load(text + L"", true)) << platform::to_utf8(text);
        EXPECT_EQ(error, L"BookHeader のロードに失敗\r\n" + file);
        EXPECT_TRUE(asker.questions.empty());
        EXPECT_TRUE(book.path.empty());
        EXPECT_EQ(book.header, book::BookHeader());
    }
}

TEST_F(BookFile, FailsForASmallFileOfAnOddNumberOfBytes)
{
    Bytes bytes = bytes_of(header_lines() + page_of_box1(L"a\r\n"));
    bytes.push_back(std::byte{ 0 });
    write_bytes(file, bytes);
    EXPECT_FALSE(book.load(file, error, nullptr));
    EXPECT_EQ(error, L"BookHeader のロードに失敗\r\n" + file);
}

TEST_F(BookFile, AsksBeforeItReadsTheOlderFormat)
{
    EXPECT_FALSE(load(L"\uFEFF" + page_of_box1(L"old\r\n"), false));
    EXPECT_EQ(asker.questions,
        (std::vector<std::wstring>{ file
            + L"\r\nこの Book "
              L"は古いフォーマットです．フォーマットを変換して読込みますか？\r\n\r\n※注意\r\nBook "
              L"のフォーマットを変換すると旧バージョンの Pagewick からは読込めなくなります．"
              L"必要な場合はあらかじめバックアップを取ってください．[いいえ]"
              L"ボタンを押すと一旦アプリを終了します．" }));
    EXPECT_EQ(error, file + L"\r\nBook のロードが中断されました．");
    EXPECT_TRUE(book.pages.empty());
    EXPECT_TRUE(book.path.empty());
}

TEST_F(BookFile, ConvertsTheOlderFormatByLoadingAndSaving)
{
    const std::wstring pages = page_of_box1(L"old\r\n") + page_of_box1(L"\uFEFFsecond\r\n");
    ASSERT_TRUE(load(L"\uFEFF" + pages, true));
    EXPECT_EQ(asker.questions.size(), 1u);
    ASSERT_EQ(book.pages.size(), 2u);
    EXPECT_EQ(book.pages[0].text[0], L"old\r\n");
    EXPECT_EQ(book.pages[1].text[0], L"\uFEFFsecond\r\n");
    EXPECT_EQ(book.header, book::BookHeader());
    EXPECT_EQ(saved(), header_lines() + pages);
}

TEST_F(BookFile, ReadsTheOlderFormatFromTheStartAgainAcrossBlocks)
{
    std::wstring text = L"\uFEFF";
    for (int i = 0; i < 3000; ++i)
        text += page_of_box1(std::to_wstring(i) + L"\r\n");
    ASSERT_GT(text.size(), book::block_size);
    ASSERT_TRUE(load(text, true));
    ASSERT_EQ(book.pages.size(), 3000u);
    EXPECT_EQ(book.pages[0].text[0], L"0\r\n");
    EXPECT_EQ(book.pages[2999].text[0], L"2999\r\n");
}

TEST_F(BookFile, RemovesOneByteOrderMarkBeforeTheFirstTextInEveryLoad)
{
    ASSERT_TRUE(load(header_lines() + page_of_box1(L"\uFEFF\uFEFFa\r\n") + page_of_box1(L"\uFEFFb\r\n")));
    EXPECT_EQ(book.pages[0].text[0], L"\uFEFFa\r\n");
    EXPECT_EQ(book.pages[1].text[0], L"\uFEFFb\r\n");
}

// The byte order mark hides the first separator, so all fields of the page are shifted by one.
TEST_F(BookFile, FailsForAnOlderFileWhoseFirstPageHasAnEmptyBox1)
{
    EXPECT_FALSE(load(L"\uFEFF" + page_of_box1(L""), true));
    EXPECT_EQ(error, L"Book 内にページが存在しない\r\n" + file);
    EXPECT_FALSE(load(L"\uFEFF" + page_of_box1(L"") + page_of_box1(L"text\r\n"), true));
    EXPECT_EQ(error, L"認識できないフォーマットを検出\r\n" + file);
}

TEST_F(BookFile, FindsNoPagesInAFileOfAnotherKind)
{
    EXPECT_FALSE(load(L"just some text\r\nof two lines", true));
    EXPECT_EQ(asker.questions.size(), 1u);
    EXPECT_EQ(error, L"Book 内にページが存在しない\r\n" + file);
}

TEST_F(BookFile, AsksBeforeItReplacesADamagedHeader)
{
    error = L"from before";
    EXPECT_FALSE(load(marker + L"0g\r\n" + marker + page_of_box1(L"a\r\n"), false));
    EXPECT_EQ(asker.questions,
        (std::vector<std::wstring>{
            file + L"\r\nBookHeader が破損しています．既定値で初期化してロードを継続しますか？" }));
    EXPECT_EQ(error, L"");
    EXPECT_TRUE(book.pages.empty());
}

TEST_F(BookFile, ContinuesAfterADamagedHeaderWithTheDefaults)
{
    for (const std::wstring& digits :
        { std::wstring(655, L'0'), std::wstring(654, L'0'), std::wstring(658, L'0'), std::wstring(656, L'g'),
            std::wstring(L"x"), std::wstring(328, L'0') + L" " + std::wstring(327, L'0') }) {
        ASSERT_TRUE(load(marker + digits + L"\r\n" + marker + page_of_box1(L"a\r\n"), true));
        EXPECT_EQ(asker.questions.size(), 1u);
        EXPECT_EQ(book.header, book::BookHeader());
        ASSERT_EQ(book.pages.size(), 1u);
        EXPECT_EQ(book.pages[0].text[0], L"a\r\n");
    }
}

TEST_F(BookFile, ReportsAnEmptyPath)
{
    EXPECT_FALSE(book.load(L"", error, nullptr));
    EXPECT_EQ(error, L"パス名が無効(empty)\r\n");
}

TEST_F(BookFile, ReportsAMissingFile)
{
    const std::wstring missing = folder.file(L"missing.bok");
    EXPECT_FALSE(book.load(missing, error, nullptr));
    EXPECT_EQ(error, L"存在しないファイル\r\n" + missing);
}

TEST_F(BookFile, ReportsThatAFolderCannotBeOpened)
{
    EXPECT_FALSE(book.load(folder.path(), error, nullptr));
    EXPECT_EQ(error, L"ファイルのオープンに失敗\r\n" + folder.path());
}

TEST_F(BookFile, KeepsThePagesBeforeANumbersLineThatCannotBeRead)
{
    EXPECT_FALSE(load(header_lines() + page_of_box1(L"good\r\n")
        + page_lines({ L"bad\r\n", L"", L"", L"", L"", L"2024 0 0 0 x\r\n" }) + page_of_box1(L"")));
    EXPECT_EQ(error, L"認識できないフォーマットを検出\r\n" + file);
    ASSERT_EQ(book.pages.size(), 1u);
    EXPECT_EQ(book.pages[0].text[0], L"good\r\n");
    EXPECT_EQ(book.path, file);
}

TEST_F(BookFile, FailsForAnEmptyStamp)
{
    Page& page = book.pages.emplace_back();
    page.text[0] = L"text";
    ASSERT_TRUE(book.save_to(file));
    EXPECT_FALSE(book.load(file, error, nullptr));
    EXPECT_EQ(error, L"認識できないフォーマットを検出\r\n" + file);
}

TEST_F(BookFile, ReportsThatThereIsNoCompletePage)
{
    for (const std::wstring& pages : { std::wstring(), std::wstring(L"text\r\n"),
             stop + stop + stop + stop + stop, stop + stop + stop + stop + stop + numbers }) {
        EXPECT_FALSE(load(header_lines() + pages));
        EXPECT_EQ(error, L"Book 内にページが存在しない\r\n" + file);
    }
}

TEST_F(BookFile, LoadsTheCompletePagesOfATruncatedFileOrFailsWithAReason)
{
    const std::wstring whole = header_lines() + page_of_box1(L"一\r\n")
        + page_lines({ L"a\r\n", L"b\r\n", L"c\r\n", L"d\r\n", L"e\r\n", numbers });
    const Bytes bytes = bytes_of(whole);
    const std::size_t first_page = 2 * (header_lines() + page_of_box1(L"一\r\n")).size();
    for (std::size_t length = 0; length <= bytes.size(); ++length) {
        MemorySource source({ bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length) });
        Book cut;
        std::wstring reason;
        const bool is_loaded =
            book::load_book(cut, source, L"path", reason, [](const auto&) { return true; });
        if (length % 2 != 0) {
            EXPECT_EQ(reason, L"BookHeader のロードに失敗\r\npath") << length;
            continue;
        }
        EXPECT_EQ(is_loaded, !cut.pages.empty() && reason.empty()) << length;
        // The line end of a separator may be missing.
        EXPECT_EQ(
            cut.pages.size(), length == 0 ? 0u : (length + 4 >= first_page) + (length + 4 >= bytes.size()))
            << length;
    }
}

TEST_F(BookFile, DropsAPageThatIsNotComplete)
{
    ASSERT_TRUE(load(header_lines() + page_of_box1(L"whole\r\n") + L"half\r\n" + stop + stop));
    ASSERT_EQ(book.pages.size(), 1u);
    EXPECT_EQ(book.pages[0].text[0], L"whole\r\n");
}

TEST_F(BookFile, ClearsTheBookBeforeEveryLoad)
{
    ASSERT_TRUE(load(header_lines() + page_of_box1(L"a\r\n")));
    book.header.seed = 5;
    book.order = { 0 };
    book.hits.emplace_back();
    book.needs_update = true;
    book.mark_count = 3;
    EXPECT_FALSE(book.load(L"", error, nullptr));
    EXPECT_TRUE(book.path.empty());
    EXPECT_TRUE(book.pages.empty());
    EXPECT_TRUE(book.order.empty());
    EXPECT_TRUE(book.hits.empty());
    EXPECT_EQ(book.header, book::BookHeader());
    EXPECT_EQ(book.file_size, 0u);
    EXPECT_EQ(book.mark_count, 0);
    EXPECT_FALSE(book.needs_update);
}

TEST_F(BookFile, LoadsItsOwnPathAgain)
{
    ASSERT_TRUE(load(header_lines() + page_of_box1(L"a\r\n")));
    EXPECT_TRUE(book.load(book.path, error, nullptr));
    EXPECT_EQ(book.path, file);
    EXPECT_EQ(book.pages.size(), 1u);
}

TEST_F(BookFile, KeepsPathAndSize)
{
    const std::wstring text = header_lines() + page_of_box1(L"a\r\n");
    ASSERT_TRUE(load(text));
    EXPECT_EQ(book.path, file);
    EXPECT_EQ(book.file_size, 2 * text.size());
    book.pages[0].text[0] = L"longer";
    ASSERT_TRUE(book.save());
    EXPECT_EQ(book.file_size, read_bytes(file).size());
}

TEST_F(BookFile, KeepsAPositionPastTheEnd)
{
    book::BookHeader header;
    header.position = 12;
    ASSERT_TRUE(load(header_lines(header) + page_of_box1(L"")));
    EXPECT_EQ(book.header.position, 12u);
    EXPECT_EQ(book.current_page(), nullptr);
}

TEST_F(BookFile, CountsTabsAndMarksAndDropsTabsBeyondTheLimit)
{
    std::wstring text = header_lines();
    for (int i = 0; i < 300; ++i)
        text += page_lines({ L"", L"", L"", L"", L"", L"s -1 1 0 0 0 0 0 0 0 0 0 0\r\n" });
    ASSERT_TRUE(load(text));
    EXPECT_EQ(book.tab_count, 256);
    EXPECT_EQ(book.mark_count, 300);
    for (std::size_t i = 0; i < 300; ++i)
        EXPECT_EQ(book.pages[i].tab_number, i < 256 ? i + 1 : 0);
    const std::wstring without_tab = L"s -1 0 0 0 0 0 0 0 0 0 0 0\r\n";
    const std::wstring out = saved();
    EXPECT_TRUE(out.ends_with(page_lines({ L"", L"", L"", L"", L"", without_tab })));
    ASSERT_TRUE(book.load(file, error, nullptr));
    EXPECT_EQ(book.tab_count, 256);
    EXPECT_EQ(book.pages[256].tab_number, 0u);
}

TEST_F(BookFile, LoadsMorePagesThanMayBeInserted)
{
    std::wstring text = header_lines();
    const std::wstring page = page_lines({ L"", L"", L"", L"", L"", L"s 0 0 0 0 0 0 0 0 0 0 0 0\r\n" });
    for (std::size_t i = 0; i <= book::page_limit; ++i)
        text += page;
    MemorySource source(bytes_of(text));
    ASSERT_TRUE(book::load_book(book, source, L"path", error, nullptr));
    EXPECT_EQ(book.pages.size(), book::page_limit + 1);
}

TEST_F(BookFile, LoadsTheSameInBlocksOfEverySize)
{
    const std::wstring text = header_lines()
        + page_lines({ L"一\r\n\r\n", L"二\r\n", L" 三\r\n", L"a\r\nb\r\n", L"f\r\n", numbers })
        + page_of_box1(L"x\r\n");
    ASSERT_TRUE(load(text));
    const std::vector<Page> expected = book.pages;
    for (std::size_t size = 2; size < 2 * text.size(); size += size < 200 ? 2 : 98) {
        MemorySource source(bytes_of(text), { size });
        Book other;
        ASSERT_TRUE(book::load_book(other, source, file, error, nullptr)) << size;
        EXPECT_EQ(other.pages, expected) << size;
    }
}

} // namespace
