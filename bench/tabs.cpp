// Laying out the largest number of tabs, which every page turn does.
#include "bench/harness.hpp"
#include "look/tab_strip.hpp"
#include <algorithm>
#include <stdexcept>

namespace bench {

namespace {

constexpr platform::Size strip{ 1376, 24 };

std::vector<std::uint64_t> tab_numbers(const book::Book& book)
{
    std::vector<std::uint64_t> numbers;
    for (const book::Page& page : book.pages)
        numbers.push_back(page.tab_number);
    return numbers;
}

void set_tab_numbers(book::Book& book, const std::vector<std::uint64_t>& numbers)
{
    for (std::size_t i = 0; i < book.pages.size(); ++i)
        book.pages[i].tab_number = numbers[i];
    book.recount();
}

// As many tabs as a Book may have, spread evenly.
void spread_tabs(book::Book& book)
{
    const std::size_t gap = std::max<std::size_t>(book.pages.size() / book::tab_limit, 1);
    for (std::size_t i = 0; i < book.pages.size(); ++i)
        book.pages[i].tab_number = i % gap == 0 ? 1 : 0;
}

} // namespace

void run_tabs(Bench& bench)
{
    book::Book& book = bench.big_book();
    const std::vector<std::uint64_t> before = tab_numbers(book);
    spread_tabs(book);
    if (look::make_tabs(book, strip).items.size() != static_cast<std::size_t>(book::tab_limit))
        throw std::runtime_error("the big Book has not enough pages for all tabs");
    const Work one_pass = [&] { keep(std::ranges::find(book.pages, book::npos, &book::Page::tab_number)); };
    bench.run({ "tab strip of 256 tabs", [&] { keep(look::make_tabs(book, strip)); },
        "one pass over the pages' tab numbers", one_pass, 3.0 });
    set_tab_numbers(book, before);
}

} // namespace bench
