#include "tools/bok/html.hpp"
#include "book/page_text.hpp"
#include "look/theme.hpp"
#include "tools/bok/tables.hpp"
#include "tools/bok/utf8.hpp"
#include <algorithm>
#include <array>

namespace bok {

namespace {

constexpr std::string_view style = R"css(
*{box-sizing:border-box}
body{margin:0;font:16px/1.75 "メイリオ",Meiryo,"Hiragino Sans","Noto Sans CJK JP",sans-serif}
header,nav,main{max-width:52rem;margin:0 auto;padding:0 1rem}
header{padding-top:2.5rem}
h1{font-size:1.7rem;line-height:1.4;margin:0}
header p{margin:.3rem 0 0;opacity:.75}
nav h2{font-size:1rem;margin:1.8rem 0 .4rem}
nav ol{list-style:none;margin:0;padding:0;columns:2 18rem;column-gap:2rem}
nav li{display:flex;gap:.6em;break-inside:avoid}
nav a{color:inherit;text-decoration:none}
nav a:hover,nav a:focus{text-decoration:underline}
nav bdi,h2 bdi{overflow-wrap:anywhere}
.n{flex:none;font-variant-numeric:tabular-nums;opacity:.7;color:inherit;text-decoration:none}
nav .n{min-width:2em;text-align:right}
.tab{flex:none;align-self:center;width:.8em;height:.8em;border-radius:.2em}
.mark{flex:none}
article{margin:2rem 0;border-radius:.5rem;overflow:hidden;box-shadow:0 1px 4px #0004}
article>h2{display:flex;gap:.6em;margin:0;padding:.55rem 1.1rem;font-size:1.15rem;line-height:1.5;border-left:.5rem solid transparent}
.text{margin:0;padding:.8rem 1.1rem;white-space:pre-wrap;overflow-wrap:anywhere}
.lead{border-top:1px solid #8884}
.body{border-top:1px solid #8884}
.more{margin:0;padding:.6rem 1.1rem;font-size:.85rem;border-top:1px solid #8884;overflow-wrap:anywhere}
.more ul{margin:0;padding-left:1.3em}
.more a{color:inherit}
.time{opacity:.75}
:target{outline:2px solid #8888}
@media print{article{box-shadow:none;border:1px solid #888;break-inside:avoid}}
)css";

// All text of a Book passes through here or append_escaped_utf8, so none can become markup. Quotes are
// escaped too, because the same function writes attribute values.
void append_escaped(std::wstring_view text, std::string& out)
{
    // Control characters and noncharacters are errors in HTML.
    const auto is_refused = [](std::uint32_t point) {
        return (point < 0x20 && point != '\n' && point != '\t') || (point >= 0x7F && point < 0xA0)
            || (point & 0xFFFE) == 0xFFFE || (point >= 0xFDD0 && point <= 0xFDEF);
    };
    for_each_code_point(text, [&](std::uint32_t point) {
        switch (point) {
        case '&':
            out += "&amp;";
            return;
        case '<':
            out += "&lt;";
            return;
        case '>':
            out += "&gt;";
            return;
        case '"':
            out += "&quot;";
            return;
        case '\'':
            out += "&#39;";
            return;
        default:
            append_utf8(is_refused(point) ? replacement_character : point, out);
        }
    });
}

void append_escaped_utf8(std::string_view text, std::string& out)
{
    append_escaped(platform::from_utf8(text), out);
}

// The text with LF between lines, whether they ended in CR, LF or CR LF.
std::wstring lines_of(std::wstring_view text)
{
    std::wstring lines;
    lines.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool is_return = text[i] == L'\r';
        if (is_return && i + 1 < text.size() && text[i + 1] == L'\n')
            continue;
        lines.push_back(is_return ? L'\n' : text[i]);
    }
    return lines;
}

std::string css_color(look::Color color)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "#";
    for (const std::uint8_t channel : { color.red(), color.green(), color.blue() }) {
        text.push_back(digits[channel >> 4]);
        text.push_back(digits[channel & 0xF]);
    }
    return text;
}

std::string colors_of(const book::Page& page, std::size_t box)
{
    return "color:" + css_color(look::Color{ page.text_color[box] })
        + ";background:" + css_color(look::Color{ page.back_color[box] });
}

bool is_web_address(std::wstring_view entry)
{
    return entry.starts_with(L"https://") || entry.starts_with(L"http://");
}

std::string file_name(const std::wstring& path)
{
    const std::size_t slash = path.find_last_of(L"\\/");
    const std::wstring name = slash == path.npos ? path : path.substr(slash + 1);
    const std::size_t dot = name.rfind(L'.');
    return printable(std::wstring_view(name).substr(0, dot == 0 ? name.npos : dot));
}

// The security policy blocks scripts and remote content, in case an escape were missing.
void append_head(const book::Book& book, const std::string& name, std::string& out)
{
    const look::ThemePalette colors = look::theme_colors(book.header.theme);
    out += "<!DOCTYPE html>\n<html lang=\"ja\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta name=\"viewport\" content=\"width=device-width,initial-scale=1\">\n"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none';style-src "
           "'unsafe-inline'\">\n<title>";
    append_escaped_utf8(name, out);
    out += "</title>\n<style>";
    out += style;
    out += "body{color:" + css_color(colors.list_text) + ";background:" + css_color(colors.panel_back)
        + "}\n</style>\n</head>\n<body>\n<header>\n<h1>";
    append_escaped_utf8(name, out);
    out += "</h1>\n<p>" + std::to_string(book.pages.size()) + " ページ　タブ "
        + std::to_string(book.tab_count) + "　マーク " + std::to_string(book.mark_count)
        + "</p>\n</header>\n";
}

void append_entry(const book::Page& page, std::uint64_t position, std::string& out)
{
    out += "<li><span class=\"n\">" + std::to_string(position + 1) + "</span><a href=\"#p"
        + std::to_string(position + 1) + "\"><bdi>";
    const std::string title = title_of(page);
    append_escaped_utf8(title.empty() ? "（無題）" : title, out);
    out += "</bdi></a>";
    if (page.mark != 0)
        out += "<span class=\"mark\" title=\"マーク\">★</span>";
    if (page.tab_number != 0)
        out += "<span class=\"tab\" title=\"タブ\" style=\"background:"
            + css_color(look::Color{ page.tab_color }) + "\"></span>";
    out += "</li>\n";
}

void append_box(const book::Page& page, std::size_t box, std::string_view name, std::string& out)
{
    const std::wstring_view text = book::trimmed(page.text[box], book::TrimMode::right);
    if (text.empty())
        return;
    out += "<div class=\"text " + std::string(name) + "\" style=\"" + colors_of(page, box) + "\">";
    append_escaped(lines_of(text), out);
    out += "</div>\n";
}

void append_file(const std::wstring& file, std::string& out)
{
    out += "<li><bdi>";
    if (is_web_address(file)) {
        out += "<a rel=\"noopener noreferrer\" href=\"";
        append_escaped(file, out);
        out += "\">";
    }
    append_escaped(file, out);
    out += is_web_address(file) ? "</a></bdi></li>\n" : "</bdi></li>\n";
}

void append_more(const book::Page& page, std::string& out)
{
    out += "<div class=\"more\" style=\"" + colors_of(page, 2) + "\">\n";
    if (!page.files.empty()) {
        out += "<ul>\n";
        for (const std::wstring& file : page.files)
            append_file(file, out);
        out += "</ul>\n";
    }
    if (!page.reference_folder.empty()) {
        out += "資料フォルダ: <bdi>";
        append_escaped(page.reference_folder, out);
        out += "</bdi><br>\n";
    }
    const std::wstring_view stamp = page.stamp;
    const std::size_t half = std::min(stamp.size(), book::time_length);
    out += "<span class=\"time\">作成 ";
    append_escaped_utf8(time_of(stamp.substr(0, half)), out);
    out += "　更新 ";
    append_escaped_utf8(time_of(stamp.substr(half)), out);
    out += "</span>\n</div>\n";
}

void append_page(const book::Page& page, std::uint64_t position, std::string& out)
{
    out += "<article id=\"p" + std::to_string(position + 1) + "\">\n<h2 style=\"" + colors_of(page, 1);
    if (page.tab_number != 0)
        out += ";border-left-color:" + css_color(look::Color{ page.tab_color });
    out += "\">";
    out += "<a class=\"n\" href=\"#contents\" title=\"目次へ\">" + std::to_string(position + 1) + "</a><bdi>";
    append_escaped(lines_of(page.text[1]), out);
    out += "</bdi>";
    if (page.mark != 0)
        out += "<span class=\"mark\" title=\"マーク\">★</span>";
    out += "</h2>\n";
    append_box(page, 0, "lead", out);
    append_box(page, 2, "body", out);
    append_more(page, out);
    out += "</article>\n";
}

} // namespace

void export_html(const book::Book& book, Sink& sink, Progress& progress)
{
    append_head(book, file_name(book.path), sink.text());
    const auto for_each_page = [&](auto append) {
        for (std::uint64_t position = 0; position < book.pages.size(); ++position) {
            append(book.pages[book.position_to_index(position)], position, sink.text());
            sink.pass_on();
            progress.show(position, book.pages.size());
        }
    };
    sink.text() += "<nav id=\"contents\">\n<h2>目次</h2>\n<ol>\n";
    for_each_page(append_entry);
    sink.text() += "</ol>\n</nav>\n<main>\n";
    for_each_page(append_page);
    sink.text() += "</main>\n</body>\n</html>\n";
}

} // namespace bok
