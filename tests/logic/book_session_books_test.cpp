// The Book as a whole: new, open, load, save as, restore, backup, last Book.
#include "tests/support/session_fixture.hpp"

namespace {

using namespace test_support;
using app::SaveCode;

const std::wstring ending = L"\r\nアプリケーションを終了します．";

class NewBook : public SessionTest {
protected:
    bool create(const std::wstring& chosen)
    {
        talk.paths = { chosen };
        return run([&] { return session.create_book(); });
    }

    const std::wstring fresh = root.file(L"new.bok");
};

TEST_F(NewBook, HasOnePageInStandardColours)
{
    look::load_theme(look::theme_dark);
    desk.type(0, L"edited");
    EXPECT_TRUE(create(fresh));
    EXPECT_EQ(talk.said, Said{ L"choose Book の新規作成: " });
    EXPECT_EQ(texts_in(path).front(), L"edited");
    EXPECT_EQ(book.path, fresh);
    ASSERT_EQ(book.pages.size(), 1u);
    EXPECT_EQ(book.pages[0].back_color[0], look::theme_colors(look::theme_standard).box_back.value);
    EXPECT_EQ(desk.boxes[0].text, L"");
    EXPECT_EQ(desk.title, L"new");
    EXPECT_EQ(book.header.divider, FakeDesk::first_divider);
    EXPECT_EQ(session.history().entries(), (Said{ fresh, path }));
    EXPECT_EQ(on_disk(fresh).pages.size(), 1u);
}

TEST_F(NewBook, IsNotCreatedWhenTheDialogIsCancelled)
{
    desk.type(0, L"edited");
    EXPECT_FALSE(create(L""));
    EXPECT_EQ(book.path, path);
    EXPECT_EQ(texts_in(path).front(), L"edited");
}

TEST_F(NewBook, ReplacesTheBookEvenIfItsFileCannotBeWritten)
{
    look::load_theme(look::theme_dark);
    block(fresh);
    EXPECT_FALSE(create(fresh));
    EXPECT_EQ(talk.said.back(), L"tell 48: Book の作成に失敗");
    EXPECT_EQ(look::palette().current_theme, look::theme_dark);
    EXPECT_EQ(desk.boxes[0].text, L"");
    desk.type(0, L"typed");
    save(SaveCode::always);
    EXPECT_EQ(texts_in(path), (Said{ L"one", L"two", L"three" }));
}

TEST_F(NewBook, SavesEditsThatCameWhileTheDialogWasOpen)
{
    talk.while_open = [&] { desk.type(0, L"late"); };
    EXPECT_TRUE(create(fresh));
    EXPECT_EQ(texts_in(path).front(), L"late");
}

TEST_F(NewBook, ReportsOnceThatTheOldOneCannotBeSaved)
{
    block(path);
    desk.type(0, L"lost");
    EXPECT_TRUE(create(fresh));
    EXPECT_EQ(talk.said, (Said{ failure(path), L"choose Book の新規作成: " }));
}

class OpeningABook : public SessionTest {
protected:
    bool open_book(const std::wstring& file)
    {
        return run([&] { return session.open_book(file); });
    }

