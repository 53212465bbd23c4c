#include "tools/bok/json_book.hpp"
#include "tools/bok/json_reader.hpp"
#include "tools/bok/members.hpp"
#include "tools/bok/new_page.hpp"
#include "tools/bok/page_rules.hpp"
#include "tools/bok/utf8.hpp"
#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <vector>

namespace bok {

namespace {

constexpr std::wstring_view format_name = L"pagewick-book";

template <class List, class Read> void read_exactly(JsonReader& json, List& list, Read read)
{
    const std::string reason = "the list needs " + std::to_string(list.size()) + " elements";
    json.enter_array();
    for (auto& element : list) {
        if (!json.next_element())
            json.fail(reason);
        read(json, element);
    }
    if (json.next_element())
        json.fail(reason);
}

// A box: its text, or a list of its lines.
void read_box(JsonReader& json, std::wstring& text)
{
    if (json.peek() != JsonReader::Kind::array) {
        json.read(text);
        return;
    }
    text.clear();
    json.enter_array();
    for (std::wstring line; json.next_element();) {
        json.read(line);
        text += line;
        text += L"\r\n";
    }
    // Line ends are between lines only.
    text.erase(text.size() < 2 ? 0 : text.size() - 2);
}

// A COLORREF, or "#rrggbb", which has its bytes in the opposite order.
void read_color(JsonReader& json, std::uint32_t& color)
{
    if (json.peek() != JsonReader::Kind::string) {
        json.read(color);
        return;
    }
    std::wstring text;
    json.read(text);
    const std::string form = printable(text);
    const char* const end = form.data() + form.size();
    std::uint32_t rgb = 0;
    if (form.size() != 7 || form[0] != '#' || std::from_chars(form.data() + 1, end, rgb, 16).ptr != end)
        json.fail("a colour is a number or \"#rrggbb\"");
    color = (rgb & 0xFFu) << 16 | (rgb & 0xFF00u) | rgb >> 16;
}

template <std::integral Number> void read_value(JsonReader& json, Number& number)
{
    json.read(number);
}

void read_value(JsonReader& json, std::wstring& text)
{
    json.read(text);
}

void read_value(JsonReader& json, std::array<std::wstring, book::box_count>& boxes)
{
    read_exactly(json, boxes, read_box);
}

void read_value(JsonReader& json, std::vector<std::wstring>& list)
{
    list.clear();
    json.enter_array();
    while (json.next_element())
        json.read(list.emplace_back());
}

void read_value(JsonReader& json, std::array<std::uint8_t, 3>& bytes)
{
    read_exactly(json, bytes, [](JsonReader& reader, std::uint8_t& byte) { reader.read(byte); });
}

void read_value(JsonReader& json, ColorMember<std::uint32_t> color)
{
    read_color(json, color.value);
}

void read_value(JsonReader& json, ColorMember<std::array<std::uint32_t, book::box_count>> colors)
{
    read_exactly(json, colors.value, read_color);
}

// A visitor that reads the member called `name` and ignores all others.
class MemberReader {
public:
    MemberReader(JsonReader& json, std::string_view name)
        : json_(json)
        , name_(name)
    {
    }

    template <class Member> void operator()(std::string_view name, Member&& member)
    {
        if (name != name_)
            return;
        found_ = true;
        read_value(json_, member);
    }
    bool found() const { return found_; }

private:
    JsonReader& json_;
    std::string_view name_;
    bool found_ = false;
};

// Reads an object; `take` reads the value of a member, or returns false for an unknown name. Rejects
// duplicate members.
template <class Take> void read_object(JsonReader& json, Take take)
{
    std::vector<std::string> seen;
    json.enter_object();
    for (std::string name; json.next_member(name); seen.push_back(name)) {
        const std::size_t place = json.place();
        if (std::ranges::find(seen, name) != seen.end())
            json.fail("duplicate member \"" + printable(name) + "\"", place);
        if (!take(name))
            json.fail("unknown member \"" + printable(name) + "\"", place);
    }
}

void store_face(JsonReader& json, const std::wstring& face, const std::wstring& tail, book::LogFont& font)
{
    auto& units = font.face_name;
    if (face.size() + (tail.empty() ? 0 : tail.size() + 1) > units.size())
        json.fail("a font's face has at most 32 units");
    units.fill(u'\0');
    const auto end =
        std::ranges::transform(face, units.begin(), [](wchar_t u) { return static_cast<char16_t>(u); });
    if (!tail.empty())
        std::ranges::transform(tail, end.out + 1, [](wchar_t u) { return static_cast<char16_t>(u); });
}

void read_font(JsonReader& json, book::LogFont& font)
{
    std::optional<std::wstring> face;
    std::wstring tail;
    read_object(json, [&](const std::string& name) {
        if (name == "face") {
            json.read(face.emplace());
            return true;
        }
        if (name == "face_tail") {
            json.read(tail);
            return true;
        }
        MemberReader member(json, name);
        visit_font_sizes(font, member);
        visit_font_rest(font, member);
        return member.found();
    });
    if (!face && !tail.empty())
        json.fail("face_tail needs a face");
    if (face)
        store_face(json, *face, tail, font);
}

void read_header(JsonReader& json, book::BookHeader& header)
{
    read_object(json, [&](const std::string& name) {
        if (name == "fonts") {
            read_exactly(json, header.fonts, read_font);
            return true;
        }
        MemberReader member(json, name);
        visit_header(header, member);
        visit_reserved(header, member);
        return member.found();
    });
}

void read_page(JsonReader& json, book::Page& page)
{
    bool is_verbatim = false;
    json.peek(); // so that place() is the start of the page, for an error of the page as a whole
    const std::size_t place = json.place();
    read_object(json, [&](const std::string& name) {
        if (name == "verbatim") {
            json.read(is_verbatim);
            return true;
        }
        MemberReader member(json, name);
        visit_page(page, member);
        return member.found();
    });
    if (const auto flaw = is_verbatim ? check_verbatim_page(page) : tidy_page(page, LineEnds::unify))
        json.fail(name_of(*flaw) + " " + flaw->reason, place);
}

void read_pages(JsonReader& json, book::Book& book, Progress& progress, std::size_t size)
{
    // Pages take their defaults from the header read so far, so it must come before them.
    const book::Page blank = new_page(book.header);
    json.enter_array();
    while (json.next_element()) {
        const std::string page = "pages[" + std::to_string(book.pages.size()) + "]: ";
        if (book.pages.size() == book::page_limit)
            json.fail("a Book has at most " + std::to_string(book::page_limit) + " pages");
        // The error names the page too: an exported page is one very long line.
        try {
            read_page(json, book.pages.emplace_back(blank));
        } catch (const JsonError& error) {
            throw JsonError(error.line, error.column, page + error.what());
        }
        progress.show(json.place(), size);
    }
}

void read_format(JsonReader& json)
{
    std::wstring format;
    json.read(format);
    if (format != format_name)
        json.fail("the format is not \"pagewick-book\"");
}

} // namespace

void import_json(std::string_view text, book::Book& book, Progress& progress)
{
    JsonReader json(text);
    read_object(json, [&](const std::string& name) {
        if (name == "format")
            read_format(json);
        else if (name == "header")
            read_header(json, book.header);
        else if (name == "pages")
            read_pages(json, book, progress, text.size());
        else
            return false;
        return true;
    });
    json.finish();
    if (book.pages.empty())
        json.fail("a Book needs a page");
}

} // namespace bok
