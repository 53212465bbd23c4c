// One-term and three-term search of every page of the big Book.
#include "bench/harness.hpp"

namespace bench {

namespace {

constexpr char ripgrep[] = "rg -i";
constexpr wchar_t absent[] = L"quixotry";
constexpr int many_rounds = 25;

book::SearchQuery query_for(std::vector<std::wstring> terms, book::LetterCase letter_case)
{
    book::SearchQuery query;
    query.terms = std::move(terms);
    query.ignore_case = letter_case == book::LetterCase::folded;
    return query;
}

// From the first page over every other to the end: no page matches, so none stops it.
Work search_of_all(book::Book& book, book::SearchQuery query)
{
    return [&book, query = std::move(query)] {
        book.header.position = 0;
        keep(book.find(1, query));
    };
}

} // namespace

void run_search(Bench& bench)
{
    using book::LetterCase;
    book::Book& book = bench.big_book();
    const std::uint64_t position = book.header.position;
    const auto exact = query_for({ absent }, LetterCase::exact);
    const auto folded = query_for({ absent }, LetterCase::folded);
    bench.run({ "search, one term, exact", search_of_all(book, exact), ripgrep, nullptr, 1, 0, many_rounds });
    bench.run(
        { "search, one term, folded", search_of_all(book, folded), ripgrep, nullptr, 1, 0, many_rounds });
    for (const bool all_terms : { false, true })
        for (const bool ignore_case : { false, true }) {
            book::SearchQuery one = ignore_case ? folded : exact;
            book::SearchQuery three = one;
            three.terms = { absent, L"粽子節", L"tensions here" };
            three.all_terms = all_terms;
            bench.run({ std::string("search, three terms, ") + (all_terms ? "all" : "any")
                    + (ignore_case ? ", folded" : ", exact"),
                search_of_all(book, three), "one term", search_of_all(book, one), 2, 0, many_rounds });
        }
    book.header.position = position;
}

} // namespace bench
