// The file of a Book, written and read anew by its description alone.
#pragma once
#include "book/book_header.hpp"
#include "book/page.hpp"
#include <string>
#include <vector>

namespace session_walk {

struct Record {
    book::BookHeader header;
    std::vector<book::Page> pages;
};

enum class Reading { good, no_header, older, damaged_header, bad_numbers };

bool is_white(wchar_t unit);
void trim_right(std::wstring& text);
void trim(std::wstring& text);

// In code units. The pages' texts are trimmed.
std::wstring written(Record& record);
// What is at the start; a header only when it is good.
Reading look_at_header(const std::wstring& file, book::BookHeader& header, std::size_t& end);
// The pages from `start` on: good or bad_numbers.
Reading read_pages(const std::wstring& file, std::size_t start, std::vector<book::Page>& pages);

} // namespace session_walk
