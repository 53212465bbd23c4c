// Markdown and HTML: the result is readable, and no text of a Book becomes markup.
#include "book/book.hpp"
#include "tests/support/bok_run.hpp"
#include <gtest/gtest.h>

namespace {

using test_support::bok;
using test_support::BokFolder;
using test_support::header_lines;
using test_support::Outcome;
using test_support::PageText;

struct BokExport : testing::Test {
    BokFolder folder;

    std::string exported(const std::string& format, const PageText& page, const book::BookHeader& header = {})
    {
        const std::string path = folder.write(L"本.bok", header_lines(header) + page.text());
        const Outcome outcome = bok({ "export", path, "--to", format });
        EXPECT_EQ(outcome.code, 0) << outcome.err;
        return outcome.out;
    }
    static std::size_t count(const std::string& text, std::string_view part)
    {
        std::size_t found = 0;
        for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + part.size()))
            ++found;
        return found;
    }
    static void expect_part(const std::string& text, std::string_view part)
    {
        EXPECT_NE(text.find(part), text.npos) << part << "\nnot in:\n" << text;
    }
};

using BokHtml = BokExport;

TEST_F(BokHtml, IsOneCompletePageInJapanese)
{
    PageText page;
    page.box2 = L"題名\r\n";
    const std::string html = exported("html", page);
    EXPECT_TRUE(html.starts_with("<!DOCTYPE html>\n<html lang=\"ja\">\n<head>\n<meta charset=\"utf-8\">"));
    EXPECT_TRUE(html.ends_with("</html>\n"));
    expect_part(html, "<title>本</title>");
    expect_part(html, "<h1>本</h1>");
    expect_part(html, "<h2>目次</h2>");
    EXPECT_EQ(count(html, "src="), 0u);
    EXPECT_EQ(count(html, "<link"), 0u);
    EXPECT_EQ(count(html, "<script"), 0u);
}

TEST_F(BokHtml, LinksTheContentsToEachPage)
{
    PageText page;
    page.box2 = L"題名\r\n";
    const std::string html = exported("html", page);
    expect_part(html, "<a href=\"#p1\"><bdi>題名</bdi></a>");
    expect_part(html, "<article id=\"p1\">");
}

TEST_F(BokHtml, HasTheColoursOfTheBookThePageAndItsTab)
{
    book::BookHeader header;
    header.theme = 6001;
    PageText page;
    page.box1 = L"a\r\n";
    page.box2 = L"b\r\n";
    page.box3 = L"c\r\n";
    page.numbers = L"2026010203040520260607080910 1 1 1193046 4278190335 65280 16711680 1 2 3 0 0 0\r\n";
    const std::string html = exported("html", page, header);
    expect_part(html, "body{color:#000000;background:#e0c8a0}");
    expect_part(html, "<div class=\"text lead\" style=\"color:#010000;background:#ff0000\">a</div>");
    expect_part(html, "<h2 style=\"color:#020000;background:#00ff00;border-left-color:#563412\">");
    expect_part(html, "<div class=\"text body\" style=\"color:#030000;background:#0000ff\">c</div>");
    EXPECT_EQ(count(html, "★"), 2u);
}

TEST_F(BokHtml, KeepsLinesAndSpaces)
{
    PageText page;
    page.box3 = L"one\r\n\r\n  two\rthree\nfour\r\n";
    expect_part(exported("html", page), ">one\n\n  two\nthree\nfour</div>");
}

TEST_F(BokHtml, EscapesAllText)
{
    const std::wstring evil = L"</div></style></title><script>alert('x')</script><!-- \"onload=\"&lt;\r\n";
    PageText page;
    page.box1 = evil;
    page.box2 = evil;
    page.box3 = evil;
    page.files = evil + L"https://a.example/\"><script>\r\njavascript:alert(1)\r\nHTTPS://b.example/\r\n";
    page.folder = evil;
    page.numbers = L"\"><script> 0 0 0 0 0 0 0 0 0 0 0 0\r\n";
    const std::string html = exported("html", page);
    EXPECT_EQ(count(html, "<script"), 0u);
    EXPECT_EQ(count(html, "<!--"), 0u);
    EXPECT_EQ(count(html, "</title>"), 1u);
    EXPECT_EQ(count(html, "</style>"), 1u);
    EXPECT_EQ(count(html, "</body>"), 1u);
    EXPECT_EQ(count(html, "<article"), 1u);
    EXPECT_EQ(count(html, "<div"), count(html, "</div>"));
    expect_part(html, "href=\"https://a.example/&quot;&gt;&lt;script&gt;\"");
    EXPECT_EQ(count(html, "<a rel"), 1u);
    expect_part(html, "<li><bdi>javascript:alert(1)</bdi></li>");
    expect_part(html, "&lt;script&gt;alert(&#39;x&#39;)&lt;/script&gt;&lt;!-- &quot;onload=&quot;&amp;lt;");
}

