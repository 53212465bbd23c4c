// The model's commands: their effect on the open Book.
#include "book/linguistic_sort.hpp"
#include "look/tab_strip.hpp"
#include "look/theme.hpp"
#include "walk_model.hpp"
#include <windows.h>
#include <algorithm>

namespace walk {

namespace {

std::size_t clamped(std::size_t place, int by, std::size_t count)
{
    const auto wanted = static_cast<int>(place) + by;
    return static_cast<std::size_t>(std::clamp(wanted, 0, static_cast<int>(count) - 1));
}

bool is_address(const std::wstring& entry)
{
    return entry.starts_with(L"http");
}

} // namespace

void Model::type(std::size_t box, std::size_t start, std::size_t end, const std::wstring& text)
{
    boxes[box].text.replace(start, end - start, text);
    boxes[box].edited = true;
}

void Model::save_always()
{
    store_scroll();
    write();
    finish(false);
}

void Model::save_if_changed()
{
    store_scroll();
    if (is_edited())
        write();
    finish(false);
}

void Model::save_after_question()
{
    leave();
    finish(false);
}

void Model::turn(int direction)
{
    if (!accepts_input)
        return;
    const bool had_edits = leave();
    const bool found = find(direction);
    finish(found || had_edits);
}

void Model::go_to_end(bool last)
{
    if (!accepts_input)
        return;
    leave();
    book.header.position = last ? page_count() - 1 : 0;
    finish(true);
}

void Model::go_to_tab(std::uint64_t number)
{
    leave();
    for (std::uint64_t position = 0; number != 0 && position < page_count(); ++position) {
        if (book.pages[index_at(position)].data.tab_number == number) {
            book.header.position = position;
            break;
        }
    }
    finish(true);
}

void Model::slide_to(std::uint64_t position)
{
    if (position == book.header.position || !accepts_input)
        return;
    leave();
    book.header.position = position;
    finish(true);
}

// Swaps the page with its neighbour; the position follows the page.
void Model::swap(int direction)
{
    if (!accepts_input)
        return;
    const bool had_edits = leave();
    const std::uint64_t from = book.header.position;
    const bool at_end = direction < 0 ? from == 0 : from + 1 >= page_count();
    if (at_end)
        return finish(had_edits);
    const std::size_t index = index_at(from);
    const std::size_t neighbour = index_at(direction < 0 ? from - 1 : from + 1);
    const unsigned id = book.pages[index].id;
    std::swap(book.pages[index], book.pages[neighbour]);
    recount();
    rebuild_order();
    for (std::uint64_t position = 0; position < page_count(); ++position) {
        if (book.pages[index_at(position)].id == id)
            book.header.position = position;
    }
    finish(true);
}

void Model::change_order(Order order)
{
    leave();
    std::int32_t& mode = book.header.order_mode;
    if (order == Order::reversed) {
        mode = -mode;
        return finish(true);
    }
    const std::int32_t wanted = order == Order::sorted ? 2701 : 2702;
    const bool comes_on = std::abs(mode) != wanted;
    const std::int32_t now = comes_on ? wanted : 2700;
    mode = mode < 0 ? -now : now;
    rebuild_order();
    finish(true);
}

void Model::toggle_track(Track track)
{
    std::uint8_t& flag = track == Track::marks ? book.header.track_marks : book.header.track_tabs;
    flag = flag == 0;
    finish(true);
}

void Model::toggle_mark()
{
    current().mark = current().mark == 0;
    finish(false);
}

void Model::toggle_tab()
{
    book::Page& page = current();
    page.tab_number = page.tab_number == 0 && tab_count() < 256 ? 1 : 0;
    page.tab_color = look::tab_color(0).value;
    recount();
    finish(false);
}

void Model::delete_page()
{
    const std::uint64_t position = book.header.position;
    if (!ask(L"このページを削除しますか？\r\n[ p." + std::to_wstring(position + 1) + L" ]"))
        return finish(false);
    book.pages.erase(book.pages.begin() + static_cast<std::ptrdiff_t>(index_at(position)));
    forget_shown();
    if (book.pages.empty())
        insert_page(0);
    book.header.position = std::min<std::uint64_t>(position, page_count() - 1);
    recount();
    rebuild_order();
    write();
    finish(true);
}

void Model::add_page(bool at_end)
{
    leave();
    insert_page(at_end ? page_count() : static_cast<std::size_t>(book.header.position));
    forget_shown();
    recount();
    rebuild_order();
    write();
    finish(true);
}

void Model::choose_folder(const std::wstring& chosen)
{
    talks.push_back({ Talk::Kind::file_dialog, L"ライブラリの選択", 0, chosen });
    if (chosen.empty())
        return;
    current().reference_folder = chosen;
    store_scroll();
    write();
    finish(false);
}

void Model::open_missing_folder()
{
    tell(L"ライブラリを開けませんでした．\r\n" + current().reference_folder);
}

void Model::clear_folder()
{
    if (current().reference_folder.empty())
        return;
    if (!ask(L"フォルダの選択を取消しますか？\r\n" + current().reference_folder))
        return;
    current().reference_folder.clear();
    store_scroll();
    write();
    finish(false);
}

void Model::refresh(std::uint32_t mask)
{
    finish((mask & 1) != 0);
}

void Model::select_file(std::size_t place)
{
    if (place < current().files.size())
        current().current_file = place;
}

void Model::step_file(int by)
{
    book::Page& page = current();
    if (!page.files.empty())
        page.current_file = clamped(page.current_file, by, page.files.size());
}

void Model::move_file(int by)
{
    book::Page& page = current();
    if (page.files.empty())
        return;
    const std::wstring entry = page.files[page.current_file];
    page.files.erase(page.files.begin() + static_cast<std::ptrdiff_t>(page.current_file));
    page.current_file = clamped(page.current_file, by, page.files.size() + 1);
    page.files.insert(page.files.begin() + static_cast<std::ptrdiff_t>(page.current_file), entry);
}

void Model::remove_file()
{
    book::Page& page = current();
    if (page.files.empty() || page.files[page.current_file].empty())
        return;
    if (!ask(L"リストからこのファイルを削除しますか？\r\n" + page.files[page.current_file]))
        return;
    page.files.erase(page.files.begin() + static_cast<std::ptrdiff_t>(page.current_file));
    const std::size_t last = page.files.empty() ? 0 : page.files.size() - 1;
    page.current_file = std::min<std::uint64_t>(page.current_file, last);
}

void Model::remove_all_files()
{
    if (!ask(L"リストから全てのファイルを削除しますか？"))
        return;
    current().files.clear();
    current().current_file = 0;
}

void Model::sort_files(bool descending)
{
    std::vector<std::wstring>& list = current().files;
    std::vector<const std::wstring*> texts;
    for (const std::wstring& entry : list)
        texts.push_back(&entry);
    std::vector<std::wstring> sorted;
    for (const std::uint64_t place : book::linguistic_order(texts))
        sorted.push_back(list[place]);
    list = sorted;
    if (descending)
        std::ranges::reverse(list);
}

std::wstring Model::entry()
{
    const book::Page& page = current();
    return page.files.empty() ? std::wstring{} : page.files[page.current_file];
}

void Model::add_file(const std::wstring& chosen)
{
    talks.push_back({ Talk::Kind::file_dialog, L"ファイルの選択", 0, chosen });
    if (chosen.empty())
        return;
    current().files.push_back(chosen);
    current().current_file = current().files.size() - 1;
}

void Model::leave_duplicate()
{
    if (!accepts_input)
        return;
    talks.push_back({ Talk::Kind::file_dialog, L"ファイルの保存先を指定してください", 0, {} });
}

void Model::search_missing_file()
{
    const std::wstring searched = entry();
    if (searched.empty() || is_address(searched))
        return tell(L"このファイルは探索できません: " + searched);
    tell(L"ショートカットファイルが見つかりませんでした\r\n" + in_full(searched));
    remove_file();
}

void Model::open_missing_file()
{
    tell(L"Error: ファイルを開けませんでした.\r\n" + entry());
}

void Model::show_missing_file()
{
    tell(L"Error: ファイルの場所を開けませんでした.\r\n" + in_full(entry()));
}

std::wstring Model::in_full(const std::wstring& entry_text) const
{
    const bool counts_from_root = entry_text.find(L':') == entry_text.npos;
    return counts_from_root ? data_root + L"\\" + entry_text : entry_text;
}

// Only a new order of a sorted Book concerns the page that is being edited.
void Model::choose_settings(std::int32_t sort_key, bool plays_gifs)
{
    const bool is_new = sort_key != book.header.sort_key;
    const bool has_left = is_new && std::abs(book.header.order_mode) == 2701 && leave();
    book.header.sort_key = sort_key;
    book.header.gif_autoplay = plays_gifs ? 1 : 0;
    if (is_new)
        rebuild_order();
    finish(has_left);
}

void Model::apply_theme(std::int32_t identifier)
{
    theme = identifier == 6006 ? 6005 : identifier;
    book.header.theme = theme;
}

void Model::color_all_pages()
{
    const look::ThemePalette colors = look::theme_colors(theme);
    for (Page& page : book.pages) {
        page.data.text_color = { colors.box1_text.value, colors.box2_text.value, colors.box3_text.value };
        page.data.back_color.fill(colors.box_back.value);
    }
}

void Model::new_book(const std::wstring& chosen)
{
    store_scroll();
    write();
    talks.push_back({ Talk::Kind::file_dialog, L"Book の新規作成", 0, chosen });
    if (chosen.empty())
        return finish(false);
    if (files.contains(chosen))
        talks.push_back({ Talk::Kind::overwrite, {}, IDYES, {} });
    theme = book::standard_theme;
    book = {};
    forget_shown();
    insert_page(0);
    path = chosen;
    files[path] = book;
    book.header.divider = first_divider;
    rebuild_order();
    remember(path);
    finish(true);
}

void Model::open_book(const std::wstring& chosen)
{
    talks.push_back({ Talk::Kind::file_dialog, L"Book を開く", 0, chosen });
    if (chosen.empty())
        return finish(false);
    store_scroll();
    write();
    load(chosen);
}

void Model::open_history(std::size_t place)
{
    if (place >= history.size())
        return open_book(L"");
    const std::wstring chosen = history[place];
    store_scroll();
    write();
    load(chosen);
}

void Model::save_as(const std::wstring& chosen)
{
    talks.push_back({ Talk::Kind::file_dialog, L"Book に名前を付けて保存する", 0, chosen });
    if (chosen.empty())
        return finish(true);
    if (files.contains(chosen))
        talks.push_back({ Talk::Kind::overwrite, {}, IDYES, {} });
    path = chosen;
    store_scroll();
    write();
    finish(true);
}

void Model::restore()
{
    load(path);
}

void Model::backup()
{
    const std::wstring name = name_of(path);
    if (backups.contains(name) && !ask(name + L" はすでにバックアップフォルダに存在します．上書きしますか？"))
        return;
    backups[name] = files[path];
    tell(L"バックアップしました:\r\n" + backup_folder + L"\\" + name);
}

void Model::about(const std::wstring& text)
{
    tell(text);
}

} // namespace walk
