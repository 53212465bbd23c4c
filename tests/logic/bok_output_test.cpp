// Output is written completely or not at all, and progress is shown on a terminal only.
#include "platform/file.hpp"
#include "tests/support/bok_run.hpp"
#include "tools/bok/progress.hpp"
#include "tools/bok/sink.hpp"
#include "tools/bok/streams.hpp"
#include <gtest/gtest.h>
#include <streambuf>

namespace {

using bok::Problem;
using bok::Progress;
using bok::Replacement;
using test_support::bok;
using test_support::BokFolder;
using test_support::header_lines;
using test_support::Outcome;
using test_support::PageText;

struct BokOutput : testing::Test {
    BokFolder folder;
    std::wstring target = folder.wide_path(L"out.txt");
    std::wstring beside = target + L".0.tmp";

    static void write(const std::wstring& path, std::string_view text)
    {
        platform::File file = platform::File::create(path);
        ASSERT_TRUE(file.write(std::as_bytes(std::span(text))));
    }
};

TEST_F(BokOutput, ReplacesItsTargetInOneStep)
{
    folder.write_utf8(L"out.txt", "old and long");
    {
        Replacement replacement(target);
        write(replacement.path(), "new");
        EXPECT_EQ(folder.read_utf8(L"out.txt"), "old and long");
        replacement.commit();
    }
    EXPECT_EQ(folder.read_utf8(L"out.txt"), "new");
    EXPECT_FALSE(platform::exists(beside));
}

TEST_F(BokOutput, LeavesNoFilesWhenItIsAbandoned)
{
    folder.write_utf8(L"out.txt", "old");
    {
        Replacement replacement(target);
        write(replacement.path(), "half");
    }
    EXPECT_EQ(folder.read_utf8(L"out.txt"), "old");
    EXPECT_FALSE(platform::exists(beside));
}

TEST_F(BokOutput, TouchesNoOtherFileBesideItsTarget)
{
    folder.write_utf8(L"out.txt.0.tmp", "somebody else's");
    {
        Replacement replacement(target);
        EXPECT_NE(replacement.path(), beside);
        replacement.commit();
    }
    EXPECT_EQ(folder.read_utf8(L"out.txt.0.tmp"), "somebody else's");
}

TEST_F(BokOutput, IsRefusedWhereNoFileCanBeCreated)
{
    EXPECT_THROW(Replacement(folder.wide_path(L".")), Problem);
    EXPECT_THROW(Replacement(folder.wide_path(L"missing") + L"/out.txt"), Problem);
}

TEST_F(BokOutput, OfEveryCommandIsRefusedWithOneLine)
{
    const std::string book = folder.write(L"a.bok", header_lines() + PageText{}.text());
    const std::string table = folder.write_utf8(L"a.tsv", "a\tb\tc\t\t\n");
    for (const std::string& bad : { folder.path(L"."), folder.path(L"missing") + "/x" }) {
        for (const std::vector<std::string>& call : { std::vector<std::string>{ "convert", book, "-o", bad },
                 { "import", table, "--from", "tsv", "-o", bad },
                 { "export", book, "--to", "html", "-o", bad } }) {
            const Outcome outcome = bok(call);
            EXPECT_EQ(outcome.code, 1) << call[0];
            EXPECT_EQ(outcome.complaints(), 1) << outcome.err;
        }
    }
}

TEST_F(BokOutput, OfAnExportGoesToTheNamedFile)
{
    const std::string book = folder.write(L"a.bok", header_lines() + PageText{}.text());
    const Outcome outcome = bok({ "export", book, "--to", "tsv", "-o", folder.path(L"out.txt") });
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(folder.read_utf8(L"out.txt"), "\t\t\t\t\n");
    EXPECT_EQ(bok({ "export", book, "--to", "tsv", "-o", "-" }).out, "\t\t\t\t\n");
}

#if !defined(_WIN32)
TEST_F(BokOutput, NeverReplacesADevice)
{
    const std::string book = folder.write(L"a.bok", header_lines() + PageText{}.text());
    EXPECT_EQ(bok({ "convert", book, "-o", "/dev/null" }).code, 1);
    EXPECT_TRUE(platform::exists(L"/dev/null"));
    EXPECT_FALSE(platform::is_regular_file(L"/dev/null"));
}
#endif

// Accepts so many bytes and no more.
class FullStream : public std::streambuf {
public:
    explicit FullStream(std::streamsize room)
        : room_(room)
    {
    }

private:
    std::streamsize xsputn(const char*, std::streamsize count) override
    {
        room_ -= count;
        return room_ < 0 ? 0 : count;
    }
    int_type overflow(int_type unit) override { return --room_ < 0 ? traits_type::eof() : unit; }
    std::streamsize room_;
};

TEST_F(BokOutput, ThatIsTruncatedIsAProblem)
{
    const std::string book = folder.write(L"a.bok", header_lines() + PageText{}.text());
    FullStream full(10);
    std::istringstream in;
    std::ostream out(&full);
    std::ostringstream err;
    bok::Streams streams{ in, out, err };
    EXPECT_EQ(bok::run({ "pages", book, "--json" }, streams), 1);
    EXPECT_NE(err.str().find("cannot be written"), std::string::npos);
}

struct BokProgress : testing::Test {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    bok::Streams streams{ in, out, err };
};

TEST_F(BokProgress, ShowsNothingInAPipe)
{
    Progress progress(streams, "working");
    progress.announce();
    progress.show(1, 2);
    EXPECT_EQ(err.str(), "");
}

TEST_F(BokProgress, ShowsNothingForShortWork)
{
    streams.err_is_terminal = true;
    {
        Progress progress(streams, "working");
        for (std::uint64_t i = 0; i < 1000; ++i)
            progress.show(i, 1000);
    }
    EXPECT_EQ(err.str(), "");
}

TEST_F(BokProgress, ShowsLongWorkAndErasesTheLine)
{
    streams.err_is_terminal = true;
    {
        Progress progress(streams, "working");
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (err.str().empty() && std::chrono::steady_clock::now() < deadline)
            progress.show(1, 2);
        EXPECT_EQ(err.str(), "\rworking 50 %");
    }
    EXPECT_EQ(err.str(), "\rworking 50 %\r            \r");
}

TEST_F(BokProgress, AnnouncesWorkOfUnknownProgress)
{
    streams.err_is_terminal = true;
    {
        Progress progress(streams, "reading");
        progress.announce();
        EXPECT_EQ(err.str(), "\rreading ...");
        progress.hide();
        EXPECT_TRUE(err.str().ends_with("\r           \r"));
    }
    EXPECT_TRUE(err.str().ends_with("\r           \r"));
}

} // namespace
