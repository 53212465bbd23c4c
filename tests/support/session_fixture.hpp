// A session with a Book of three pages, for tests of single rules.
#pragma once
#include "app/file_actions.hpp"
#include "app/page_actions.hpp"
#include "book/page_text.hpp"
#include "core/command_ids.hpp"
#include "tests/support/session_fakes.hpp"
#include <gtest/gtest.h>

namespace test_support {

inline constexpr wchar_t old_stamp[] = L"2020010203040520210203040506";
inline constexpr wchar_t creation[] = L"20200102030405";
inline const std::wstring save_question =
    L"ask 36: ページの内容が変更されています．\r\nファイルに保存しますか？";

using Said = std::vector<std::wstring>;

inline book::Page page_with(const std::wstring& text)
{
    book::Page page;
    page.stamp = old_stamp;
    page.text[0] = text;
    return page;
}

class SessionTest : public testing::Test {
protected:
    SessionTest() { open({ L"one", L"two", L"three" }); }

    std::wstring make_book(const std::wstring& name, std::initializer_list<const wchar_t*> texts) const
    {
        book::Book made;
        for (const wchar_t* text : texts)
            made.pages.push_back(page_with(text));
        made.header.divider = FakeDesk::first_divider;
        EXPECT_TRUE(made.save_to(root.file(name)));
        return root.file(name);
    }
    void open(std::initializer_list<const wchar_t*> texts, const std::wstring& name = L"本.bok")
    {
        load(make_book(name, texts));
    }
    void load(const std::wstring& file)
    {
        session.run([&] { session.load_book(file); });
        talk.said.clear();
    }
    // Runs an action as a command does.
    template <class Action> auto run(Action action)
    {
        std::invoke_result_t<Action> result{};
        session.run([&] {
            result = action();
            session.merge(core::refresh::full);
        });
        return result;
    }
    bool save(app::SaveCode code)
    {
        bool saved = false;
        session.run([&] { saved = session.save(code); });
        return saved;
    }
    void go_to(std::uint64_t position)
    {
        run([&] { return app::go_to_position(session, position); });
    }

    book::Book on_disk(const std::wstring& file) const
    {
        book::Book read;
        std::wstring error;
        EXPECT_TRUE(read.load(file, error, [](const std::wstring&) { return true; }));
        return read;
    }
    // Box 1 of every page in a file, without the line end that loading leaves.
    Said texts_in(const std::wstring& file) const
    {
        Said texts;
        for (book::Page& page : on_disk(file).pages) {
            book::trim_text(page.text[0], book::TrimMode::right);
            texts.push_back(page.text[0]);
        }
        return texts;
    }
    Said texts_in_book() const
    {
        Said texts;
        for (const book::Page& page : book.pages)
            texts.push_back(page.text[0]);
        return texts;
    }
    // Replaces a file by a folder, which can be neither read nor written as a file.
    void block(const std::wstring& file) const
    {
        platform::remove_file(file);
        ASSERT_TRUE(platform::create_folder(file));
    }
    std::wstring failure(const std::wstring& file) const
    {
        return L"tell 48: Error: Book の保存に失敗\r\n" + file;
    }

    DataRoot root;
    SessionRoom room{ root.file(L"history.txt") };
    FakeDesk& desk = room.desk;
    FakeTalk& talk = room.talk;
    app::BookSession& session = room.session;
    book::Book& book = session.book();
    const std::wstring path = root.file(L"本.bok");
};

} // namespace test_support
