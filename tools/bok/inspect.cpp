#include "tools/bok/inspect.hpp"
#include "book/page_numbers.hpp"
#include "book/page_text.hpp"
#include "tools/bok/utf8.hpp"
#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace bok {

namespace {

using book::FileText;
using book::FileUnit;

constexpr FileUnit separator_unit = 3;
constexpr std::size_t field_count = 6;
constexpr std::size_t numbers_field = 5;
constexpr std::array<std::string_view, field_count> field_names{ "box 1", "box 2", "box 3", "the file list",
    "the folder", "the numbers" };
constexpr std::size_t token_count = 13;
constexpr std::size_t first_color_token = 3;
constexpr std::size_t last_color_token = 9;
constexpr std::size_t stamp_length = 2 * book::time_length;
constexpr std::uint32_t greatest_color = 0xFFFFFF;

bool has_line_end(FileText line)
{
    return line.size() >= 2 && line[line.size() - 2] == '\r' && line.back() == '\n';
}

FileText without_line_end(FileText line)
{
    return has_line_end(line) ? line.substr(0, line.size() - 2) : line;
}

bool is_blank_line(FileText line)
{
    return std::ranges::all_of(line, [](FileUnit unit) { return platform::is_white_space(unit); });
}

std::wstring wide(FileText text)
{
    std::wstring units;
    book::append_units(units, text);
    return units;
}

std::string quoted(std::wstring_view text)
{
    constexpr std::size_t shown = 40;
    return '"' + printable(text, shown) + '"';
}

bool divides_tokens(FileUnit unit)
{
    return unit == ' ' || (unit >= '\t' && unit <= '\r');
}

// The tokens of a numbers line, as a stream splits them: after the stamp a sign begins a number even without
// white space before it.
std::vector<FileText> tokens_of(FileText line)
{
    std::vector<FileText> tokens;
    for (auto at = line.begin(); at != line.end();) {
        const auto start = std::find_if_not(at, line.end(), divides_tokens);
        if (start == line.end())
            break;
        const bool is_number = !tokens.empty();
        at = std::find_if(start + 1, line.end(), [is_number](FileUnit unit) {
            return divides_tokens(unit) || (is_number && (unit == '+' || unit == '-'));
        });
        tokens.emplace_back(start, at);
    }
    return tokens;
}

// A token as a stream reads it into an unsigned number: up to the first unit that is no digit, wrapping
// around for a minus.
std::uint64_t unsigned_value(FileText token)
{
    const std::string digits = printable(wide(token));
    const std::size_t start = digits.find_first_not_of("+-");
    std::uint64_t value = 0;
    if (start != digits.npos)
        std::from_chars(digits.data() + start, digits.data() + digits.size(), value);
    return digits.starts_with('-') ? 0 - value : value;
}

// Follows the loader line by line, with the same line reader, so that each finding has its line number. It
// goes on where the loader would stop, to list all problems of the file at once.
class Inspector {
public:
    Inspector(book::ByteSource& source, std::uint64_t size, const Report& report,
        const std::function<void(std::uint64_t)>& progress)
        : reader_(source)
        , size_(size)
        , report_(report)
        , progress_(progress)
    {
    }

    Inspection run();

private:
    FileText next_line();
    void tell(std::string what, bool stops_loading = false);
    void tell_page(std::uint64_t line, std::string what, bool stops_loading = false);

    bool inspect_header_lines();
    void begin_older_format();
    void inspect_pages();
    void take_separator(FileText line);
    void take_line(FileText line);
    void take_text(FileText line);
    void take_single(FileText line);
    void take_file(FileText line);
    void take_numbers(FileText line);
    void inspect_hidden_separator(FileText line);
    void inspect_tokens(FileText line);
    void inspect_stamp(const std::wstring& stamp);
    void end_field();
    void end_page();
    void end_file();

