// The windows beside the main one, with the numbers of hits, entries and pages at which they could be slow.
#include "bench/harness.hpp"
#include "bench/wnd/app_host.hpp"
#include "bench/wnd/plain_edits.hpp"
#include "book/file_list_text.hpp"
#include "book/page_editor_view.hpp"
#include "book/wnd/book_search_result_wnd.hpp"
#include "book/wnd/bookeditor.hpp"
#include "book/wnd/filelist_editor.hpp"
#include "book/wnd/replacewnd.hpp"
#include "core/command_ids.hpp"
#include "core/refresh.hpp"
#include "look/theme.hpp"
#include "tests/support/gui_mouse.hpp"
#include "tests/support/gui_settings.hpp"
#include <algorithm>
#include <chrono>
#include <memory>

namespace bench {

namespace {

namespace command = core::command;

constexpr double frame_ms = 16.7;

book::Book small_book(std::size_t pages)
{
    book::Book made;
    for (std::size_t i = 0; i < pages; ++i)
        made.new_page(i, look::page_colors(look::palette()));
    return made;
}

// A page with as many hits for "ab" as given, one on each line.
book::Book hit_book(std::size_t hits)
{
    book::Book made = small_book(1);
    for (std::size_t i = 0; i < hits; ++i)
        made.pages.front().text[0] += L"ab\r\n";
    return made;
}

// Each round types one of two search texts with the same hits.
class TypedSearch {
public:
    explicit TypedSearch(AppHost& host)
        : host_(host)
    {
    }
    void operator()()
    {
        SetWindowTextW(host_.control(command::search_box), (is_second_ = !is_second_) ? L"a" : L"b");
        host_.settle();
    }

private:
    AppHost& host_;
    bool is_second_ = false;
};

void run_hits(Bench& bench, std::size_t hits, double beyond_ms, bool wraps = false)
{
    book::Book book = hit_book(hits);
    book.header.wrap_text = wraps ? 1 : 0;
    AppHost host{ book };
    auto type = std::make_shared<TypedSearch>(host);
    book::SearchQuery query;
    query.terms = { L"a" };
    const Work find = [&host, query] {
        std::vector<book::SearchHit> found;
        expect(book::match_page(host.book().pages.front(), query, found));
    };
    const std::string name = std::to_string(hits) + (wraps ? " hits, wrapped" : " hits");
    bench.run({ .name = "a key in the search box, " + name + ", results hidden",
        .subject = [type] { (*type)(); },
        .against = "finding them",
        .yardstick = find,
        .target_ms = beyond_ms });
    host.command(command::toggle_results);
    expect(host.the<book::BookSearchResultWnd>().is_open());
    bench.run({ .name = "a key in the search box, " + name + ", results shown",
        .subject = [type] { (*type)(); },
        .against = "finding them",
        .yardstick = find,
        .target_ms = beyond_ms });
    host.command(command::toggle_results);
}

void run_results(Bench& bench)
{
    run_hits(bench, 1'000, frame_ms);
    run_hits(bench, 100'000, 120);
    run_hits(bench, 100'000, 120, true);
}

// Two pages with as many entries as given.
book::Book list_book(std::size_t entries)
{
    book::Book made = small_book(2);
    for (book::Page& page : made.pages) {
        for (std::size_t i = 0; i < entries; ++i)
            page.files.push_back(L"http://x.invalid/" + std::to_wstring(i));
    }
    return made;
}

void run_list(Bench& bench, std::size_t entries)
{
    book::Book book = list_book(entries);
    AppHost host{ book };
    const std::string name = std::to_string(entries) + " entries";
    const auto turn = [&host] {
        host.command(host.book().header.position == 0 ? command::next_page : command::previous_page);
    };
    const auto choose = [&host] {
        const book::Page& page = host.book().pages[host.book().header.position];
        host.command(page.current_file == 0 ? command::next_file : command::first_file);
    };
    host.command(command::show_file_list_editor);
    auto& editor = host.the<book::FileListEditor>();
    expect(editor.is_open());
    HWND const list = GetDlgItem(editor.hwnd(), command::file_list_box);
    const PlainEdits plain{ { list } };
    const std::wstring text = book::file_list_text(host.book().pages.front()).text;
    const Work set_plain = [&host, &plain, &text] {
        SetWindowTextW(plain.edit(0), text.c_str());
        host.settle();
    };
    bench.run({ .name = "page turn, list editor open, " + name,
        .subject = turn,
        .against = "the text in a plain edit control",
        .yardstick = set_plain });
    bench.run({ .name = "next file, list editor open, " + name,
        .subject = choose,
        .against = "the text in a plain edit control",
        .yardstick = set_plain });
    SendMessageW(editor.hwnd(), WM_CLOSE, 0, 0);
    host.settle();
    bench.run({ .name = "page turn, list editor hidden, " + name,
        .subject = turn,
        .against = "the text in a plain edit control",
        .yardstick = set_plain });
    bench.run({ .name = "next file, list editor hidden, " + name,
        .subject = choose,
        .against = "the text in a plain edit control",
        .yardstick = set_plain });
}

void run_lists(Bench& bench)
{
    for (const std::size_t entries : { 10u, 1'000u, 10'000u })
        run_list(bench, entries);
}

// Opening saves the Book once. Restoring loads it.
void run_opening(Bench& bench, AppHost& host)
{
    const auto close = [&host] {
        if (const auto* window = host.find<book::ReplaceWnd>())
            SendMessageW(window->hwnd(), WM_CLOSE, 0, 0);
        host.settle();
    };
    book::Book& plain = bench.big_book();
    const std::wstring scratch = bench.options().scratch;
    bench.run({ .name = "opening the replace window",
        .subject = [&host] { host.command(command::show_replace); },
        .against = "a save of the Book and a refresh of all views",
        .yardstick =
            [&] {
                expect(plain.save_to(scratch));
                host.window().send_command(command::request_refresh, 0, core::refresh::full);
                host.settle();
            },
        .target_ratio = 1.1,
        .prepare = close });
    expect(host.the<book::ReplaceWnd>().is_open());
    book::Book loaded;
    bench.run({ .name = "restoring the Book",
        .subject = [&host] { host.command(command::restore_book); },
        .against = "a load of the Book and a refresh of all views",
        .yardstick =
            [&] {
                std::wstring error;
                expect(loaded.load(bench.options().book, error, nullptr));
                host.window().send_command(command::request_refresh, 0, core::refresh::full);
                host.settle();
            },
        .target_ratio = 1.2 });
    close();
    DeleteFileW(scratch.c_str());
}

// A range is dragged over the strip of the page editor, pixel by pixel.
class StripDrag {
public:
    explicit StripDrag(AppHost& host)
        : host_(host)
        , mouse_(open_editor(host))
    {
        mouse_.move(place());
        mouse_.press();
        host_.settle();
    }
    void step()
    {
        const std::uint64_t before = host_.book().header.position;
        ++x_;
        mouse_.move(place());
        host_.settle();
        expect(host_.book().header.position != before);
    }
    static int width()
    {
        return book::page_editor_place::strip.right - book::page_editor_place::strip.left - 8;
    }

private:
    static HWND open_editor(AppHost& host)
    {
        host.command(command::show_book_editor);
        return host.the<book::BookEditor>().hwnd();
    }
    POINT place() const
    {
        const platform::Rect strip = book::page_editor_place::strip;
        return { strip.left + 4 + x_, (strip.top + strip.bottom) / 2 };
    }

    AppHost& host_;
    gui::Mouse mouse_;
    int x_ = 0;
};

void run_strip(Bench& bench, AppHost& host)
{
    constexpr int rounds = 9;
    {
        StripDrag drag{ host };
        Case step{ .name = "a step of a drag over the strip",
            .subject = [&] { drag.step(); },
            .against = "a page turn by command",
            .yardstick = [&] { host.command(command::previous_page); },
            .target_ratio = 1.1,
            .rounds = rounds };
        step.repeats = StripDrag::width() / rounds;
        bench.run(step);
    }
    SendMessageW(host.the<book::BookEditor>().hwnd(), WM_CLOSE, 0, 0);
    host.settle();
}

// From the press of OK until the settings are stored, which also queues every entry of the Book for links.
double settings_ms(AppHost& host)
{
    using Clock = std::chrono::steady_clock;
    Clock::time_point pressed;
    gui::SettingsUser user{ [&](HWND window) {
        HWND const ok = GetDlgItem(window, command::close_window);
        expect(gui::poll_until([&] { return IsWindowEnabled(ok) != FALSE; }));
        pressed = Clock::now();
        SendMessageW(window, WM_COMMAND, command::close_window, reinterpret_cast<LPARAM>(ok));
    } };
    host.window().send_command(command::show_settings, 0, 0);
    const auto done = Clock::now();
    expect(user.finish());
    host.settle();
    return std::chrono::duration<double, std::milli>(done - pressed).count();
}

// The median of several rounds, for a Book with so many entries on each page.
double settings_ms(std::size_t entries)
{
    constexpr std::size_t pages = 1'000;
    book::Book book = small_book(pages);
    for (std::size_t page = 0; page < pages; ++page) {
        for (std::size_t i = 0; i < entries; ++i)
            book.pages[page].files.push_back(
                L"C:\\無い\\" + std::to_wstring(page) + L"\\" + std::to_wstring(i) + L".png");
    }
    AppHost host{ book };
    std::vector<double> times;
    for (int round = 0; round < 5; ++round)
        times.push_back(settings_ms(host));
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void run_settings(Bench& bench)
{
    Result result;
    result.name = "OK in the settings, 200,000 entries";
    result.ms = settings_ms(200);
    result.against = "OK without entries";
    result.yardstick_ms = settings_ms(std::size_t{ 0 });
    result.target_ms = 30;
    bench.add(result);
}

} // namespace

void run_windows(Bench& bench)
{
    run_results(bench);
    run_lists(bench);
    {
        AppHost host{ bench.big_book() };
        run_opening(bench, host);
        run_strip(bench, host);
    }
    run_settings(bench);
}

} // namespace bench
