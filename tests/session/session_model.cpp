#include "session_model.hpp"
#include "book/linguistic_sort.hpp"
#include "book/query.hpp"
#include "look/theme.hpp"
#include "tests/support/naive_search.hpp"
#include "walk_clock.hpp"
#include <algorithm>
#include <numeric>
#include <random>

namespace session_walk {

namespace {

constexpr std::uint32_t full = 0xF47F;
constexpr std::size_t none = static_cast<std::size_t>(-1);

template <class Value> Value next(std::deque<Value>& values)
{
    if (values.empty())
        return {};
    Value value = values.front();
    values.pop_front();
    return value;
}

std::wstring name_of(const std::wstring& path)
{
    return path.substr(path.find_last_of(L"/\\") + 1);
}

std::wstring stem_of(const std::wstring& path)
{
    const std::wstring name = name_of(path);
    return name.substr(0, name.rfind(L'.'));
}

std::vector<std::uint64_t> shuffled(std::size_t count, std::uint32_t seed)
{
    std::vector<std::uint64_t> order(count);
    std::iota(order.begin(), order.end(), std::uint64_t{ 0 });
    std::mt19937 generator(seed);
    for (std::uint64_t k = 1; k < count; ++k) {
        const std::uint64_t n = k + 1;
        const std::uint64_t most = 0xFFFFFFFF;
        std::uint64_t drawn = generator();
        while (drawn / n >= most / n && most % n != n - 1)
            drawn = generator();
        std::swap(order[k], order[drawn % n]);
    }
    return order;
}

std::uint64_t size_of(const book::Page& page)
{
    std::uint64_t units = page.reference_folder.size();
    for (const std::wstring& text : page.text)
        units += text.size();
    for (const std::wstring& entry : page.files)
        units += entry.size();
    return units;
}

} // namespace

std::size_t Model::index_at(std::uint64_t position) const
{
    const std::size_t count = book.pages.size();
    if (position >= count)
        return none;
    const std::uint64_t i = book.header.order_mode < 0 ? count - 1 - position : position;
    return static_cast<std::size_t>(order.size() == count ? order[i] : i);
}

std::size_t Model::shown_index() const
{
    const auto found = std::ranges::find(ids, shown);
    return shown == 0 || found == ids.end() ? none : static_cast<std::size_t>(found - ids.begin());
}

book::Page* Model::page()
{
    const std::size_t index = current();
    return index == none ? nullptr : &book.pages[index];
}

Model::Note Model::note()
{
    const std::size_t index = current();
    if (index == none)
        return { book.header.position, 0, revision_, L"" };
    return { book.header.position, ids[index], revision_, book.pages[index].stamp };
}

bool Model::has_edits() const
{
    return std::ranges::any_of(boxes, &Box::is_edited);
}

void Model::call()
{
    if (const auto hook = std::exchange(while_open, {}))
        hook();
}

void Model::tell(int style, const std::wstring& text)
{
    say(L"tell " + std::to_wstring(style) + L": " + text);
    call();
}

bool Model::ask(int style, const std::wstring& text)
{
    say(L"ask " + std::to_wstring(style) + L": " + text);
    call();
    return next(answers);
}

std::wstring Model::choose(const std::wstring& what)
{
    say(what);
    call();
    return next(paths);
}

void Model::show_title()
{
    if (needs_update)
        title = L"Book needs update";
    else if (path.empty())
        title = L"No Title";
    else
        title = stem_of(path) + (has_edits() ? L" *" : L"");
}

void Model::clean()
{
    for (Box& box : boxes)
        box.is_edited = false;
    show_title();
}

void Model::type(std::size_t box, const std::wstring& text)
{
    boxes[box] = { text, true };
}

void Model::renew_mark()
{
    show_title();
}

void Model::forget_shown()
{
    shown = 0;
    clean();
}

void Model::show()
{
    book::Page* shown_now = page();
    if (!shown_now || has_edits())
        return;
    const unsigned id = ids[current()];
    if (id == shown) {
        shown_now->scroll_first = scroll[0];
        shown_now->scroll_third = scroll[1];
    }
    for (std::size_t box = 0; box < 3; ++box)
        boxes[box] = { shown_now->text[box], false };
    scroll = { shown_now->scroll_first, shown_now->scroll_third };
    shown = id;
    clean();
}

std::uint32_t Model::settle()
{
    if (is_gone)
        return 0;
    hits.clear();
    book::SearchQuery query = asked;
    query.track_marks = book.header.track_marks != 0;
    query.track_tabs = book.header.track_tabs != 0;
    if (const book::Page* searched = page())
        naive::match_page(*searched, query, hits);
    return shown_index() == current() ? 0 : full;
}

void Model::fail(const Failure& failure)
{
    if (!failure.is_fatal)
        return tell(48, failure.text);
    tell(16, failure.text + L"\r\nアプリケーションを終了します．");
    say(L"close");
    close();
}

void Model::run(const std::function<void()>& action, std::uint32_t mask)
{
    if (is_loading)
        return;
    ++depth_;
    try {
        action();
        pending_ |= mask;
    } catch (const Failure& failure) {
        fail(failure);
    }
    if (depth_ == 1) {
        pending_ |= settle();
        for (int round = 0; round < 12 && pending_ != 0 && !is_gone; ++round) {
            refresh_counts();
            pending_ |= settle();
            if (std::exchange(pending_, 0) & 1)
                show();
            const std::uint32_t overdue = settle();
            if (!has_edits())
                pending_ |= overdue;
        }
        pending_ = 0;
    }
    --depth_;
}

void Model::close()
{
    save(Code::always);
    is_gone = true;
}

void Model::start()
{
    clear();
    boxes = {};
    scroll = {};
    shown = 0;
    pending_ = 0;
    hits.clear();
    title.clear();
    is_gone = is_busy = is_loading = false;
    history = stored_history;
    run(
        [this] {
            while (!history.empty()) {
                const std::size_t before = history.size();
                if (open(history.front()))
                    return;
                if (history.size() >= before) {
                    history.erase(history.begin());
                    store_history();
                }
            }
            if (!create())
                throw Failure{ L"Book を開けませんでした" };
        },
        0);
}

void Model::recount()
{
    std::uint64_t tabs = 0;
    for (book::Page& counted : book.pages)
        if (counted.tab_number != 0)
            counted.tab_number = tabs < 256 ? ++tabs : 0;
}

void Model::rebuild()
{
    order.clear();
    const int mode = std::abs(book.header.order_mode);
    if (mode == 2702)
        order = shuffled(book.pages.size(), book.header.seed);
    if (mode != 2701)
        return;
    order.resize(book.pages.size());
    std::iota(order.begin(), order.end(), std::uint64_t{ 0 });
    const auto sort_by = [this](auto key) {
        std::sort(order.begin(), order.end(),
            [&](std::uint64_t a, std::uint64_t b) { return key(book.pages[a]) < key(book.pages[b]); });
    };
    const int key = book.header.sort_key;
    if (key >= 3000 && key <= 3002) {
        std::vector<const std::wstring*> texts;
        for (const book::Page& sorted : book.pages)
            texts.push_back(&sorted.text[static_cast<std::size_t>(key - 3000)]);
        order = book::linguistic_order(texts);
    } else if (key == 3003) {
        sort_by([](const book::Page& sorted) { return sorted.stamp.substr(0, 14); });
    } else if (key == 3004) {
        sort_by([](const book::Page& sorted) { return sorted.stamp.substr(14); });
    } else if (key == 3005) {
        sort_by(size_of);
    }
}

void Model::refresh_counts()
{
    if (!std::exchange(needs_update, false))
        return;
    hits.clear();
    recount();
    rebuild();
}

bool Model::save(Code code)
{
    if (is_gone || !page())
        return false;
    const bool changed = has_edits();
    refresh_counts();
    if (const std::size_t index = shown_index(); index != none) {
        book.pages[index].scroll_first = scroll[0];
        book.pages[index].scroll_third = scroll[1];
    }
    if (is_busy) {
        clean();
        return false;
    }
    if (code != Code::always && !changed)
        return false;
    if (code == Code::ask) {
        const unsigned asked_about = shown_index() == none ? 0 : shown;
        const bool yes = ask(36, L"ページの内容が変更されています．\r\nファイルに保存しますか？");
        if (is_gone || (shown_index() == none ? 0 : shown) != asked_about)
            return false;
        if (!yes) {
            clean();
            return false;
        }
    }
    const std::size_t index = shown_index();
    if (changed && index != none) {
        book::Page& edited = book.pages[index];
        for (std::size_t box = 0; box < 3; ++box) {
            if (!boxes[box].is_edited)
                continue;
            std::wstring text = boxes[box].text;
            if (box == 1)
                trim(text);
            std::erase(text, wchar_t{ 3 });
            edited.text[box] = text;
        }
        edited.stamp = edited.stamp.substr(0, 14) + clock_text();
    }
    return write_book();
}

bool Model::write(const std::wstring& file)
{
    if (file.empty() || book.pages.empty() || blocked.count(file) != 0)
        return false;
    files[file] = written(book);
    touched.insert(file);
    return true;
}

bool Model::write_book()
{
    if (!write(path)) {
        tell(48, L"Error: Book の保存に失敗\r\n" + path);
        return false;
    }
    remember();
    clean();
    return true;
}

bool Model::leave()
{
    const bool had_edits = has_edits();
    const unsigned left = shown_index() == none ? 0 : shown;
    save(Code::ask);
    if (is_gone || (had_edits && (shown_index() == none ? 0 : shown) != left))
        return false;
    if (had_edits && has_edits()) {
        if (page())
            return false;
        clean();
    }
    if (had_edits)
        pending_ |= full;
    return true;
}

void Model::store_history()
{
    if (blocked.count(history_file) == 0)
        stored_history = history;
}

void Model::remember()
{
    std::erase(history, path);
    history.insert(history.begin(), path);
    store_history();
}

void Model::forget(const std::wstring& file)
{
    std::erase(history, file);
    store_history();
}

void Model::clear()
{
    book = {};
    ids.clear();
    path.clear();
    order.clear();
    hits.clear();
    needs_update = false;
    shown = 0;
    ++revision_;
}

bool Model::create()
{
    if (is_loading)
        return false;
    const bool is_saved = save(Code::always);
    const std::wstring chosen = choose(L"choose Book の新規作成: ");
    if (chosen.empty() || is_gone)
        return false;
    if (is_saved)
        save(Code::if_changed);
    const std::int32_t old_theme = std::exchange(theme, 6000);
    clear();
    clean();
    insert_under(0, fresh_page());
    path = chosen;
    if (!write(path)) {
        tell(48, L"Book の作成に失敗");
        theme = old_theme;
        pending_ |= full;
        return false;
    }
    book.header.theme = theme;
    rebuild();
    book.header.divider = 112;
    run([] {}, full);
    show_title();
    remember();
    return true;
}

bool Model::open(std::wstring chosen)
{
    if (chosen.empty())
        chosen = choose(L"open");
    if (chosen.empty() || is_gone)
        return false;
    save(Code::always);
    return load(chosen);
}

void Model::read(const std::wstring& file)
{
    const std::wstring name = L"\r\n" + file;
    if (blocked.count(file) != 0)
        throw Failure{ L"ファイルのオープンに失敗" + name };
    const std::wstring& text = files[file];
    std::size_t start = 0;
    const Reading status = look_at_header(text, book.header, start);
    is_loading = true;
    bool goes_on = status == Reading::good;
    if (status == Reading::damaged_header)
        goes_on =
            ask(52, file + L"\r\nBookHeader が破損しています．既定値で初期化してロードを継続しますか？");
    if (status == Reading::older)
        goes_on = ask(52,
            file
                + L"\r\nこの Book "
                  L"は古いフォーマットです．フォーマットを変換して読込みますか？\r\n\r\n※注意\r\nBook "
                  L"のフォーマットを変換すると旧バージョンの Pagewick "
                  L"からは読込めなくなります．必要な場合はあらかじめバックアップを取ってください．[いいえ]"
                  L"ボタンを押すと一旦アプリを終了します．");
    is_loading = false;
    if (status == Reading::no_header)
        throw Failure{ L"BookHeader のロードに失敗" + name };
    if (!goes_on)
        throw Failure{ status == Reading::older ? file + L"\r\nBook のロードが中断されました．" : L"" };
    path = file;
    const Reading pages = read_pages(text, start, book.pages);
    for (std::size_t i = 0; i < book.pages.size(); ++i)
        ids.push_back(next_id_++);
    if (pages != Reading::good)
        throw Failure{ L"認識できないフォーマットを検出" + name };
    recount();
    if (book.pages.empty())
        throw Failure{ L"Book 内にページが存在しない" + name };
    if (book.pages[0].text[0].starts_with(static_cast<wchar_t>(0xFEFF)))
        book.pages[0].text[0].erase(0, 1);
}

bool Model::load(const std::wstring& file)
{
    if (is_loading)
        return false;
    if (!exists(file)) {
        tell(48, L"ファイル [" + file + L"] が見つかりませんでした．");
        forget(file);
        return false;
    }
    const std::wstring copy = file;
    clear();
    try {
        read(copy);
    } catch (const Failure&) {
        forget_shown();
        forget(copy);
        throw;
    }
    forget_shown();
    const std::int32_t stored = book.header.theme;
    theme = book.header.theme = stored >= 6000 && stored <= 6005 ? stored : 6000;
    rebuild();
    if (book.header.divider == 0)
        book.header.divider = 112;
    run([] {}, full);
    show_title();
    remember();
    if (backs_up)
        back_up(false);
    say(L"loaded");
    return true;
}

void Model::save_as()
{
    const std::wstring old_path = path;
    const std::wstring chosen = choose(L"choose Book に名前を付けて保存する: " + old_path);
    if (chosen.empty() || path != old_path)
        return;
    path = chosen;
    if (save(Code::always))
        remember();
    else
        path = old_path;
}

void Model::back_up(bool asks)
{
    const std::wstring source = path;
    if (source.empty() || book.pages.empty())
        return asks ? say(L"result: Error: この Book は無効です．\r\n" + source)
                    : tell(48, L"バックアップファイルの作成に失敗\r\n" + path);
    const std::wstring target = backup_folder + L"\\" + name_of(source);
    const std::wstring question =
        name_of(source) + L" はすでにバックアップフォルダに存在します．上書きしますか？";
    if (asks && files.count(target) != 0 && !ask(36, question))
        return say(L"result: ");
    if (blocked.count(source) != 0 || files.count(source) == 0) {
        say(L"system error");
        call();
        return asks ? say(L"result: ") : tell(48, L"バックアップファイルの作成に失敗\r\n" + path);
    }
    files[target] = files[source];
    touched.insert(target);
    if (asks)
        say(L"result: バックアップしました:\r\n" + target);
}

void Model::turn(int direction)
{
    if (!leave())
        return;
    book::SearchQuery query = asked;
    query.track_marks = book.header.track_marks != 0;
    query.track_tabs = book.header.track_tabs != 0;
    const std::uint64_t from = book.header.position;
    std::vector<book::SearchHit> ignored;
    if (page()) {
        for (std::uint64_t to = from + static_cast<std::uint64_t>(direction); index_at(to) != none;
             to += static_cast<std::uint64_t>(direction)) {
            if (!naive::match_page(book.pages[index_at(to)], query, ignored))
                continue;
            book.header.position = to;
            break;
        }
    }
    say(L"banner: " + (book.header.position == from ? book::failed_search_text(query) : std::wstring{}));
}

bool Model::go_to(std::uint64_t position)
{
    if (!leave() || position >= book.pages.size())
        return false;
    book.header.position = position;
    return true;
}

void Model::slide_to(std::uint64_t position)
{
    if (go_to(position))
        pending_ |= full;
}

void Model::go_to_tab(std::uint64_t number)
{
    if (!leave() || number == 0)
        return;
    for (std::uint64_t position = 0; position < book.pages.size(); ++position) {
        if (book.pages[index_at(position)].tab_number == number) {
            book.header.position = position;
            return;
        }
    }
}

void Model::change_order(Order kind, std::uint32_t fresh_seed)
{
    if (!leave())
        return;
    std::int32_t& mode = book.header.order_mode;
    if (kind == Order::reversed) {
        mode = -mode;
        return;
    }
    const std::int32_t wanted = kind == Order::sorted ? 2701 : 2702;
    const std::int32_t now = std::abs(mode) == wanted ? 2700 : wanted;
    mode = mode < 0 ? -now : now;
    if (now == 2702)
        book.header.seed = fresh_seed;
    rebuild();
}

book::Page Model::fresh_page() const
{
    book::Page fresh;
    fresh.stamp = clock_text() + clock_text();
    const look::ThemePalette colors = look::theme_colors(theme);
    fresh.text_color = { colors.box1_text.value, colors.box2_text.value, colors.box3_text.value };
    fresh.back_color = { colors.box_back.value, colors.box_back.value, colors.box_back.value };
    return fresh;
}

void Model::insert_under(std::size_t index, book::Page inserted)
{
    if (index > book.pages.size())
        return;
    book.pages.insert(book.pages.begin() + static_cast<std::ptrdiff_t>(index), std::move(inserted));
    ids.insert(ids.begin() + static_cast<std::ptrdiff_t>(index), next_id_++);
    book.header.position = index;
    needs_update = true;
    shown = 0;
    ++revision_;
}

void Model::remove_under(std::uint64_t position)
{
    const std::size_t index = index_at(position);
    if (index == none)
        return;
    book.pages.erase(book.pages.begin() + static_cast<std::ptrdiff_t>(index));
    ids.erase(ids.begin() + static_cast<std::ptrdiff_t>(index));
    needs_update = true;
    shown = 0;
    ++revision_;
    if (book.pages.empty())
        insert_under(0, fresh_page());
    book.header.position = std::min<std::uint64_t>(book.header.position, book.pages.size() - 1);
}

void Model::swap_under(std::size_t first, std::size_t second)
{
    std::swap(book.pages[first], book.pages[second]);
    std::swap(ids[first], ids[second]);
    needs_update = true;
    shown = 0;
    ++revision_;
}

void Model::follow()
{
    forget_shown();
    refresh_counts();
}

void Model::add(bool at_end)
{
    if (!leave())
        return;
    insert_under(at_end ? book.pages.size() : static_cast<std::size_t>(book.header.position), fresh_page());
    follow();
    save(Code::always);
}

void Model::swap(int direction)
{
    if (!leave())
        return;
    const std::size_t index = current();
    const std::uint64_t target = book.header.position + static_cast<std::uint64_t>(direction);
    const std::size_t neighbour = index_at(target);
    if (index == none || neighbour == none)
        return;
    const unsigned id = ids[index];
    swap_under(index, neighbour);
    book.header.position = target;
    refresh_counts();
    if (ids[current()] != id) {
        std::uint64_t position = 0;
        while (ids[index_at(position)] != id)
            ++position;
        book.header.position = position;
    }
    follow();
    pending_ |= full;
}

void Model::remove()
{
    const Note asked_about = note();
    if (asked_about.id == 0)
        return;
    const std::wstring number = std::to_wstring(book.header.position + 1);
    if (!ask(36, L"このページを削除しますか？\r\n[ p." + number + L" ]") || note() != asked_about)
        return;
    remove_under(asked_about.position);
    follow();
    save(Code::always);
}

void Model::toggle_mark()
{
    if (book::Page* marked = page()) {
        marked->mark = marked->mark == 0 ? 1 : 0;
        recount();
    }
}

void Model::toggle_tab(std::uint32_t color)
{
    if (book::Page* tabbed = page()) {
        tabbed->tab_number = tabbed->tab_number == 0 ? 1 : 0;
        tabbed->tab_color = color;
        recount();
    }
}

void Model::remove_tab(std::size_t index, std::uint32_t color)
{
    if (index >= book.pages.size())
        return;
    const std::uint64_t revision = revision_;
    const std::uint64_t number = book.pages[index].tab_number;
    if (!ask(36, L"このページのタブを削除しますか？") || revision != revision_
        || book.pages[index].tab_number != number)
        return;
    book.pages[index].tab_number = 0;
    book.pages[index].tab_color = color;
    recount();
}

void Model::select(std::int64_t row)
{
    book::Page* listed = page();
    if (listed && row >= 0 && static_cast<std::uint64_t>(row) < listed->files.size())
        listed->current_file = static_cast<std::uint64_t>(row);
}

void Model::step(std::int64_t by)
{
    book::Page* listed = page();
    if (!listed || listed->files.empty())
        return;
    const auto last = static_cast<std::int64_t>(listed->files.size()) - 1;
    select(std::clamp<std::int64_t>(static_cast<std::int64_t>(listed->current_file) + by, 0, last));
}

void Model::move(std::int64_t by)
{
    book::Page* listed = page();
    if (!listed || listed->files.empty())
        return;
    const std::size_t from = static_cast<std::size_t>(listed->current_file);
    const std::wstring entry = listed->files[from];
    step(by);
    listed->files.erase(listed->files.begin() + static_cast<std::ptrdiff_t>(from));
    listed->files.insert(listed->files.begin() + static_cast<std::ptrdiff_t>(listed->current_file), entry);
}

void Model::sort(bool descending)
{
    book::Page* listed = page();
    if (!listed)
        return;
    std::vector<const std::wstring*> texts;
    for (const std::wstring& entry : listed->files)
        texts.push_back(&entry);
    std::vector<std::wstring> sorted;
    for (const std::uint64_t place : book::linguistic_order(texts))
        sorted.push_back(listed->files[static_cast<std::size_t>(place)]);
    if (descending)
        std::reverse(sorted.begin(), sorted.end());
    listed->files = sorted;
}

void Model::remove_file()
{
    book::Page* listed = page();
    if (!listed || listed->files.empty())
        return;
    const Note asked_about = note();
    const std::uint64_t place = listed->current_file;
    const std::wstring entry = listed->files[place];
    if (!ask(36, L"リストからこのファイルを削除しますか？\r\n" + entry) || note() != asked_about)
        return;
    listed = page();
    if (listed->current_file != place || place >= listed->files.size() || listed->files[place] != entry)
        return;
    listed->files.erase(listed->files.begin() + static_cast<std::ptrdiff_t>(place));
    if (place > 0 && place == listed->files.size())
        --listed->current_file;
}

void Model::remove_all_files()
{
    if (!page())
        return;
    const Note asked_about = note();
    const std::vector<std::wstring> listed = page()->files;
    if (!ask(36, L"リストから全てのファイルを削除しますか？") || note() != asked_about
        || page()->files != listed)
        return;
    page()->files.clear();
    page()->current_file = 0;
}

void Model::add_files(const std::vector<std::wstring>& chosen)
{
    if (!page())
        return;
    const Note asked_about = note();
    choose(L"files");
    if (chosen.empty() || note() != asked_about)
        return;
    page()->current_file = page()->files.size();
    for (const std::wstring& entry : chosen)
        page()->files.push_back(entry);
}

void Model::set_folder(const std::wstring& chosen)
{
    if (!page())
        return;
    const Note asked_about = note();
    choose(L"folder");
    if (chosen.empty() || note() != asked_about)
        return;
    page()->reference_folder = chosen;
    save(Code::always);
}

void Model::clear_folder()
{
    if (!page())
        return;
    const Note asked_about = note();
    const std::wstring folder = page()->reference_folder;
    if (!ask(36, L"フォルダの選択を取消しますか？\r\n" + folder) || note() != asked_about
        || page()->reference_folder != folder)
        return;
    page()->reference_folder.clear();
    save(Code::always);
}

} // namespace session_walk