    const std::wstring other = make_book(L"other.bok", { L"four", L"five" });
};

TEST_F(OpeningABook, SavesTheOldOneFirst)
{
    desk.type(0, L"edited");
    EXPECT_TRUE(open_book(other));
    EXPECT_EQ(texts_in(path).front(), L"edited");
    EXPECT_EQ(texts_in(other), (Said{ L"four", L"five" }));
    EXPECT_EQ(desk.boxes[0].text, L"four\r\n");
    EXPECT_EQ(desk.title, L"other");
    EXPECT_EQ(session.history().entries(), (Said{ other, path }));
    EXPECT_EQ(talk.said, Said{ L"loaded" });
}

TEST_F(OpeningABook, AsksForThePath)
{
    talk.paths = { other };
    EXPECT_TRUE(open_book(L""));
    EXPECT_EQ(talk.said, (Said{ L"open", L"loaded" }));
    EXPECT_EQ(book.path, other);
    desk.type(0, L"x");
    EXPECT_FALSE(open_book(L""));
    EXPECT_TRUE(desk.has_edits());
}

TEST_F(OpeningABook, ForgetsAFileThatIsMissing)
{
    const std::wstring missing = root.file(L"missing.bok");
    session.history().add(missing);
    EXPECT_FALSE(open_book(missing));
    EXPECT_EQ(talk.said, Said{ L"tell 48: ファイル [" + missing + L"] が見つかりませんでした．" });
    EXPECT_EQ(session.history().entries(), Said{ path });
    EXPECT_EQ(texts_in_book().size(), 3u);
}

TEST_F(OpeningABook, ThatCannotBeReadEndsTheProgram)
{
    const std::wstring blocked = root.file(L"blocked.bok");
    block(blocked);
    session.history().add(blocked);
    EXPECT_FALSE(open_book(blocked));
    EXPECT_EQ(talk.said, (Said{ L"tell 16: ファイルのオープンに失敗\r\n" + blocked + ending, L"close" }));
    EXPECT_EQ(session.history().entries(), Said{ path });
    EXPECT_EQ(texts_in(path), (Said{ L"one", L"two", L"three" }));
}

// A path that is the Book's own is cleared with it.
TEST_F(OpeningABook, AgainRestoresIt)
{
    desk.type(0, L"dropped");
    EXPECT_TRUE(run([&] { return session.load_book(book.path); }));
    EXPECT_EQ(desk.boxes[0].text, L"one\r\n");
    EXPECT_FALSE(desk.has_edits());
    EXPECT_EQ(book.path, path);
    EXPECT_TRUE(run([&] { return session.load_book(session.history().entries().front()); }));
    EXPECT_EQ(book.path, path);
}

TEST_F(OpeningABook, ThatFailsInTheReaderSavesThePagesReadSoFar)
{
    const std::wstring whole = read_text(other);
    const std::wstring broken = root.file(L"broken.bok");
    write_text(broken, whole + L"\x3\r\n\x3\r\n\x3\r\n\x3\r\n\x3\r\nno numbers\r\n\x3\r\n");
    EXPECT_FALSE(open_book(broken));
    EXPECT_EQ(
        talk.said, (Said{ L"tell 16: 認識できないフォーマットを検出\r\n" + broken + ending, L"close" }));
    EXPECT_EQ(read_text(broken), whole);
}

TEST_F(OpeningABook, AsksAboutADamagedHeader)
{
    std::wstring text = read_text(other);
    text[10] = L'x';
    write_text(other, text);
    talk.answers = { true };
    talk.while_open = [&] {
        EXPECT_TRUE(session.is_loading());
        session.run([] { ADD_FAILURE() << "a command while a Book is being loaded"; });
    };
    EXPECT_TRUE(open_book(other));
    EXPECT_FALSE(session.is_loading());
    EXPECT_EQ(talk.said.front(),
        L"ask 52: " + other + L"\r\nBookHeader が破損しています．既定値で初期化してロードを継続しますか？");
    EXPECT_EQ(book.pages.size(), 2u);
}

TEST_F(OpeningABook, DeclinedLeavesNothingToSave)
{
    std::wstring text = read_text(other);
    text[10] = L'x';
    write_text(other, text);
    desk.type(0, L"edited");
    EXPECT_FALSE(open_book(other));
    EXPECT_EQ(talk.said.back(), L"close");
    EXPECT_EQ(read_text(other), text);
    EXPECT_EQ(texts_in(path).front(), L"edited");
}

TEST_F(OpeningABook, ThatCannotBeAppliedStaysOutOfTheHistory)
{
    book::Book sorted = on_disk(other);
    sorted.header.order_mode = 2701;
    sorted.header.sort_key = 3004;
    sorted.pages[1].stamp = L"short";
    ASSERT_TRUE(sorted.save_to(other));
    EXPECT_FALSE(open_book(other));
    EXPECT_EQ(talk.said.back(), L"close");
    EXPECT_EQ(session.history().entries(), Said{ path });
}

class SavingAs : public SessionTest {
protected:
    void save_as(const std::wstring& chosen)
    {
        talk.paths = { chosen };
        session.run([&] { session.save_book_as(); });
    }

    const std::wstring copy = root.file(L"copy.bok");
};

TEST_F(SavingAs, WritesToTheNewFileAndContinuesWithIt)
{
    desk.type(0, L"edited");
    save_as(copy);
    EXPECT_EQ(talk.said, Said{ L"choose Book に名前を付けて保存する: " + path });
    EXPECT_EQ(book.path, copy);
    EXPECT_EQ(texts_in(copy).front(), L"edited");
    EXPECT_EQ(texts_in(path).front(), L"one");
    EXPECT_EQ(session.history().entries(), (Said{ copy, path }));
    EXPECT_EQ(desk.title, L"copy");
}

TEST_F(SavingAs, KeepsThePathWhenCancelledOrFailed)
{
    save_as(L"");
    EXPECT_EQ(book.path, path);
    block(copy);
    desk.type(0, L"edited");
    save_as(copy);
    EXPECT_EQ(talk.said.back(), failure(copy));
    EXPECT_EQ(book.path, path);
    EXPECT_TRUE(desk.has_edits());
    EXPECT_EQ(session.history().entries(), Said{ path });
}

TEST_F(SavingAs, DoesNothingWhenAnotherBookIsThereAfterTheDialog)
{
    const std::wstring other = make_book(L"other.bok", { L"four" });
    talk.while_open = [&] { session.run([&] { session.load_book(other); }); };
    save_as(copy);
    EXPECT_EQ(book.path, other);
    EXPECT_FALSE(platform::exists(copy));
}

class BackingUp : public SessionTest {
protected:
    bool back_up()
    {
        session.run([&] { done = session.back_up_book(&result); });
        return done;
    }

