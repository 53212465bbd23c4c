// Every allocation of a short walk fails once. The program ends then, and closing saves: the files must be
// whole, with no text in a page that never had it.
//
// PAGEWICK_WALK_ALLOCATIONS tries one allocation in so many.
#include "app/file_actions.hpp"
#include "app/page_actions.hpp"
#include "core/command_ids.hpp"
#include "failing_allocation.hpp"
#include "platform/path_text.hpp"
#include "platform/text.hpp"
#include "tests/support/environment.hpp"
#include "tests/support/session_fakes.hpp"
#include "walk_clock.hpp"
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <set>

namespace {

using namespace session_walk;
using app::SaveCode;
namespace command = core::command;

constexpr std::size_t time_length = 14;
using Stamps = std::vector<std::wstring>;

std::wstring creation_of(const book::Page& page)
{
    return page.stamp.substr(0, time_length);
}

Stamps creations_of(const std::vector<book::Page>& pages)
{
    Stamps stamps;
    for (const book::Page& page : pages)
        stamps.push_back(creation_of(page));
    return stamps;
}

std::wstring without_end(std::wstring text)
{
    while (text.ends_with(L"\n") || text.ends_with(L"\r"))
        text.pop_back();
    return text;
}

// What a page or a Book may be, learned from the walk in which nothing fails.
struct Known {
    std::map<std::wstring, std::array<std::set<std::wstring>, 3>> texts; // by the page's creation
    std::map<std::wstring, std::set<Stamps>> books; // the pages in stored order, by the name of the file
};

class ShortWalk {
public:
    explicit ShortWalk(Known& known)
        : known_(known)
    {
        reset_clock();
        look::load_theme(look::theme_standard);
        core::settings().auto_backup = true;
        for (const wchar_t* name : { L"a.bok", L"b.bok" })
            make_book(name);
        room_.talk.on_close = [this] { room_.session.save_at_close(); };
    }

    // Ends early when the program does. `learns`: after each action.
    void run(bool learns)
    {
        for (const auto& action : actions()) {
            SpareAllocations spared;
            if (room_.talk.gone)
                return;
            advance_clock();
            room_.talk.said.clear();
            room_.talk.answers = { true, true };
            const std::wstring before = room_.session.book().path;
            const std::function<void()> full = [this, &action] {
                action();
                room_.session.merge(core::refresh::full);
            };
            resume_allocations();
            room_.session.run(full);
            spare_allocations();
            if (learns)
                learn();
        }
        if (!room_.talk.gone)
            room_.session.save_at_close();
    }

    std::string complaint() const
    {
        for (const wchar_t* name : { L"a.bok", L"b.bok", L"new.bok", L"copy.bok" }) {
            const std::string text = complaint_about(name);
            if (!text.empty())
                return platform::to_utf8(name) + ": " + text;
        }
        return {};
    }

private:
    using Actions = std::vector<std::function<void()>>;

    void make_book(const wchar_t* name)
    {
        book::Book made;
        for (int i = 0; i < 3; ++i) {
            advance_clock();
            book::Page& page = made.pages.emplace_back();
            page.stamp = clock_text() + clock_text();
            page.text[0] = std::wstring(L"a text of some length of the page made at ") + page.stamp;
            page.files = { L"one entry with a long name", L"another entry with a long name" };
        }
        made.save_to(root_.file(name));
        note(name, made.pages);
    }
    void note(const std::wstring& name, const std::vector<book::Page>& pages)
    {
        known_.books[name].insert(creations_of(pages));
        for (const book::Page& page : pages)
            for (std::size_t box = 0; box < 3; ++box)
                known_.texts[creation_of(page)][box].insert(without_end(page.text[box]));
    }
    void learn()
    {
        const book::Book& book = room_.session.book();
        if (!book.path.empty())
            note(std::wstring(platform::file_name(book.path)), book.pages);
    }
    std::string complaint_about(const std::wstring& name) const
    {
        const std::wstring path = root_.file(name);
        if (!platform::exists(path))
            return {};
        book::Book read;
        std::wstring error;
        if (!read.load(path, error, {}))
            return "cannot be loaded: " + platform::to_utf8(error);
        const auto books = known_.books.find(name);
        if (books == known_.books.end() || books->second.count(creations_of(read.pages)) == 0)
            return "other pages than it ever had";
        for (const book::Page& page : read.pages)
            for (std::size_t box = 0; box < 3; ++box)
                if (known_.texts[creation_of(page)][box].count(without_end(page.text[box])) == 0)
                    return "a page has a text that it never had: " + platform::to_utf8(page.text[box]);
        return {};
    }

    // Names the page in its text, so that it is known wherever it gets to.
    void type(std::size_t box, const std::wstring& text)
    {
        const SpareAllocations spared;
        const std::wstring creation = room_.desk.shown_stamp.substr(0, time_length);
        const std::wstring typed = text + L" of the page made at " + creation;
        known_.texts[creation][box].insert(typed);
        room_.desk.type(box, typed);
    }
    std::function<void()> typing(std::size_t box, const wchar_t* text)
    {
        return [this, box, text] { type(box, text); };
    }
    void choose(const wchar_t* name)
    {
        const SpareAllocations spared;
        room_.talk.paths = { root_.file(name) };
    }

