#include "model_file.hpp"
#include <array>
#include <cstring>

namespace session_walk {

namespace {

constexpr wchar_t stop = 3;
const std::wstring line_end = L"\r\n";

void field(std::wstring& file, const std::wstring& text)
{
    if (!text.empty())
        file += text + line_end;
    file += stop + line_end;
}

std::wstring numbers_of(const book::Page& page)
{
    std::wstring line = page.stamp;
    const auto add = [&line](auto number) { line += L" " + std::to_wstring(number); };
    add(page.mark);
    add(page.tab_number != 0 ? 1 : 0);
    add(page.tab_color);
    for (const std::uint32_t color : page.back_color)
        add(color);
    for (const std::uint32_t color : page.text_color)
        add(color);
    add(page.scroll_first);
    add(page.scroll_third);
    add(page.current_file);
    return line;
}

// Returns the next line with its line end and moves `start` to the line after it.
std::wstring next_line(const std::wstring& file, std::size_t& start)
{
    std::size_t end = file.find(line_end, start);
    end = end == std::wstring::npos ? file.size() : end + 2;
    std::wstring line = file.substr(start, end - start);
    start = end;
    return line;
}

std::wstring next_trimmed(const std::wstring& file, std::size_t& start)
{
    std::wstring line = next_line(file, start);
    trim(line);
    return line;
}

// Reads only lines in the form that this program and these tests write.
bool take_numbers(const std::wstring& line, book::Page& page)
{
    std::vector<std::wstring> tokens;
    std::wstring token;
    for (const wchar_t unit : line + L" ") {
        if (unit != L' ' && unit != L'\r' && unit != L'\n') {
            token += unit;
        } else if (!token.empty()) {
            tokens.push_back(token);
            token.clear();
        }
    }
    if (tokens.size() != 13)
        return false;
    std::array<long long, 13> values{};
    for (std::size_t i = 1; i < tokens.size(); ++i) {
        if (tokens[i].find_first_not_of(L"-0123456789") != std::wstring::npos)
            return false;
        values[i] = std::stoll(tokens[i]);
    }
    page.stamp = tokens[0];
    page.mark = static_cast<std::int32_t>(values[1]);
    page.tab_number = values[2] != 0 ? 1 : 0;
    page.tab_color = static_cast<std::uint32_t>(values[3]);
    for (std::size_t box = 0; box < 3; ++box) {
        page.back_color[box] = static_cast<std::uint32_t>(values[4 + box]);
        page.text_color[box] = static_cast<std::uint32_t>(values[7 + box]);
    }
    page.scroll_first = static_cast<std::int32_t>(values[10]);
    page.scroll_third = static_cast<std::int32_t>(values[11]);
    const auto place = static_cast<std::uint64_t>(values[12]);
    if (place < page.files.size())
        page.current_file = place;
    return true;
}

bool take_line(std::wstring line, std::size_t field, book::Page& page)
{
    if (field == 0 || field == 2) {
        page.text[field] += line;
        return true;
    }
    if (field == 5)
        return take_numbers(line, page);
    trim(line);
    if (line.empty())
        return true;
    if (field == 1)
        page.text[1] = line;
    else if (field == 4)
        page.reference_folder = line;
    else {
        page.files.push_back(line);
        page.current_file = page.files.size() - 1;
    }
    return true;
}

} // namespace

std::wstring name_of(const std::wstring& path)
{
    return path.substr(path.find_last_of(L"/\\") + 1);
}

std::wstring stem_of(const std::wstring& path)
{
    const std::wstring name = name_of(path);
    return name.substr(0, name.rfind(L'.'));
}

bool is_white(wchar_t unit)
{
    const auto u = static_cast<unsigned>(unit);
    return (u >= 9 && u <= 0xD) || u == 0x20 || u == 0x85 || u == 0xA0 || u == 0x1680
        || (u >= 0x2000 && u <= 0x200A) || u == 0x2028 || u == 0x2029 || u == 0x202F || u == 0x205F
        || u == 0x3000;
}

void trim_right(std::wstring& text)
{
    while (!text.empty() && is_white(text.back()))
        text.pop_back();
}

void trim(std::wstring& text)
{
    trim_right(text);
    std::size_t start = 0;
    while (start < text.size() && is_white(text[start]))
        ++start;
    text.erase(0, start);
}

void make_one_line(std::wstring& text)
{
    trim(text);
    while (text.find(L'\r') != text.npos || text.find(L'\n') != text.npos)
        text.pop_back();
    trim(text);
}

std::wstring written(Record& record)
{
    std::array<unsigned char, sizeof(book::BookHeader)> bytes{};
    std::memcpy(bytes.data(), &record.header, bytes.size());
    const wchar_t* const digits = L"0123456789abcdef";
    std::wstring file = L"\x3\x3\r\n";
    for (const unsigned char byte : bytes) {
        file += digits[byte / 16];
        file += digits[byte % 16];
    }
    file += L"\r\n\x3\x3\r\n";
    for (book::Page& page : record.pages) {
        trim_right(page.text[0]);
        trim(page.text[1]);
        trim_right(page.text[2]);
        for (const std::wstring& text : page.text)
            field(file, text);
        for (const std::wstring& entry : page.files)
            file += entry + line_end;
        field(file, L"");
        field(file, page.reference_folder);
        field(file, numbers_of(page));
    }
    return file;
}

Reading look_at_header(const std::wstring& file, book::BookHeader& header, std::size_t& end)
{
    end = 0;
    std::wstring line = next_line(file, end);
    if (line.starts_with(static_cast<wchar_t>(0xFEFF)))
        line.erase(0, 1);
    trim(line);
    if (line.empty())
        return Reading::no_header;
    if (line != L"\x3\x3") {
        end = 0;
        return Reading::older;
    }
    line = next_trimmed(file, end);
    if (line.empty() || next_trimmed(file, end) != L"\x3\x3")
        return Reading::no_header;
    std::array<unsigned char, sizeof(book::BookHeader)> bytes{};
    const std::wstring digits = L"0123456789abcdef";
    if (line.size() != 2 * bytes.size() || line.find_first_not_of(digits) != std::wstring::npos)
        return Reading::damaged_header;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(digits.find(line[2 * i]) * 16 + digits.find(line[2 * i + 1]));
    std::memcpy(&header, bytes.data(), bytes.size());
    return Reading::good;
}

Reading read_pages(const std::wstring& file, std::size_t start, std::vector<book::Page>& pages)
{
    book::Page page;
    std::size_t field = 0;
    while (start < file.size()) {
        const std::wstring line = next_line(file, start);
        if (line.front() != stop) {
            if (!take_line(line, field, page))
                return Reading::bad_numbers;
        } else if (++field == 6) {
            pages.push_back(page);
            page = {};
            field = 0;
        }
    }
    return Reading::good;
}

} // namespace session_walk
