// Book files as text, and a Book to load them into.
#pragma once
#include "book/book.hpp"
#include "book/book_file.hpp"
#include "book/header_text.hpp"
#include "tests/support/memory_stream.hpp"
#include "tests/support/temp_folder.hpp"
#include <gtest/gtest.h>

namespace test_support {

using book::Book;
using book::Page;

inline const std::wstring marker = L"\3\3\r\n";
inline const std::wstring stop = L"\3\r\n";
inline const std::wstring numbers = L"2024010112345620240202235959 0 0 0 1 2 3 4 5 6 0 0 0\r\n";

inline std::wstring header_lines(const book::BookHeader& header = {})
{
    const std::string digits = book::header_text(header);
    return marker + std::wstring(digits.begin(), digits.end()) + L"\r\n" + marker;
}

// The fields of a page as in a file, each with its separator line.
inline std::wstring page_lines(const std::vector<std::wstring>& fields)
{
    std::wstring text;
    for (const std::wstring& field : fields)
        text += field + stop;
    return text;
}

inline std::wstring page_of_box1(const std::wstring& text)
{
    return page_lines({ text, L"", L"", L"", L"", numbers });
}

// Gives every question the same answer and records the questions.
struct Asker {
    bool answer = false;
    std::vector<std::wstring> questions;

    book::AskUser function()
    {
        return [this](const std::wstring& question) {
            questions.push_back(question);
            return answer;
        };
    }
};

class BookFile : public testing::Test {
protected:
    bool load(const std::wstring& text, bool answer = false)
    {
        write_text(file, text);
        asker = Asker{ answer, {} };
        return book.load(file, error, asker.function());
    }
    std::wstring saved()
    {
        EXPECT_TRUE(book.save_to(file));
        return read_text(file);
    }
    // Loads a page with these fields; adds no numbers line.
    const Page& loaded_page(const std::vector<std::wstring>& fields)
    {
        EXPECT_TRUE(load(header_lines() + page_lines(fields)));
        return book.pages.at(0);
    }

    TempFolder folder;
    std::wstring file = folder.file(L"本.bok");
    Book book;
    std::wstring error;
    Asker asker;
};

} // namespace test_support
