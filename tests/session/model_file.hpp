// A second reader and writer of Book files, implemented from the format's description alone.
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
// As box 2 is committed: the first line of what is left after trimming.
void make_one_line(std::wstring& text);

// Of a path.
std::wstring name_of(const std::wstring& path);
std::wstring stem_of(const std::wstring& path);

// The file in code units. Trims the pages' texts.
std::wstring written(Record& record);
// Recognises the start of the file; sets `header` only if it is good.
Reading look_at_header(const std::wstring& file, book::BookHeader& header, std::size_t& end);
// Reads the pages from `start` on. Returns good or bad_numbers.
Reading read_pages(const std::wstring& file, std::size_t start, std::vector<book::Page>& pages);

} // namespace session_walk