    Actions actions()
    {
        app::BookSession& s = room_.session;
        const auto turn = [&s](int direction) { return [&s, direction] { app::turn_page(s, direction); }; };
        const auto order = [&s](int id) { return [&s, id] { app::change_order(s, id); }; };
        const auto add = [&s](int id) { return [&s, id] { app::add_page(s, id); }; };
        const auto swap = [&s](int direction) { return [&s, direction] { app::swap_page(s, direction); }; };
        const auto save = [&s](SaveCode code) { return [&s, code] { s.save(code); }; };
        const auto open = [this, &s](const wchar_t* name) {
            return [this, &s, name] { s.open_book(root_.file(name)); };
        };
        const auto find = [this](const wchar_t* term) {
            return [this, term] {
                const SpareAllocations spared;
                room_.desk.asked.terms = { term };
                room_.desk.asked.in_file_list = true;
            };
        };
        return { open(L"a.bok"), typing(0, L"first"), save(SaveCode::always), turn(1), typing(1, L"second"),
            turn(1), typing(2, L"third"), save(SaveCode::if_changed), find(L"page"), swap(-1),
            typing(0, L"swapped"), swap(-1), add(command::add_page_here), typing(0, L"added"),
            save(SaveCode::ask), add(command::add_page_at_end), typing(0, L"added at the end"), turn(-1),
            order(command::toggle_sorted_order), typing(0, L"sorted"), turn(-1),
            order(command::reverse_order), typing(0, L"reversed"), swap(1),
            order(command::toggle_sorted_order), order(command::reverse_order), [&s] { app::toggle_mark(s); },
            [&s] { app::toggle_tab(s, 7); }, [&s] { app::go_to_tab(s, 1); }, typing(0, L"before a deletion"),
            [&s] { app::delete_page(s); }, [&s] { app::go_to_last_page(s); },
            [&s] { app::select_file_by(s, command::last_file); },
            [&s] { app::move_file(s, command::move_file_up); },
            [&s] { app::sort_files(s, command::sort_files_descending); }, [&s] { app::remove_file(s); },
            [&s] {
                app::add_files(
                    s, [] { return std::vector<std::wstring>{ L"an added entry with a long name" }; });
            },
            [&s] { app::add_dropped_files(s, { L"a dropped entry with a long name" }); },
            typing(0, L"before dropped pages"),
            [&s] {
                app::add_pages_of_files(
                    s, { L"a page's entry with a long name", L"another one with a long name" });
            },
            [&s] {
                app::choose_folder(
                    s, [] { return std::vector<std::wstring>{ L"a folder with a long name" }; });
            },
            [&s] { app::clear_folder(s); }, typing(0, L"before another Book"), open(L"b.bok"),
            typing(0, L"in b"), [&s] { app::go_to_first_page(s); },
            [this, &s] {
                choose(L"copy.bok");
                s.save_book_as();
            },
            typing(1, L"in the copy"), save(SaveCode::always), typing(1, L"not restored"),
            [&s] { s.load_book(s.book().path); },
            [&s] {
                std::wstring result;
                s.back_up_book(&result);
            },
            typing(2, L"before a new Book"),
            [this, &s] {
                choose(L"new.bok");
                s.create_book();
            },
            typing(0, L"new"), add(command::add_page_at_end), typing(0, L"new, too"), turn(-1),
            [&s] { app::delete_page(s); }, [&s] { app::delete_page(s); }, [&s] { app::remove_all_files(s); },
            [&s] { s.open_last_book(); }, open(L"a.bok"), typing(0, L"the last one") };
    }

    Known& known_;
    test_support::DataRoot root_;
    test_support::SessionRoom room_{ root_.file(L"history.txt") };
};

// The walk as it is when the allocations fail; how many there are in it.
std::size_t learn(Known& known)
{
    ShortWalk walk(known);
    fail_allocation(~std::size_t{ 0 });
    spare_allocations();
    walk.run(true);
    EXPECT_EQ(walk.complaint(), "");
    return allocations_counted();
}

void expect_whole_files(std::size_t more)
{
    Known known;
    const std::size_t count = learn(known);
    const auto every =
        static_cast<std::size_t>(test_support::number_from_environment("PAGEWICK_WALK_ALLOCATIONS", 1));
    std::cout << count << " allocations, one in " << every << std::endl;
    for (std::size_t n = 1; n <= count; n += every) {
        ShortWalk walk(known);
        fail_allocation(n, more);
        spare_allocations();
        walk.run(false);
        const bool has_failed = has_allocation_failed();
        fail_allocation(~std::size_t{ 0 });
        spare_allocations();
        // What is made once in a process was counted too.
        if (!has_failed) {
            EXPECT_GT(n, count - count / 50);
            break;
        }
        ASSERT_EQ(walk.complaint(), "") << "allocation " << n << " failed";
    }
}

// A save takes its memory before it cuts the file.
TEST(FailingAllocation, OfASaveLeavesTheOldFile)
{
    const test_support::DataRoot root;
    const std::wstring path = root.file(L"a.bok");
    book::Book book;
    book.pages.resize(3);
    for (book::Page& page : book.pages)
        page.stamp = L"2020010203040520210203040506";
    ASSERT_TRUE(book.save_to(path));
    const std::wstring before = test_support::read_text(path);
    book.pages[1].text[2] = std::wstring(200000, L'x');
    std::size_t n = 1;
    for (bool has_failed = true; has_failed; ++n) {
        has_failed = false;
        fail_allocation(n);
        try {
            book.save_to(path);
        } catch (const std::bad_alloc&) {
            has_failed = true;
        }
        spare_allocations();
        if (has_failed) {
            ASSERT_EQ(test_support::read_text(path), before) << "allocation " << n << " failed";
        }
    }
    EXPECT_GT(n, 3u);
    EXPECT_GT(test_support::read_text(path).size(), 200000u);
}

TEST(FailingAllocation, LeavesWholeFilesAndTextsInTheirPages)
{
    expect_whole_files(0);
}

} // namespace
