// Turning pages of the big Book in the main window: by command, by the slider, by a search.
#include "bench/harness.hpp"
#include "bench/wnd/app_host.hpp"
#include "bench/wnd/plain_edits.hpp"
#include "core/command_ids.hpp"
#include "look/wnd/myslider.hpp"
#include "tests/support/gui_mouse.hpp"
#include <algorithm>
#include <commctrl.h>
#include <utility>

namespace bench {

namespace {

namespace command = core::command;

constexpr double frame_ms = 16.7;
constexpr int turns = 10; // per round
constexpr int places = 9; // in the Book, one per round

struct Order {
    const char* name;
    int command; // 0: as stored
};
constexpr Order orders[] = { { "stored", 0 }, { "sorted", command::toggle_sorted_order },
    { "shuffled", command::toggle_random_order } };

std::vector<HWND> boxes_of(const AppHost& host)
{
    return { host.control(command::box_1), host.control(command::box_2), host.control(command::box_3) };
}

// The least that a page turn can cost: setting and painting its texts in plain controls.
Work plain_turn(const AppHost& host, const PlainEdits& plain)
{
    return [&] {
        const book::Book& book = host.book();
        const book::Page& page = book.pages[book.position_to_index(book.header.position)];
        for (std::size_t box = 0; box < book::box_count; ++box)
            SetWindowTextW(plain.edit(box), page.text[box].c_str());
        host.settle();
    };
}

void run_turns(Bench& bench, AppHost& host, const std::string& what)
{
    const PlainEdits plain{ boxes_of(host) };
    Case turn{ "page turn, " + what, [&] { host.command(command::next_page); },
        "the texts in plain edit controls", plain_turn(host, plain), 0, frame_ms, places };
    int round = 0;
    turn.repeats = turns;
    turn.prepare = [&] {
        const std::size_t pages = host.book().pages.size();
        host.go_to(pages / places * static_cast<std::size_t>(round++ % places));
    };
    bench.run(turn);
}

void run_orders(Bench& bench, AppHost& host, const std::string& tabs)
{
    for (const Order& order : orders) {
        if (order.command)
            host.command(order.command);
        run_turns(bench, host, std::string(order.name) + ", " + tabs);
        if (order.command)
            host.command(order.command);
    }
}

// Counts how often a box is given a text, which must be once per page turn.
class TextCount {
public:
    explicit TextCount(HWND box)
        : box_(box)
    {
        SetWindowSubclass(box_, &on_message, 1, reinterpret_cast<DWORD_PTR>(this));
    }
    TextCount(const TextCount&) = delete;
    TextCount& operator=(const TextCount&) = delete;
    ~TextCount() { RemoveWindowSubclass(box_, &on_message, 1); }

    int count() const { return count_; }

private:
    static LRESULT CALLBACK on_message(
        HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR, DWORD_PTR self)
    {
        if (message == WM_SETTEXT || message == EM_SETHANDLE)
            ++reinterpret_cast<TextCount*>(self)->count_;
        return DefSubclassProc(hwnd, message, wparam, lparam);
    }

    HWND box_;
    int count_ = 0;
};

// A drag of the slider that begins at the left end of its track.
class Drag {
public:
    explicit Drag(AppHost& host)
        : host_(host)
        , slider_(host.the<look::MySlider>())
        , mouse_(slider_.hwnd())
        , turns_(host.control(command::box_1))
    {
        host_.go_to(0);
        mouse_.move(place());
        mouse_.press();
        host_.settle();
    }

    int width() const { return slider_.track.width(); }
    // Drags by so many pixels and serves all messages. Throws unless each new value turned exactly one page.
    void step(int pixels)
    {
        const std::int32_t old_value = slider_.value;
        const int old_turns = turns_.count();
        x_ += pixels;
        mouse_.move(place());
        host_.settle();
        check(turns_.count() - old_turns == (slider_.value != old_value));
    }
    // Moves the pointer pixel by pixel along the whole track before any message is served, then serves them
    // all.
    void sweep()
    {
        POINT from = place();
        ClientToScreen(slider_.hwnd(), &from);
        for (int i = 1; i <= width(); ++i)
            SetCursorPos(from.x + i, from.y);
        x_ += width();
        mouse_.move(place());
        host_.settle();
        check(host_.book().header.position + 1 == host_.book().pages.size());
    }
    void back()
    {
        x_ = 0;
        mouse_.move(place());
        host_.settle();
    }
    int turns() const { return turns_.count(); }

private:
    POINT place() const
    {
        const platform::Rect& track = slider_.track;
        return { track.left + x_, (track.top + track.bottom) / 2 };
    }
    static void check(bool holds)
    {
        if (!holds)
            throw std::runtime_error("the slider and the pages do not go together");
    }

    AppHost& host_;
    look::MySlider& slider_;
    gui::Mouse mouse_;
    TextCount turns_;
    int x_ = 0; // from the left end of the track
};

void run_drag(Bench& bench, AppHost& host)
{
    constexpr int rounds = 9;
    Drag drag{ host };
    const Work by_command = [&] { host.command(command::previous_page); };
    Case step{ "slider drag, a pixel a step", [&] { drag.step(1); }, "a page turn by command", by_command, 0,
        frame_ms, rounds };
    step.repeats = drag.width() / rounds;
    bench.run(step);
    Case sweep{ "slider drag, the whole track at once", [&] { drag.sweep(); }, "a page turn by command",
        by_command, 0, 3 * frame_ms };
    sweep.prepare = [&] { drag.back(); };
    bench.run(sweep);
}

// A search without result reads every page and shows the banner.
void run_search_in_vain(Bench& bench, AppHost& host)
{
    constexpr const wchar_t* nowhere = L"quixotryx";
    host.go_to(0);
    SetWindowTextW(host.control(command::search_box), nowhere);
    host.settle();
    book::Book& plain = bench.big_book();
    book::SearchQuery query;
    query.terms = { nowhere };
    const std::uint64_t position = std::exchange(plain.header.position, 0);
    bench.run({ "next page by a search in vain", [&] { host.command(command::next_page); },
        "the search of the Book alone", [&] { keep(plain.find(1, query)); }, 0, frame_ms });
    plain.header.position = position;
    SetWindowTextW(host.control(command::search_box), L"");
    host.settle();
}

// As many tabs as a Book may have, spread evenly.
void spread_tabs(book::Book& book)
{
    const std::size_t gap = std::max<std::size_t>(book.pages.size() / book::tab_limit, 1);
    for (std::size_t i = 0; i < book.pages.size(); i += gap)
        book.pages[i].tab_number = 1;
    book.recount();
}

void clear_tabs(book::Book& book)
{
    for (book::Page& page : book.pages)
        page.tab_number = 0;
    book.recount();
}

} // namespace

void run_pages(Bench& bench)
{
    book::Book& book = bench.big_book();
    {
        AppHost host{ book };
        run_orders(bench, host, "no tabs");
        run_drag(bench, host);
        run_search_in_vain(bench, host);
    }
    spread_tabs(book);
    {
        AppHost host{ book };
        run_orders(bench, host, "256 tabs");
    }
    clear_tabs(book);
}

} // namespace bench
