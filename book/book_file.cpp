#include "book/book_file.hpp"
#include "book/header_text.hpp"
#include "book/page_numbers.hpp"
#include "book/page_text.hpp"
#include <algorithm>
#include <utility>

namespace book {

namespace {

enum class Field { first_box, second_box, third_box, files, folder, numbers };

constexpr std::size_t usual_page_count = 4096;
constexpr std::string_view header_marker = "\x03\x03";
constexpr FileUnit file_separator = static_cast<FileUnit>(separator);

constexpr const wchar_t* older_format_question =
    L"\r\nこの Book は古いフォーマットです．フォーマットを変換して読込みますか？\r\n\r\n※注意\r\nBook "
    L"のフォーマットを変換すると旧バージョンの Pagewick "
    L"からは読込めなくなります．必要な場合はあらかじめバックアップを取ってください．[いいえ]"
    L"ボタンを押すと一旦アプリを終了します．";
constexpr const wchar_t* damaged_header_question =
    L"\r\nBookHeader が破損しています．既定値で初期化してロードを継続しますか？";

bool is_header_marker(FileText line)
{
    return std::ranges::equal(trimmed(line, TrimMode::both), header_marker);
}

Field next(Field field)
{
    return field == Field::numbers ? Field::first_box : static_cast<Field>(static_cast<int>(field) + 1);
}

void replace_by_line(std::wstring& text, FileText line)
{
    line = trimmed(line, TrimMode::both);
    if (line.empty())
        return;
    text.clear();
    append_units(text, line);
}

void append_file(Page& page, FileText line)
{
    line = trimmed(line, TrimMode::both);
    if (line.empty())
        return;
    append_units(page.files.emplace_back(), line);
    page.current_file = page.files.size() - 1;
}

// False when the line is a numbers line that cannot be read.
bool take_line(Page& page, Field field, FileText line)
{
    switch (field) {
    case Field::first_box:
        append_units(page.text[0], line);
        return true;
    case Field::second_box:
        replace_by_line(page.text[1], line);
        return true;
    case Field::third_box:
        append_units(page.text[2], line);
        return true;
    case Field::files:
        append_file(page, line);
        return true;
    case Field::folder:
        replace_by_line(page.reference_folder, line);
        return true;
    case Field::numbers:
        return read_numbers(line, page);
    }
    return false;
}

// Makes room for what the rest of the file promises by the pages read so far: doubling would waste memory. A
// promise of more pages than a Book may hold comes from small pages before a large one, and is not believed.
void make_room(std::vector<Page>& pages, std::uint64_t delivered, std::uint64_t file_size)
{
    if (pages.size() < pages.capacity())
        return;
    const double share =
        static_cast<double>(file_size) / static_cast<double>(std::max<std::uint64_t>(delivered, 1));
    const double promised = static_cast<double>(pages.size()) * std::max(share, 1.0) * 1.02;
    const double believed = std::min(promised, static_cast<double>(page_limit));
    pages.reserve(std::max(static_cast<std::size_t>(believed), pages.size() + pages.size() / 4));
}

void write_lines(LineWriter& writer, std::wstring_view text)
{
    if (!text.empty())
        writer.append_line(text);
    writer.append_ascii("\x03\r\n");
}

void write_page(LineWriter& writer, Page& page)
{
    trim_text(page.text[0], TrimMode::right);
    trim_text(page.text[1], TrimMode::both);
    trim_text(page.text[2], TrimMode::right);
    for (const std::wstring& text : page.text)
        write_lines(writer, text);
    for (const std::wstring& file : page.files)
        writer.append_line(file);
    write_lines(writer, {});
    write_lines(writer, page.reference_folder);
    write_numbers(writer, page);
    write_lines(writer, {});
}

void write_all(LineWriter& writer, std::string_view header, std::vector<Page>& pages)
{
    writer.append_ascii("\x03\x03\r\n");
    writer.append_ascii(header);
    writer.append_ascii("\r\n\x03\x03\r\n");
    for (Page& page : pages)
        write_page(writer, page);
    writer.flush();
}

bool says_yes(const AskUser& ask_user, const std::wstring& question)
{
    return ask_user && ask_user(question);
}

// Asks what a header that is not good asks for. True when the pages are to be read.
bool settle_header(HeaderStatus status, LineReader& reader, const std::wstring& path, std::wstring& error,
    const AskUser& ask_user)
{
    switch (status) {
    case HeaderStatus::good:
        return true;
    case HeaderStatus::older_format:
        if (!says_yes(ask_user, path + older_format_question)) {
            error = path + L"\r\nBook のロードが中断されました．";
            return false;
        }
        reader.restart();
        return true;
    case HeaderStatus::damaged:
        return says_yes(ask_user, path + damaged_header_question);
    case HeaderStatus::unreadable:
        break;
    }
    error = L"BookHeader のロードに失敗\r\n" + path;
    return false;
}

} // namespace

HeaderStatus read_header(LineReader& reader, BookHeader& header)
{
    FileText line = reader.read_line();
    if (!line.empty() && line.front() == static_cast<FileUnit>(byte_order_mark))
        line.remove_prefix(1);
    if (trimmed(line, TrimMode::both).empty())
        return HeaderStatus::unreadable;
    if (!is_header_marker(line))
        return HeaderStatus::older_format;
    line = trimmed(reader.read_line(), TrimMode::both);
    if (line.empty())
        return HeaderStatus::unreadable;
    const std::optional<BookHeader> stored = header_from_text(line);
    if (!is_header_marker(reader.read_line()))
        return HeaderStatus::unreadable;
    if (!stored)
        return HeaderStatus::damaged;
    header = *stored;
    return HeaderStatus::good;
}

bool read_pages(LineReader& reader, std::uint64_t file_size, std::vector<Page>& pages)
{
    Page page;
    Field field = Field::first_box;
    while (true) {
        // Boxes 1 and 3 are most of a file and need no look at single lines.
        if (field == Field::first_box && !reader.append_lines(file_separator, page.text[0]))
            return true;
        if (field == Field::third_box && !reader.append_lines(file_separator, page.text[2]))
            return true;
        const FileText line = reader.read_line();
        if (line.empty())
            return true;
        if (line.front() != file_separator) {
            if (!take_line(page, field, line))
                return false;
            continue;
        }
        field = next(field);
        if (field == Field::first_box) {
            make_room(pages, reader.delivered_bytes(), file_size);
            pages.push_back(std::exchange(page, Page{}));
        }
    }
}

bool load_book(
    Book& book, ByteSource& source, const std::wstring& path, std::wstring& error, const AskUser& ask_user)
{
    LineReader reader(source);
    if (!settle_header(read_header(reader, book.header), reader, path, error, ask_user))
        return false;
    book.path = path;
    book.file_size = source.size();
    book.pages.reserve(usual_page_count);
    if (!read_pages(reader, book.file_size, book.pages)) {
        error = L"認識できないフォーマットを検出\r\n" + path;
        return false;
    }
    book.recount();
    if (book.pages.empty()) {
        error = L"Book 内にページが存在しない\r\n" + path;
        return false;
    }
    std::wstring& first_text = book.pages.front().text[0];
    if (first_text.starts_with(byte_order_mark))
        first_text.erase(0, 1);
    return true;
}

void write_book(Book& book, ByteSink& sink)
{
    LineWriter writer(sink);
    write_all(writer, header_text(book.header), book.pages);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): clear() may erase what a reference would name
bool Book::load(std::wstring file, std::wstring& error, const AskUser& ask_user)
{
    clear();
    error.clear();
    if (file.empty()) {
        error = L"パス名が無効(empty)\r\n";
        return false;
    }
    if (!platform::exists(file)) {
        error = L"存在しないファイル\r\n" + file;
        return false;
    }
    platform::File opened = platform::File::open_read(file);
    if (!opened.is_open()) {
        error = L"ファイルのオープンに失敗\r\n" + file;
        return false;
    }
    FileSource source(opened);
    return load_book(*this, source, file, error, ask_user);
}

bool Book::save()
{
    return save_to(path);
}

bool Book::save_to(const std::wstring& file)
{
    if (file.empty() || pages.empty())
        return false;
    // All memory is allocated before the old file is replaced, so that a failed allocation leaves it whole.
    platform::File opened;
    FileSink sink(opened);
    LineWriter writer(sink);
    const std::string stored_header = header_text(header);
    opened = platform::File::create(file);
    if (!opened.is_open())
        return false;
    write_all(writer, stored_header, pages);
    file_size = opened.size().value_or(0);
    return true;
}

} // namespace book