    book::LineReader reader_;
    std::uint64_t size_;
    const Report& report_;
    const std::function<void(std::uint64_t)>& progress_;
    Inspection result_;
    book::BookHeader header_;
    std::uint64_t line_ = 0; // number of the last line read
    bool is_cut_ = false; // that line had no line end
    std::size_t field_ = 0;
    std::uint64_t lines_ = 0; // of the field, without blank lines where those do not count
    std::uint64_t all_lines_ = 0; // of the page
    bool told_separator_ = false; // reported once per field
    bool told_null_ = false;
    book::Page page_; // files and numbers only
};

FileText Inspector::next_line()
{
    const FileText line = reader_.read_line();
    if (!line.empty()) {
        ++line_;
        is_cut_ = !has_line_end(line);
    }
    if (progress_)
        progress_(reader_.delivered_bytes());
    return line;
}

void Inspector::tell(std::string what, bool stops_loading)
{
    ++result_.findings;
    report_({ std::nullopt, 0, std::move(what), stops_loading });
}

void Inspector::tell_page(std::uint64_t line, std::string what, bool stops_loading)
{
    ++result_.findings;
    report_({ result_.pages, line, std::move(what), stops_loading });
}

Inspection Inspector::run()
{
    if (size_ % sizeof(FileUnit) != 0)
        tell("the file has an odd number of bytes: its last block of 65,536 bytes is not read");
    if (inspect_header_lines()) {
        inspect_pages();
        end_file();
    }
    return result_;
}

// False if nothing after the header can be read.
bool Inspector::inspect_header_lines()
{
    result_.header = book::read_header(reader_, header_);
    line_ = 3; // the header's lines were read without next_line()
    switch (result_.header) {
    case book::HeaderStatus::good:
        return true;
    case book::HeaderStatus::damaged:
        tell("the BookHeader in line 2 is damaged: `bok convert` can continue with default settings", true);
        return true;
    case book::HeaderStatus::older_format:
        begin_older_format();
        return true;
    default:
        tell(size_ == 0 ? "the file is empty" : "the three lines of the header are incomplete", true);
        return false;
    }
}

void Inspector::begin_older_format()
{
    tell("the older format, or no Book at all: `bok convert` writes the current format", true);
    reader_.restart();
    line_ = 0;
}

void Inspector::inspect_pages()
{
    for (FileText line = next_line(); !line.empty(); line = next_line()) {
        if (line.front() == separator_unit)
            take_separator(line);
        else
            take_line(line);
    }
}

void Inspector::take_separator(FileText line)
{
    if (without_line_end(line).size() > 1)
        tell_page(line_, "text after U+0003 at the end of " + std::string(field_names[field_]) + " is lost");
    end_field();
    field_ = (field_ + 1) % field_count;
    if (field_ == 0)
        end_page();
}

void Inspector::take_line(FileText line)
{
    ++all_lines_;
    if (!told_separator_ && line.find(separator_unit) != line.npos) {
        told_separator_ = true;
        tell_page(line_, "U+0003 inside " + std::string(field_names[field_]));
    }
    if (!told_null_ && line.find(FileUnit{}) != line.npos) {
        told_null_ = true;
        tell_page(line_,
            "U+0000 inside " + std::string(field_names[field_]) + ": windows show only the text before it");
    }
    switch (field_) {
    case 0:
    case 2:
        return take_text(line);
    case 1:
    case 4:
        return take_single(line);
    case 3:
        return take_file(line);
    default:
        return take_numbers(line);
    }
}

void Inspector::take_text(FileText line)
{
    const bool is_first = result_.pages == 0 && field_ == 0 && lines_ == 0;
    ++lines_;
    if (!is_first || line.front() != static_cast<FileUnit>(book::byte_order_mark))
        return;
    line.remove_prefix(1);
    if (result_.header != book::HeaderStatus::older_format && line.starts_with(separator_unit))
        tell_page(line_,
            "U+0003 after U+FEFF at the beginning of box 1: once saved the Book is broken here; `bok "
            "convert` removes it");
    else if (result_.header != book::HeaderStatus::older_format)
        tell_page(line_, "U+FEFF at the beginning of box 1 is dropped");
    else if (line.starts_with(separator_unit))
        tell_page(line_, "box 1 of the first page is empty, so the fields of this page are shifted by one");
}

void Inspector::take_single(FileText line)
{
    if (is_blank_line(line))
        return;
    inspect_hidden_separator(line);
    if (++lines_ == 2)
        tell_page(
            line_, std::string(field_names[field_]) + " has more than one line: only the last one is kept");
}

void Inspector::take_file(FileText line)
{
    if (is_blank_line(line)) {
        tell_page(line_, "a blank entry in the file list is dropped");
        return;
    }
    ++lines_;
    inspect_hidden_separator(line);
    // The entry's text does not matter: read_numbers only needs the number of entries.
    page_.files.emplace_back();
    page_.current_file = page_.files.size() - 1;
}

// Loading trims the white space before the U+0003; the next save would write it at the start of a line, where
// it ends the field.
void Inspector::inspect_hidden_separator(FileText line)
{
    if (book::trimmed(line, book::TrimMode::left).starts_with(separator_unit))
        tell_page(line_,
            "U+0003 after white space in " + std::string(field_names[field_])
                + ": once saved the Book is broken here; `bok convert` removes it");
}

void Inspector::take_numbers(FileText line)
{
    inspect_hidden_separator(line);
    if (++lines_ == 2)
        tell_page(line_, "more than one line of numbers: the last one is used");
    if (book::read_numbers(line, page_)) {
        inspect_tokens(line);
        inspect_stamp(page_.stamp);
        return;
    }
    const std::size_t count = tokens_of(without_line_end(line)).size();
    tell_page(line_,
        "the line of numbers cannot be read (" + std::to_string(count)
            + " of 13 tokens): " + quoted(wide(without_line_end(line))),
        true);
}

void Inspector::inspect_tokens(FileText line)
{
    const std::vector<FileText> tokens = tokens_of(line);
    if (tokens.size() > token_count)
        tell_page(line_, "more than thirteen tokens in the line of numbers: the rest is dropped");
    // read_numbers silently replaces a number past the end, so the token is compared with its result.
    const FileText current_file = tokens[std::min(tokens.size(), token_count) - 1];
    if (unsigned_value(current_file) != page_.current_file)
        tell_page(line_,
            "current_file " + printable(wide(current_file))
                + " is past the end of the file list: the last entry is taken");
    const std::array<std::uint32_t, 7> colors{ page_.tab_color, page_.back_color[0], page_.back_color[1],
        page_.back_color[2], page_.text_color[0], page_.text_color[1], page_.text_color[2] };
    static_assert(last_color_token - first_color_token + 1 == colors.size());
    for (std::size_t i = 0; i < colors.size(); ++i) {
        if (colors[i] > greatest_color)
            tell_page(line_,
                "colour " + std::to_string(colors[i]) + " (token " + std::to_string(first_color_token + i + 1)
                    + ") does not fit in three bytes");
    }
}

void Inspector::inspect_stamp(const std::wstring& stamp)
{
    const bool is_digits =
        std::ranges::all_of(stamp, [](wchar_t unit) { return unit >= L'0' && unit <= L'9'; });
    if (stamp.size() < book::time_length)
        tell_page(line_,
            "stamp " + quoted(stamp)
                + " is too short, sorting by modification fails: `bok convert` gives it the current time");
    else if (stamp.size() < stamp_length)
        tell_page(line_,
            "stamp " + quoted(stamp)
                + " has no complete modification time: `bok convert` gives it the current time");
    else if (stamp.size() > stamp_length || !is_digits)
        tell_page(line_, "stamp " + quoted(stamp) + " is not two times of 14 digits");
}

void Inspector::end_field()
{
    if (field_ == numbers_field && lines_ == 0)
        tell_page(line_,
            "no line of numbers: the page has no stamp, and a Book saved with it can never be opened again; "
            "`bok convert` gives it the current time");
    lines_ = 0;
    told_separator_ = false;
    told_null_ = false;
}

void Inspector::end_page()
{
    if (page_.tab_number != 0 && ++result_.tabs == static_cast<std::uint64_t>(book::tab_limit) + 1)
        tell_page(line_, "the 257th tab: it and all later ones are dropped");
    result_.marks += page_.mark != 0 ? 1 : 0;
    ++result_.pages;
    all_lines_ = 0;
    page_ = {};
}

void Inspector::end_file()
{
    if (field_ != 0)
        tell_page(line_,
            "the file ends inside this page, at " + std::string(field_names[field_])
                + ": the page is dropped");
    else if (all_lines_ > 0)
        tell_page(line_, "lines after the last complete page are dropped");
    else if (is_cut_)
        tell_page(line_, "the last line has no CR LF");
    if (result_.pages == 0)
        tell("no complete page", true);
    if (result_.pages > book::page_limit)
        tell(std::to_string(result_.pages)
            + " pages, more than the limit of the program (100,000): no page can be added");
    if (result_.header == book::HeaderStatus::good)
        bok::inspect_header(
            header_, result_.pages, [this](const std::string& what) { tell("header: " + what); });
}

} // namespace

Inspection inspect(book::ByteSource& source, std::uint64_t size, const Report& report,
    const std::function<void(std::uint64_t)>& progress)
{
    return Inspector(source, size, report, progress).run();
}

std::string text_of(const Finding& finding)
{
    if (!finding.page)
        return finding.what;
    return "page index " + std::to_string(*finding.page) + " (line " + std::to_string(finding.line)
        + "): " + finding.what;
}

} // namespace bok
