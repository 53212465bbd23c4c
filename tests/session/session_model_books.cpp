#include "look/theme.hpp"
#include "session_model.hpp"
#include "walk_clock.hpp"
#include <algorithm>
#include <utility>

namespace session_walk {

void Model::close()
{
    if (!keeps_file_)
        save(Code::always);
    is_gone = true;
}

void Model::start()
{
    clear();
    boxes = {};
    list_edit.reset();
    scroll = {};
    shown = 0;
    pending_ = 0;
    hits.clear();
    title.clear();
    is_gone = is_busy = is_loading = keeps_file_ = false;
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
        const auto asked_about = on_desk();
        const bool yes = ask(36, L"ページの内容が変更されています．\r\nファイルに保存しますか？");
        if (is_gone || on_desk() != asked_about)
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
                make_one_line(text);
            std::erase(text, wchar_t{ 3 });
            edited.text[box] = text;
        }
        edited.stamp = edited.stamp.substr(0, 14) + clock_text();
        if (list_edit)
            set_list(edited, *list_edit);
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
        // A file that cannot be examined counts as read-only.
        const std::wstring reason = path.empty() ? L"\r\n\r\nこのファイルは読取り専用" : L"";
        tell(48, L"Error: Book の保存に失敗\r\n" + path + reason);
        return false;
    }
    remember();
    clean();
    return true;
}

bool Model::leave()
{
    const bool had_edits = has_edits();
    const auto left = on_desk();
    save(Code::ask);
    if (is_gone || (had_edits && on_desk() != left))
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
    else if (path == chosen)
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

} // namespace session_walk
