#include "platform/text.hpp"
#include "tools/bok/json_book.hpp"
#include "tools/bok/members.hpp"
#include "tools/bok/page_rules.hpp"
#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace bok {

namespace {

void write_value(JsonWriter& json, const std::wstring& text)
{
    json.value(std::wstring_view(text));
}

template <std::integral Number> void write_value(JsonWriter& json, Number number)
{
    json.value(number);
}

template <class List> void write_list(JsonWriter& json, const List& list);

template <class Element, std::size_t size>
void write_value(JsonWriter& json, const std::array<Element, size>& list)
{
    write_list(json, list);
}

void write_value(JsonWriter& json, const std::vector<std::wstring>& list)
{
    write_list(json, list);
}

template <class Member> void write_value(JsonWriter& json, ColorMember<Member> member)
{
    write_value(json, member.value);
}

template <class List> void write_list(JsonWriter& json, const List& list)
{
    json.open('[');
    for (const auto& element : list)
        write_value(json, element);
    json.close(']');
}

// A visitor that writes each member it is called with.
auto member_writer(JsonWriter& json)
{
    return [&json](std::string_view name, const auto& member) {
        json.key(name);
        write_value(json, member);
    };
}

std::wstring face_of(const book::LogFont& font)
{
    const auto end = std::ranges::find(font.face_name, u'\0');
    return { font.face_name.begin(), end };
}

// The units after the zero that ends the face, without trailing zeros. Exporting them keeps the record's
// bytes.
std::wstring face_tail_of(const book::LogFont& font)
{
    const auto end = std::ranges::find(font.face_name, u'\0');
    if (end == font.face_name.end())
        return {};
    std::wstring tail(end + 1, font.face_name.end());
    tail.erase(tail.find_last_not_of(L'\0') + 1);
    return tail;
}

void write_font_summary(JsonWriter& json, const book::LogFont& font)
{
    json.key("face");
    json.value(std::wstring_view(face_of(font)));
    visit_font_sizes(font, member_writer(json));
}

void write_font(JsonWriter& json, const book::LogFont& font)
{
    write_font_summary(json, font);
    visit_font_rest(font, member_writer(json));
    if (const std::wstring tail = face_tail_of(font); !tail.empty()) {
        json.key("face_tail");
        json.value(std::wstring_view(tail));
    }
}

template <class WriteFont> void write_fonts(JsonWriter& json, const book::BookHeader& header, WriteFont write)
{
    json.key("fonts");
    json.open('[');
    for (const book::LogFont& font : header.fonts) {
        json.open('{');
        write(json, font);
        json.close('}');
    }
    json.close(']');
}

void write_header(JsonWriter& json, const book::BookHeader& header)
{
    json.open('{');
    visit_header(header, member_writer(json));
    visit_reserved(header, member_writer(json));
    write_fonts(json, header, write_font);
    json.close('}');
}

void write_exported_page(JsonWriter& json, const book::Page& page)
{
    json.new_line();
    json.open('{');
    if (!is_tidy(page)) {
        json.key("verbatim");
        json.value(true);
    }
    write_page_members(json, page);
    json.close('}');
}

} // namespace

void write_page_members(JsonWriter& json, const book::Page& page)
{
    visit_page(page, member_writer(json));
}

void write_header_summary(JsonWriter& json, const book::BookHeader& header)
{
    json.open('{');
    visit_header(header, member_writer(json));
    write_fonts(json, header, write_font_summary);
    json.close('}');
}

void export_json(const book::Book& book, Sink& sink, Progress& progress)
{
    JsonWriter json(sink.text());
    json.open('{');
    json.key("format");
    json.value(std::string_view("pagewick-book"));
    json.new_line();
    json.key("header");
    write_header(json, book.header);
    json.new_line();
    json.key("pages");
    json.open('[');
    for (std::size_t i = 0; i < book.pages.size(); ++i) {
        write_exported_page(json, book.pages[i]);
        sink.pass_on();
        progress.show(i, book.pages.size());
    }
    json.close(']');
    json.close('}');
    sink.text().push_back('\n');
}

} // namespace bok
