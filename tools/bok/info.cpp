#include "platform/text.hpp"
#include "tools/bok/commands.hpp"
#include "tools/bok/input.hpp"
#include "tools/bok/json_book.hpp"
#include "tools/bok/members.hpp"
#include "tools/bok/utf8.hpp"
#include <algorithm>
#include <ostream>

namespace bok {

namespace {

void write_json(const book::Book& book, std::string& out)
{
    JsonWriter json(out);
    json.open('{');
    json.key("pages");
    json.value(book.pages.size());
    json.key("tabs");
    json.value(book.tab_count);
    json.key("marks");
    json.value(book.mark_count);
    json.key("file_size");
    json.value(book.file_size);
    json.key("header");
    write_header_summary(json, book.header);
    json.close('}');
    out.push_back('\n');
}

void write_line(std::string_view name, const std::string& value, std::string& out)
{
    constexpr std::size_t name_width = 18;
    std::string line(name);
    line.resize(std::max(line.size(), name_width), ' ');
    out += line + value + '\n';
}

void write_table(const book::Book& book, std::string& out)
{
    write_line("pages", std::to_string(book.pages.size()), out);
    write_line("tabs", std::to_string(book.tab_count), out);
    write_line("marks", std::to_string(book.mark_count), out);
    write_line("file_size", std::to_string(book.file_size), out);
    visit_header(book.header,
        [&](std::string_view name, auto value) { write_line(name, std::to_string(value), out); });
    for (std::size_t i = 0; i < book.header.fonts.size(); ++i) {
        const book::LogFont& font = book.header.fonts[i];
        const auto end = std::ranges::find(font.face_name, u'\0');
        const std::wstring face(font.face_name.begin(), end);
        write_line("fonts[" + std::to_string(i) + "]",
            printable(face) + ", height " + std::to_string(font.height) + ", weight "
                + std::to_string(font.weight),
            out);
    }
}

} // namespace

int run_info(const Options& options, Streams& streams)
{
    const book::Book book = open_book(options.operand(0), streams);
    const auto sink = open_sink(streams.out);
    if (options.has("--json"))
        write_json(book, sink->text());
    else
        write_table(book, sink->text());
    sink->finish();
    return exit_done;
}

} // namespace bok
