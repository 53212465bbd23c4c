// Books that cannot be read without a question or at all.
#include "driver_test.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

class Reading : public EndToEnd {
protected:
    // Writes this text as a Book file, puts it on top of the history and starts the program.
    fs::path start_with(const std::wstring& raw)
    {
        const fs::path file = root().folder() / L"手帖.bok";
        write_bytes(file, utf16_bytes(raw));
        root().write_history({ file.wstring() });
        start();
        return file;
    }
    void expect_untouched_and_forgotten(const fs::path& file, const std::wstring& raw)
    {
        EXPECT_EQ(utf16_text(file_bytes(file)), raw);
        EXPECT_TRUE(root().history().empty());
    }
};

constexpr auto marker = L"\x3\x3\r\n";

std::wstring raw_page(const std::wstring& box1, const std::wstring& numbers)
{
    return box1 + L"\r\n\x3\r\n見出し\r\n\x3\r\n\x3\r\n\x3\r\n\x3\r\n" + numbers + L"\r\n\x3\r\n";
}

constexpr auto good_numbers = L"2001020304050620010203040506 0 0 255 16777215 16777215 16777215 0 0 0 0 0 0";

std::wstring damaged_book()
{
    return marker + std::wstring(L"0123xyz\r\n") + marker + raw_page(L"一", good_numbers)
        + raw_page(L"二", good_numbers);
}
std::wstring older_book()
{
    return L"\xFEFF" + raw_page(L"一", good_numbers) + raw_page(L"二", good_numbers);
}

std::wstring damaged_question(const fs::path& file)
{
    return file.wstring() + L"\r\nBookHeader が破損しています．既定値で初期化してロードを継続しますか？";
}
std::wstring older_question(const fs::path& file)
{
    return file.wstring()
        + L"\r\nこの Book は古いフォーマットです．フォーマットを変換して読込みますか？\r\n\r\n※注意\r\n"
          L"Book のフォーマットを変換すると旧バージョンの Pagewick からは読込めなくなります．"
          L"必要な場合はあらかじめバックアップを取ってください．"
          L"[いいえ]ボタンを押すと一旦アプリを終了します．";
}

} // namespace

TEST_F(Reading, ADamagedHeaderAnsweredYesOpensTheBookWithDefaults)
{
    const fs::path file = start_with(damaged_book());
    answer_box(damaged_question(file), Icon::warning, IDYES);
    program().wait_for_window();
    expect_page(L"一");
    EXPECT_EQ(box(core::command::box_2).text(), L"見出し");
    main_window().send_command(core::command::next_page);
    expect_page(L"二");
    close();
    const book::Book book = load_book(file);
    EXPECT_EQ(book.pages.size(), 2u);
    EXPECT_EQ(book.header.version, book::format_version);
}

TEST_F(Reading, CommandsThatArriveDuringTheQuestionDoNothing)
{
    const fs::path file = start_with(damaged_book());
    const MessageDialog asked = program().wait_for_box();
    for (const int id : { core::command::add_page_at_end, core::command::save_always,
             core::command::restore_book, core::command::last_page })
        main_window().post_command(id);
    asked.answer(IDYES);
    program().wait_for_window();
    expect_page(L"一");
    EXPECT_EQ(utf16_text(file_bytes(file)), damaged_book());
    close();
    EXPECT_EQ(load_book(file).pages.size(), 2u);
}

TEST_F(Reading, ADamagedHeaderAnsweredNoEndsTheProgramWithOnlyTheClosingWords)
{
    const fs::path file = start_with(damaged_book());
    answer_box(damaged_question(file), Icon::warning, IDNO);
    expect_fatal_start(L"");
    expect_untouched_and_forgotten(file, damaged_book());
}

TEST_F(Reading, AnOlderFormatAnsweredYesBecomesTheCurrentOneAtTheNextSave)
{
    const fs::path file = start_with(older_book());
    answer_box(older_question(file), Icon::warning, IDYES);
    program().wait_for_window();
    expect_page(L"一");
    EXPECT_EQ(utf16_text(file_bytes(file)), older_book());
    main_window().send_command(core::command::save_always);
    EXPECT_EQ(file_bytes(file).substr(0, 8), std::string("\3\0\3\0\r\0\n\0", 8));
    const book::Book book = load_book(file);
    ASSERT_EQ(book.pages.size(), 2u);
    EXPECT_EQ(book.pages[0].text[0], L"一\r\n");
    EXPECT_EQ(book.pages[1].stamp, old_stamp);
}

