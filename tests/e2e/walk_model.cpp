#include "walk_model.hpp"
#include "book/book_file.hpp"
#include "book/linguistic_sort.hpp"
#include "book/query.hpp"
#include "look/theme.hpp"
#include "platform/text.hpp"
#include "tests/support/memory_stream.hpp"
#include "tests/support/naive_search.hpp"
#include <windows.h>
#include <algorithm>
#include <numeric>
#include <random>

namespace walk {

namespace {

constexpr std::size_t history_limit = 1000;
constexpr auto save_question = L"ページの内容が変更されています．\r\nファイルに保存しますか？";

bool is_white(wchar_t unit)
{
    return unit == L' ' || unit == L'\t' || unit == L'\r' || unit == L'\n' || unit == 0x3000;
}

void trim_right(std::wstring& text)
{
    while (!text.empty() && is_white(text.back()))
        text.pop_back();
}

void trim(std::wstring& text)
{
    trim_right(text);
    while (!text.empty() && is_white(text.front()))
        text.erase(0, 1);
}

bool same_path(const std::wstring& left, const std::wstring& right)
{
    return CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::size_t size_of(const book::Page& page)
{
    std::size_t units = page.reference_folder.size();
    for (const std::wstring& text : page.text)
        units += text.size();
    for (const std::wstring& file : page.files)
        units += file.size();
    return units;
}

// Compares pages by the keys that are not texts.
bool is_before(const book::Page& left, const book::Page& right, int key)
{
    if (key == 3003)
        return left.stamp.substr(0, half_stamp) < right.stamp.substr(0, half_stamp);
    if (key == 3004)
        return left.stamp.substr(half_stamp) < right.stamp.substr(half_stamp);
    return size_of(left) < size_of(right);
}

// Uses the program's sort: the system's comparison is inconsistent for some texts, and then the order depends
// on the algorithm.
std::vector<std::uint64_t> order_by_text(const std::vector<Page>& pages, std::size_t box)
{
    std::vector<const std::wstring*> texts;
    for (const Page& page : pages)
        texts.push_back(&page.data.text[box]);
    return book::linguistic_order(texts);
}

void renumber_tabs(std::vector<Page>& pages)
{
    std::uint64_t tabs = 0;
    for (Page& page : pages) {
        if (page.data.tab_number != 0)
            page.data.tab_number = tabs < 256 ? ++tabs : 0;
    }
}

bool is_time(const std::wstring& text)
{
    return text.size() == half_stamp && text.find_first_not_of(L"0123456789") == text.npos;
}

// The stamp with its unknown times replaced by those of a known stamp.
std::wstring filled(const std::wstring& stamp, const std::wstring& known)
{
    std::wstring text = stamp;
    for (std::size_t i = 0; i < text.size() && i < known.size(); ++i) {
        if (text[i] == L'?')
            text[i] = known[i];
    }
    return text;
}

} // namespace

std::wstring name_of(const std::wstring& path)
{
    return path.substr(path.rfind(L'\\') + 1);
}

std::string bytes_of(const Record& record)
{
    book::Book book;
    book.header = record.header;
    for (const Page& page : record.pages)
        book.pages.push_back(page.data);
    test_support::MemorySink sink;
    book::write_book(book, sink);
    return std::string(reinterpret_cast<const char*>(sink.bytes.data()), sink.bytes.size());
}

// A file ends every line, so the last line of boxes 1 and 3 is loaded with a line end.
Record as_read(Record record)
{
    for (Page& page : record.pages) {
        for (const std::size_t box : { 0, 2 }) {
            if (!page.data.text[box].empty())
                page.data.text[box] += L"\r\n";
        }
    }
    renumber_tabs(record.pages);
    return record;
}

void Model::begin_step()
{
    talks.clear();
    was_reordered_ = false;
}

std::size_t Model::index_at(std::uint64_t position) const
{
    const std::size_t count = book.pages.size();
    const auto place = static_cast<std::size_t>(position);
    const std::size_t i = book.header.order_mode < 0 ? count - 1 - place : place;
    return order_.size() == count ? static_cast<std::size_t>(order_[i]) : i;
}

book::Page& Model::current()
{
    return book.pages[index_at(book.header.position)].data;
}

std::int32_t Model::tab_count() const
{
    return static_cast<std::int32_t>(
        std::ranges::count_if(book.pages, [](const Page& page) { return page.data.tab_number != 0; }));
}

bool Model::is_edited() const
{
    return std::ranges::any_of(boxes, &Box::edited);
}

bool Model::is_sorted() const
{
    return std::abs(book.header.order_mode) == 2701;
}

bool Model::is_sorted_by_time() const
{
    return is_sorted() && (book.header.sort_key == 3003 || book.header.sort_key == 3004);
}

std::wstring Model::title() const
{
    const std::wstring name = name_of(path);
    return name.substr(0, name.rfind(L'.')) + (is_edited() ? L" *" : L"");
}

void Model::tell(const std::wstring& text)
{
    talks.push_back({ Talk::Kind::message, text, IDOK, {} });
}

bool Model::ask(const std::wstring& text)
{
    const bool yes = says_yes();
    talks.push_back({ Talk::Kind::message, text, yes ? IDYES : IDNO, {} });
    return yes;
}

Page* Model::page_with(unsigned id)
{
    const auto found = std::ranges::find(book.pages, id, &Page::id);
    return id == no_page || found == book.pages.end() ? nullptr : &*found;
}

void Model::store_scroll()
{
    if (Page* page = page_with(shown_)) {
        page->data.scroll_first = scroll[0];
        page->data.scroll_third = scroll[1];
    }
}

void Model::mark_clean()
{
    for (Box& box : boxes)
        box.edited = false;
}

void Model::forget_shown()
{
    shown_ = no_page;
    mark_clean();
}

// Commits the edits to the page and writes the file.
void Model::write()
{
    if (Page* page = page_with(shown_); page && is_edited()) {
        for (std::size_t box = 0; box < boxes.size(); ++box) {
            if (!boxes[box].edited)
                continue;
            std::wstring text = boxes[box].text;
            if (box == 1)
                trim(text);
            std::erase(text, wchar_t{ 3 });
            page->data.text[box] = text;
        }
        page->data.stamp = page->data.stamp.substr(0, half_stamp) + unknown_time;
    }
    for (Page& page : book.pages) {
        trim_right(page.data.text[0]);
        trim(page.data.text[1]);
        trim_right(page.data.text[2]);
    }
    files[path] = book;
    remember(path);
    mark_clean();
}

void Model::remember(const std::wstring& file)
{
    std::erase_if(history, [&](const std::wstring& entry) { return same_path(entry, file); });
    history.insert(history.begin(), file);
    if (history.size() > history_limit)
        history.pop_back();
}

// Writes or discards the edits; true if there were any.
bool Model::leave()
{
    store_scroll();
    const bool had_edits = is_edited();
    if (had_edits && ask(save_question))
        write();
    mark_clean();
    return had_edits;
}

void Model::show()
{
    if (is_edited())
        return;
    const Page& page = book.pages[index_at(book.header.position)];
    if (page.id == shown_)
        store_scroll(); // a page that is shown again keeps its scroll position
    shown_ = page.id;
    for (std::size_t box = 0; box < boxes.size(); ++box)
        boxes[box] = { page.data.text[box], false };
}

// The end of every command: if another page is at the position now, it is shown in any case.
void Model::finish(bool shows_page)
{
    if (!shows_page && book.pages[index_at(book.header.position)].id == shown_)
        return;
    show();
    choose_first_hit();
}

// The results choose their first row whenever a page is shown or the query changes, also unseen: a hit in the
// file list becomes the selected entry.
void Model::choose_first_hit()
{
    std::vector<book::SearchHit> hits;
    book::Page& page = current();
    naive::match_page(page, query(), hits);
    if (!hits.empty() && hits.front().place >= book::file_place)
        page.current_file = hits.front().place - book::file_place;
}

book::SearchQuery Model::query() const
{
    book::SearchQuery query;
    query.terms = book::query_terms(search);
    query.all_terms = all_terms;
    query.ignore_case = ignore_case;
    query.in_file_list = in_file_list;
    query.track_marks = book.header.track_marks != 0;
    query.track_tabs = book.header.track_tabs != 0;
    return query;
}

void Model::recount()
{
    renumber_tabs(book.pages);
}

void Model::rebuild_order()
{
    was_reordered_ = true;
    order_.clear();
    const int mode = std::abs(book.header.order_mode);
    if (mode != 2701 && mode != 2702)
        return;
    const std::size_t count = book.pages.size();
    order_.resize(count);
    std::iota(order_.begin(), order_.end(), std::uint64_t{ 0 });
    const std::int32_t key = book.header.sort_key;
    if (mode == 2701 && key <= 3002) {
        order_ = order_by_text(book.pages, static_cast<std::size_t>(key - 3000));
        return;
    }
    if (mode == 2701) {
        std::ranges::stable_sort(order_, [&](std::uint64_t left, std::uint64_t right) {
            return is_before(book.pages[left].data, book.pages[right].data, key);
        });
        return;
    }
    std::mt19937 generator(book.header.seed);
    for (std::uint32_t k = 1; k < count; ++k) {
        const std::uint32_t n = k + 1;
        std::uint32_t drawn = 0;
        do
            drawn = static_cast<std::uint32_t>(generator());
        while (!(drawn / n < 0xFFFFFFFFu / n || 0xFFFFFFFFu % n == n - 1));
        std::swap(order_[k], order_[drawn % n]);
    }
}

// Goes to the nearest page that matches; false if there is none.
bool Model::find(int direction)
{
    const book::SearchQuery wanted = query();
    std::vector<book::SearchHit> hits;
    auto position = static_cast<std::int64_t>(book.header.position);
    const auto count = static_cast<std::int64_t>(page_count());
    for (position += direction; position >= 0 && position < count; position += direction) {
        const auto place = static_cast<std::uint64_t>(position);
        if (naive::match_page(book.pages[index_at(place)].data, wanted, hits)) {
            book.header.position = place;
            return true;
        }
    }
    return false;
}

void Model::insert_page(std::size_t index)
{
    const look::ThemePalette colors = look::theme_colors(theme);
    Page page;
    page.id = next_id_++;
    page.data.stamp = std::wstring(unknown_time) + unknown_time;
    page.data.text_color = { colors.box1_text.value, colors.box2_text.value, colors.box3_text.value };
    page.data.back_color.fill(colors.box_back.value);
    book.pages.insert(book.pages.begin() + static_cast<std::ptrdiff_t>(index), page);
    book.header.position = index;
}

void Model::load(const std::wstring& file)
{
    const auto found = files.find(file);
    if (found == files.end()) {
        talks.push_back(
            { Talk::Kind::message, L"ファイル [" + file + L"] が見つかりませんでした．", IDOK, {} });
        std::erase_if(history, [&](const std::wstring& entry) { return same_path(entry, file); });
        return finish(false);
    }
    for (Page& page : found->second.pages) {
        if (page.id == no_page)
            page.id = next_id_++;
    }
    path = file;
    book = as_read(found->second);
    forget_shown();
    apply_theme(book.header.theme);
    rebuild_order();
    if (book.header.divider == 0)
        book.header.divider = first_divider;
    remember(path);
    finish(true);
}

void Model::start()
{
    search.clear();
    all_terms = ignore_case = in_file_list = false;
    accepts_input = true;
    load(std::wstring(history.front()));
}

void Model::take_seed(std::uint32_t seed)
{
    book.header.seed = seed;
    rebuild_order();
    finish(false);
}

std::string Model::learn(const std::wstring& file, const book::Book& on_disk, const std::wstring& earliest,
    const std::wstring& latest)
{
    Record& expected = files[file];
    if (on_disk.pages.size() != expected.pages.size())
        return "the file holds " + std::to_string(on_disk.pages.size()) + " pages";
    for (std::size_t i = 0; i < expected.pages.size(); ++i) {
        Page& page = expected.pages[i];
        const std::wstring before = page.data.stamp;
        const std::wstring& known = on_disk.pages[i].stamp;
        for (const std::size_t start : { std::size_t{ 0 }, half_stamp }) {
            if (before.compare(start, half_stamp, unknown_time) != 0)
                continue;
            const std::wstring time = start < known.size() ? known.substr(start, half_stamp) : L"";
            if (!is_time(time) || time < earliest || time > latest)
                return "page " + std::to_string(i) + " bears the stamp " + platform::to_utf8(known)
                    + " and not the time of this step, " + platform::to_utf8(earliest);
        }
        page.data.stamp = filled(before, known);
        if (Page* living = file == path ? page_with(page.id) : nullptr;
            living && living->data.stamp == before)
            living->data.stamp = page.data.stamp;
    }
    if (was_reordered_) {
        // Some times were unknown when the pages were sorted.
        rebuild_order();
        finish(false);
        was_reordered_ = false;
    }
    return {};
}

} // namespace walk
