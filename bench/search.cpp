// Searching every page of the big Book.
#include "bench/harness.hpp"
#include <stdexcept>

namespace bench {

namespace {

using book::LetterCase;

constexpr char ripgrep[] = "rg -i";
// No page contains these.
constexpr wchar_t absent[] = L"quixotry";
constexpr wchar_t common_letters[] = L"tensions here";
constexpr int many_rounds = 25;

book::SearchQuery query_for(std::vector<std::wstring> terms, LetterCase letter_case)
{
    book::SearchQuery query;
    query.terms = std::move(terms);
    query.ignore_case = letter_case == LetterCase::folded;
    return query;
}

// Searches all pages after the first: no page matches, so none ends the search early.
Work search_of_all(book::Book& book, book::SearchQuery query)
{
    return [&book, query = std::move(query)] {
        book.header.position = 0;
        book.find(1, query);
        if (!book.hits.empty() || book.header.position != 0)
            throw std::runtime_error("a term that stands on no page was found");
    };
}

void run_one_term(Bench& bench, const std::string& name, const std::wstring& term, LetterCase letter_case)
{
    bench.run({ .name = name,
        .subject = search_of_all(bench.big_book(), query_for({ term }, letter_case)),
        .against = ripgrep,
        .target_ratio = 1,
        .rounds = many_rounds });
}

void run_three_terms(Bench& bench, LetterCase letter_case, bool all_terms)
{
    auto three = query_for({ absent, L"粽子節", common_letters }, letter_case);
    three.all_terms = all_terms;
    bench.run({ .name = std::string("search, three terms, ") + (all_terms ? "all" : "any")
            + (letter_case == LetterCase::folded ? ", folded" : ", exact"),
        .subject = search_of_all(bench.big_book(), three),
        .against = "one term",
        .yardstick = search_of_all(bench.big_book(), query_for({ absent }, letter_case)),
        .target_ratio = 2,
        .rounds = many_rounds });
}

// Consecutive pages of a shuffled Book lie anywhere in memory.
void run_shuffled(Bench& bench)
{
    book::Book& book = bench.big_book();
    book.header.order_mode = static_cast<std::int32_t>(book::OrderMode::random);
    book.rebuild_order();
    run_one_term(bench, "search, one term, shuffled Book", absent, LetterCase::exact);
}

} // namespace

void run_search(Bench& bench)
{
    book::Book& book = bench.big_book();
    const book::BookHeader header = book.header;
    run_one_term(bench, "search, one term, exact", absent, LetterCase::exact);
    run_one_term(bench, "search, one term, folded", absent, LetterCase::folded);
    run_one_term(bench, "search, common letters, folded", common_letters, LetterCase::folded);
    for (const bool all_terms : { false, true })
        for (const LetterCase letter_case : { LetterCase::exact, LetterCase::folded })
            run_three_terms(bench, letter_case, all_terms);
    run_shuffled(bench);
    book.header = header;
    book.rebuild_order();
}

} // namespace bench
