// Imports of bok: accepted input becomes a Book, and refused input leaves the target unchanged.
#pragma once
#include "book/book.hpp"
#include "platform/file.hpp"
#include "tests/support/bok_run.hpp"
#include <gtest/gtest.h>

namespace test_support {

class BokImport : public testing::Test {
protected:
    // `format` is the value of --from.
    explicit BokImport(std::string format)
        : format_(std::move(format))
    {
    }

    Outcome import(std::string_view text)
    {
        return bok({ "import", folder.write_utf8(L"in.txt", text), "--from", format_, "-o", target });
    }
    book::Book loaded(const std::wstring& name = L"out.bok")
    {
        book::Book book;
        std::wstring error;
        EXPECT_TRUE(book.load(folder.wide_path(name), error, {})) << platform::to_utf8(error);
        return book;
    }
    book::Book imported(std::string_view text)
    {
        const Outcome outcome = import(text);
        EXPECT_EQ(outcome.code, 0) << outcome.err;
        EXPECT_EQ(outcome.out + outcome.err, "");
        return loaded();
    }
    void expect_refused(std::string_view text, std::string_view words)
    {
        folder.write_utf8(L"out.bok", "what stood here");
        const Outcome outcome = import(text);
        EXPECT_EQ(outcome.code, 1) << words << "\n" << text;
        EXPECT_EQ(outcome.complaints(), 1) << outcome.err;
        EXPECT_NE(outcome.err.find(words), std::string::npos) << outcome.err;
        EXPECT_EQ(folder.read_utf8(L"out.bok"), "what stood here");
        EXPECT_FALSE(platform::exists(folder.wide_path(L"out.bok.0.tmp")));
    }

    BokFolder folder;
    std::string target = folder.path(L"out.bok");

private:
    std::string format_;
};

} // namespace test_support