    bool done = false;
    std::wstring result = L"?";
    const std::wstring target = root.backup(L"本.bok");
};

TEST_F(BackingUp, CopiesTheFileWithoutTheEdits)
{
    desk.type(0, L"edited");
    EXPECT_TRUE(back_up());
    EXPECT_EQ(result, L"バックアップしました:\r\n" + target);
    EXPECT_EQ(texts_in(target).front(), L"one");
    EXPECT_TRUE(desk.has_edits());
}

TEST_F(BackingUp, AsksBeforeItReplacesACopy)
{
    EXPECT_TRUE(back_up());
    desk.type(0, L"edited");
    save(SaveCode::always);
    EXPECT_FALSE(back_up());
    EXPECT_EQ(result, L"");
    EXPECT_EQ(
        talk.said, Said{ L"ask 36: 本.bok はすでにバックアップフォルダに存在します．上書きしますか？" });
    EXPECT_EQ(texts_in(target).front(), L"one");
    talk.answers = { true };
    EXPECT_TRUE(back_up());
    EXPECT_EQ(texts_in(target).front(), L"edited");
}

TEST_F(BackingUp, ReportsThatItsFolderCannotBeCreated)
{
    write_text(core::folders().book_backup, L"a file");
    EXPECT_FALSE(back_up());
    EXPECT_EQ(result, L"Error: バックアップフォルダの作成に失敗しました．\r\n" + core::folders().book_backup);
    EXPECT_EQ(talk.said, Said{});
}

TEST_F(BackingUp, ReportsThatTheBookIsInvalid)
{
    book.path.clear();
    EXPECT_FALSE(back_up());
    EXPECT_EQ(result, L"Error: この Book は無効です．\r\n");
    book.path = path;
    book.pages.clear();
    EXPECT_FALSE(back_up());
    EXPECT_EQ(result, L"Error: この Book は無効です．\r\n" + path);
}

TEST_F(BackingUp, ReportsTheSystemsMessageForAFailedCopy)
{
    platform::remove_file(path);
    EXPECT_FALSE(back_up());
    EXPECT_EQ(result, L"");
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_TRUE(talk.said[0].starts_with(L"system error "));
}

TEST_F(BackingUp, HappensAtLoadingWithoutAQuestionIfSet)
{
    core::settings().auto_backup = true;
    load(path);
    EXPECT_EQ(texts_in(target).front(), L"one");
    session.run([&] { session.load_book(path); });
    EXPECT_EQ(talk.said, Said{ L"loaded" });
    platform::remove_file(target);
    ASSERT_TRUE(platform::create_folder(target));
    session.run([&] { session.load_book(path); });
    ASSERT_EQ(talk.said.size(), 4u);
    EXPECT_TRUE(talk.said[1].starts_with(L"system error "));
    EXPECT_EQ(talk.said[2], L"tell 48: バックアップファイルの作成に失敗\r\n" + path);
}

// The question names the file.
TEST_F(BackingUp, CopiesTheFileThatWasAskedAbout)
{
    EXPECT_TRUE(back_up());
    const std::wstring other = make_book(L"other.bok", { L"four" });
    talk.answers = { true };
    talk.while_open = [&] { session.run([&] { session.load_book(other); }); };
    EXPECT_TRUE(back_up());
    EXPECT_EQ(texts_in(target).front(), L"one");
    EXPECT_FALSE(platform::exists(root.backup(L"other.bok")));
}

class LastBook : public SessionTest { };

TEST_F(LastBook, IsTheFirstExistingOneOfTheHistory)
{
    const std::wstring missing = root.file(L"missing.bok");
    session.history().add(missing);
    SessionRoom next{ root.file(L"history.txt") };
    next.session.history().load();
    next.session.open_last_book();
    EXPECT_EQ(next.session.book().path, path);
    EXPECT_EQ(next.desk.boxes[0].text, L"one\r\n");
    EXPECT_EQ(next.talk.said,
        (Said{ L"tell 48: ファイル [" + missing + L"] が見つかりませんでした．", L"loaded" }));
}

TEST_F(LastBook, IsANewOneWithoutAHistory)
{
    SessionRoom next{ root.file(L"none.txt") };
    next.talk.paths = { root.file(L"new.bok") };
    next.session.open_last_book();
    EXPECT_EQ(next.session.book().pages.size(), 1u);
    SessionRoom refused{ root.file(L"none.txt") };
    refused.session.history().remove_first();
    try {
        refused.session.open_last_book();
        ADD_FAILURE();
    } catch (const MyException& error) {
        EXPECT_EQ(error.message, L"Book を開けませんでした");
        EXPECT_TRUE(error.is_fatal());
    }
}

} // namespace