TEST_F(BokHtml, ContainsNoCharacterThatHtmlForbids)
{
    PageText page;
    page.box3 = std::wstring(L"a\0b\x1\x1B\x7F\x85\xD800 \xDC00\xFFFE\xFDD0\xDBFF\xDFFF z\r\n", 18);
    expect_part(exported("html", page),
        ">a\xEF\xBF\xBD"
        "b\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD "
        "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD z<");
}

TEST_F(BokHtml, IsInDisplayOrder)
{
    book::BookHeader header;
    header.order_mode = -2700;
    PageText first;
    first.box2 = L"first\r\n";
    PageText second;
    second.box2 = L"second\r\n";
    const std::string path = folder.write(L"a.bok", header_lines(header) + first.text() + second.text());
    for (const char* format : { "html", "markdown" }) {
        const std::string out = bok({ "export", path, "--to", format }).out;
        EXPECT_LT(out.find("second"), out.find("first")) << format;
    }
}

TEST_F(BokHtml, NamesAPageWithoutATitleByItsText)
{
    PageText page;
    page.box3 = L"\r\n  body text \r\nmore\r\n";
    expect_part(exported("html", page), "<a href=\"#p1\"><bdi>body text</bdi></a>");
    expect_part(exported("html", PageText{}), "<a href=\"#p1\"><bdi>（無題）</bdi></a>");
}

using BokMarkdown = BokExport;

TEST_F(BokMarkdown, HasHeadingLeadBodyAndFiles)
{
    PageText page;
    page.box1 = L"lead\r\n";
    page.box2 = L"題名\r\n";
    page.box3 = L"one\r\ntwo\r\n\r\n\r\nthree\r\n";
    page.files = L"C:\\a_b.txt\r\nhttps://a.example/x\r\n";
    page.folder = L"C:\\dir\r\n";
    page.numbers = L"2026010203040520260607080910 1 0 0 0 0 0 0 0 0 0 0 0\r\n";
    EXPECT_EQ(exported("markdown", page),
        "## 1　題名 ★\n\n> lead\n\none\\\ntwo\n\n\nthree\n\n- C:\\\\a\\_b.txt\n- https://a.example/x\n\n"
        "資料フォルダ: C:\\\\dir\n\n");
}

TEST_F(BokMarkdown, EscapesMarkup)
{
    PageText page;
    page.box3 = L"# a\r\n\r\n- b\r\n\r\n+ c\r\n\r\n1. d\r\n\r\n12) e\r\n\r\n> f\r\n\r\n    "
                L"g\r\n\r\n\th\r\n\r\n---\r\n\r\n===\r\n\r\n"
                L"*i* _j_ `k` [l](m) <b> &amp; ~~n~~ |o| \\p 3.14 a-b\r\n";
    EXPECT_EQ(exported("markdown", page),
        "## 1　\n\n\\# a\n\n\\- b\n\n\\+ c\n\n1\\. d\n\n12\\) e\n\n\\> f\n\n&nbsp;&nbsp;&nbsp;&nbsp;g\n\n"
        "&nbsp;&nbsp;&nbsp;&nbsp;h\n\n\\---\n\n\\===\n\n"
        "\\*i\\* \\_j\\_ \\`k\\` \\[l\\](m) \\<b\\> &amp;amp; \\~\\~n\\~\\~ \\|o\\| \\\\p 3.14 a-b\n\n");
}

TEST_F(BokMarkdown, KeepsALeadInItsQuotation)
{
    PageText page;
    page.box1 = L"one\r\n\r\ntwo\r\nthree\r\n";
    expect_part(exported("markdown", page), "> one\n> \n> two\\\n> three\n");
}

TEST_F(BokMarkdown, ContainsNoControlCharacters)
{
    PageText page;
    page.box2 = L"a\x1B[31m\xD800\r\n";
    expect_part(exported("markdown", page), "## 1　a\xEF\xBF\xBD\\[31m\xEF\xBF\xBD\n");
}

} // namespace