TEST_F(Reading, AnOlderFormatAnsweredNoEndsTheProgram)
{
    const fs::path file = start_with(older_book());
    answer_box(older_question(file), Icon::warning, IDNO);
    expect_fatal_start(file.wstring() + L"\r\nBook のロードが中断されました．");
    expect_untouched_and_forgotten(file, older_book());
}

TEST_F(Reading, AnUnreadableNumbersLineEndsTheProgramAndLeavesTheFileUnchanged)
{
    const std::wstring raw = marker + std::wstring(656, L'0') + L"\r\n" + marker
        + raw_page(L"一", good_numbers) + raw_page(L"二", L"2001020304050620010203040506 零 0");
    const fs::path file = start_with(raw);
    expect_fatal_start(L"認識できないフォーマットを検出\r\n" + file.wstring());
    expect_untouched_and_forgotten(file, raw);
}

TEST_F(Reading, AnEmptyFileEndsTheProgram)
{
    const fs::path file = start_with(L"");
    expect_fatal_start(L"BookHeader のロードに失敗\r\n" + file.wstring());
    expect_untouched_and_forgotten(file, L"");
}

TEST_F(Reading, AFileOfAnotherKindEndsTheProgramEvenAfterAYes)
{
    const fs::path file = start_with(L"ただの文章です。\r\n");
    answer_box(older_question(file), Icon::warning, IDYES);
    expect_fatal_start(L"Book 内にページが存在しない\r\n" + file.wstring());
    expect_untouched_and_forgotten(file, L"ただの文章です。\r\n");
}

TEST_F(Reading, AnUnreadableBookIsTheLastOneTriedAtThisStart)
{
    const auto good = root().add_book(L"よい.bok", { make_page(L"一") });
    const fs::path bad = root().folder() / L"悪い.bok";
    write_bytes(bad, "");
    root().write_history({ bad.wstring(), good.wstring() });
    start();
    expect_fatal_start(L"BookHeader のロードに失敗\r\n" + bad.wstring());
    EXPECT_EQ(root().history(), std::vector{ good.wstring() });
    start().wait_for_window();
    EXPECT_EQ(title(), L"よい");
}

// Numbers that no program writes must neither hang nor crash the program.
TEST_F(Reading, HostileNumbersInAHeaderAndAPageStillShowThePage)
{
    book::BookHeader header;
    header.order_mode = INT32_MIN;
    header.sort_key = 123456;
    header.tab_label_box = -7;
    header.divider = INT32_MAX;
    header.theme = -1;
    header.fonts[0].height = -30000;
    header.fonts[1].height = INT32_MIN;
    header.fonts[2].face_name.fill(u'あ');
    auto page = make_page(L"一", L"二", L"三");
    page.scroll_first = INT32_MAX;
    page.scroll_third = INT32_MIN;
    page.text_color.fill(0xFFFFFFFF);
    page.back_color.fill(0xFE000000);
    open(root().add_book(L"手帖.bok", { page }, header));
    expect_page(L"一");
    EXPECT_EQ(box(core::command::box_3).text(), L"三\r\n");
    close();
}

TEST_F(Reading, APositionPastTheEndShowsNoPageUntilTheUserMoves)
{
    book::BookHeader header;
    header.position = UINT64_MAX;
    open(root().add_book(L"手帖.bok", { make_page(L"一"), make_page(L"二") }, header));
    EXPECT_EQ(box(core::command::box_1).text(), L"");
    EXPECT_TRUE(box(core::command::box_1).is_read_only());
    main_window().send_command(core::command::last_page);
    expect_page(L"二");
    EXPECT_FALSE(box(core::command::box_1).is_read_only());
}

// Otherwise every start would fail with the same first entry.
TEST_F(Reading, ABookThatCannotBeSortedEndsTheProgramAndIsForgotten)
{
    book::BookHeader header;
    header.order_mode = static_cast<std::int32_t>(book::OrderMode::sorted);
    header.sort_key = static_cast<std::int32_t>(book::SortKey::modified);
    auto page = make_page(L"一");
    page.stamp = L"2001";
    const auto bad = root().add_book(L"短い.bok", { page, make_page(L"二") }, header);
    const auto good = root().add_book(L"よい.bok", { make_page(L"一") });
    root().write_history({ bad.wstring(), good.wstring() });
    start();
    const MessageDialog told = program().wait_for_box();
    EXPECT_TRUE(told.text().ends_with(closing_words));
    EXPECT_EQ(told.icon(), Icon::error);
    told.answer(IDOK);
    answer_box(L"Error: ウィンドウの作成に失敗", Icon::error, IDOK);
    EXPECT_EQ(program().exit_code(), failed_exit_code);
    EXPECT_EQ(root().history(), std::vector{ good.wstring() });
}
