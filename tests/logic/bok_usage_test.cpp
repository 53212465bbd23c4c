// The command line of bok: accepted and refused arguments, and its output.
#include "tests/support/bok_run.hpp"
#include "tools/bok/options.hpp"
#include <gtest/gtest.h>

namespace {

using test_support::bok;
using test_support::BokFolder;
using test_support::Outcome;
using test_support::PageText;

struct BokUsage : testing::Test {
    BokFolder folder;
    std::string book = folder.write(L"a.bok", test_support::header_lines() + PageText{}.text());

    void expect_usage(const std::vector<std::string>& arguments)
    {
        const Outcome outcome = bok(arguments);
        EXPECT_EQ(outcome.code, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(outcome.complaints(), 1) << outcome.err;
        EXPECT_EQ(outcome.out, "");
    }
};

TEST_F(BokUsage, IsRefusedWithOneLineAndTheCodeTwo)
{
    expect_usage({});
    expect_usage({ "nonsense", book });
    expect_usage({ "info" });
    expect_usage({ "info", book, book });
    expect_usage({ "info", book, "--jsno" });
    expect_usage({ "info", book, "--json=yes" });
    expect_usage({ "info", book, "--json", "--json" });
    expect_usage({ "find", book });
    expect_usage({ "convert", book });
    expect_usage({ "convert", book, "-o" });
    expect_usage({ "import", book, "-o", "b.bok" });
    expect_usage({ "import", book, "--from", "csv", "-o", "b.bok" });
    expect_usage({ "import", book, "--from", "tsv", "-o", "-" });
    expect_usage({ "export", book });
    expect_usage({ "export", book, "--to", "pdf" });
    expect_usage({ "export", book, "--to", "tsv", "-o", "" });
}

TEST_F(BokUsage, ChecksTheValuesOfOptions)
{
    for (const char* range : { "", "-", "5-2", "-3", "a-b", "1-2-3", "1-99999999999999999999", " 1-2" })
        expect_usage({ "pages", book, "--range", range });
    expect_usage({ "order", book, "--mode", "shuffled" });
    for (const char* key : { "2999", "3006", "box1", "-1", "" })
        expect_usage({ "order", book, "--key", key });
    for (const char* seed : { "4294967296", "-1", "1.5", "0x10", "" })
        expect_usage({ "order", book, "--seed", seed });
}

TEST_F(BokUsage, IsShownOnRequest)
{
    for (const std::vector<std::string>& call : { std::vector<std::string>{ "--help" }, { "-h" }, { "help" },
             { "find", "--help" }, { "check", "-h" } }) {
        const Outcome outcome = bok(call);
        EXPECT_EQ(outcome.code, 0);
        EXPECT_TRUE(outcome.out.starts_with("usage: bok") || outcome.out.starts_with("bok")) << outcome.out;
        EXPECT_EQ(outcome.err, "");
    }
}

TEST_F(BokUsage, AcceptsOptionsAnywhereAndInOneWordWithTheirValue)
{
    EXPECT_EQ(bok({ "pages", "--range", "0-0", book }).code, 0);
    EXPECT_EQ(bok({ "pages", book, "--range=0" }).out, bok({ "pages", "--range", "0-0", book }).out);
}

TEST_F(BokUsage, TreatsWordsAfterTwoDashesAsOperands)
{
    expect_usage({ "find", book, "--all-of-it" });
    const Outcome outcome = bok({ "find", book, "--json", "--", "--help" });
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, "");
}

TEST_F(BokUsage, ReportsAProblemInOneLineWhateverThePathContains)
{
    const Outcome outcome = bok({ "info", "no\nsuch\x1b[31m\xff file" });
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.complaints(), 1);
    EXPECT_EQ(outcome.err.find('\x1b'), std::string::npos);
    EXPECT_NE(outcome.err.find("no such file"), std::string::npos);
}

TEST(ParseOptions, ReturnsTheGivenOptions)
{
    using namespace bok;
    const std::array rules{ OptionRule{ "-o", "FILE", "" }, OptionRule{ "--yes", "", "" } };
    const std::vector<std::string> words{ "x", "-o", "--yes", "y" };
    const Options options = parse_options(words, rules, 2);
    EXPECT_EQ(options.operand(0), "x");
    EXPECT_EQ(options.operand(1), "y");
    EXPECT_EQ(options.value("-o"), "--yes");
    EXPECT_FALSE(options.has("--yes"));
}

} // namespace
