// Replacing, selecting, moving and deleting pages of the big Book.
#include "bench/harness.hpp"
#include "book/page_selection.hpp"
#include "book/replace.hpp"
#include "look/page_bar_runs.hpp"

namespace bench {

namespace {

using book::PageSelection;
using book::ReplaceRequest;

constexpr std::size_t hits_in_one_box = 250'000;

ReplaceRequest request_for(std::wstring search, std::wstring replacement)
{
    return { .search = std::move(search),
        .replacement = std::move(replacement),
        .targets = book::replace_target::boxes };
}

// A text that is replaced by itself: the work is the same, and the Book stays as it is but for its stamps.
Work replace_all(book::Book& book, const std::wstring& text, std::size_t least)
{
    return [&book, request = request_for(text, text), least] {
        expect(book::replace_in_pages(book.pages, request) >= least);
    };
}

Work search_all(book::Book& book)
{
    return [&book] {
        book::SearchQuery query;
        query.terms = { L"quixotry" };
        book.header.position = 0;
        book.find(1, query);
    };
}

void run_replace(Bench& bench, book::Book& book)
{
    bench.run({ .name = "replace in all pages, few hits",
        .subject = replace_all(book, L"tempura", 1),
        .against = "one search",
        .yardstick = search_all(book) });
    bench.run({ .name = "replace in all pages, hits on every page",
        .subject = replace_all(book, L"n", book.pages.size()),
        .target_ms = 400 });
    book::Page page;
    bench.run({ .name = "replace 250,000 hits in one box",
        .subject =
            [&page] { expect(book::replace_in_page(page, request_for(L"a", L"bc")) == hits_in_one_box); },
        .target_ms = 20,
        .prepare =
            [&page] {
                page.text[0].clear();
                for (std::size_t i = 0; i < hits_in_one_box; ++i)
                    page.text[0] += L"ab";
            } });
}

void run_selection(Bench& bench, book::Book& book)
{
    bench.run({ .name = "select all pages, count them, runs",
        .subject =
            [&book] {
                book::select_pages(book.pages, 0, book.pages.size() - 1, true);
                expect(book::count_selected(book.pages) == book.pages.size());
                keep(look::page_runs(book.pages));
            },
        .target_ms = 5,
        .prepare = [&book] { book::clear_selection(book.pages); } });
}

// A Book may not reach 100,000 pages with the pages that are pasted, so half a Book is moved within itself.
void run_moves(Bench& bench, book::Book& book)
{
    const auto load = [&bench, &book] {
        std::wstring error;
        expect(book.load(bench.options().book, error, [](const std::wstring&) { return true; }));
        book.pages.resize(49'990);
        for (std::size_t i = 1; i < book.pages.size(); ++i)
            book.pages[i].selected = PageSelection::selected;
    };
    bench.run({ .name = "cut and paste 50,000 pages",
        .subject = [&book] { expect(book.paste_selected(0, book::ClipMode::cut)); },
        .target_ms = 60,
        .prepare = load });
    bench.run({ .name = "copy and paste 50,000 pages",
        .subject = [&book] { expect(book.paste_selected(0, book::ClipMode::copy)); },
        .prepare = load });
    bench.run({ .name = "delete 50,000 pages",
        .subject = [&book] { expect(book.delete_selected({})); },
        .target_ms = 30,
        .prepare = load });
}

} // namespace

void run_edits(Bench& bench)
{
    book::Book& book = bench.big_book();
    run_replace(bench, book);
    run_selection(bench, book);
    run_moves(bench, book);
    std::wstring error;
    expect(book.load(bench.options().book, error, [](const std::wstring&) { return true; }));
}

} // namespace bench
