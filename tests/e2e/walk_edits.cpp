// The windows that edit pages, used from opening to closing within one step of a walk.
#include "book/replace_view.hpp"
#include "core/command_ids.hpp"
#include "tests/support/naive_replace.hpp"
#include "walk_model.hpp"
#include "walk_report.hpp"
#include "walk_walker.hpp"
#include <future>

namespace walk {

namespace {

namespace command = core::command;
using e2e::require;
using e2e::Window;

constexpr auto close_replace_question =
    L"変更内容を保存しますか？\r\n\r\n[はい] を押すと変更内容をファイルに保存して終了します．\r\n"
    L"[いいえ] を押すと最初の状態に戻して終了します．";
constexpr auto close_editor_question =
    L"変更内容をファイルに保存しますか？\r\n\r\n[はい] を押すと変更内容をファイルに保存して終了します．\r\n"
    L"[いいえ] を押すと編集前の状態に戻して終了します．";

} // namespace

// Memory and file agree afterwards.
void Model::open_editing()
{
    const bool had_edits = is_edited();
    const std::size_t questions = talks.size();
    leave();
    const bool was_written = had_edits && talks.size() > questions && talks.back().answer == IDYES;
    if (!was_written)
        write();
    finish(had_edits);
}

void Model::replace_all(const std::wstring& old, const std::wstring& by)
{
    talks.clear();
    const book::ReplaceRequest request{ .search = old,
        .replacement = by,
        .targets = book::replace_target::boxes,
        .letter_case = book::LetterCase::exact };
    std::size_t count = 0;
    for (Page& page : book.pages) {
        const std::size_t replaced = naive::replace_in_page(page.data, request);
        count += replaced;
        if (replaced != 0)
            page.data.stamp = page.data.stamp.substr(0, half_stamp) + unknown_time;
    }
    has_changed_ = count != 0;
    tell(std::to_wstring(count) + L"件 置換しました\r\n[対象ページ: 全て]");
    finish(true);
}

void Model::delete_selected()
{
    talks.clear();
    if (!ask(L"選択した 1 枚のページを削除しますか？"))
        return;
    book.pages.erase(book.pages.begin() + static_cast<std::ptrdiff_t>(index_at(book.header.position)));
    if (book.pages.empty())
        insert_page(0);
    book.header.position = std::min<std::uint64_t>(book.header.position, page_count() - 1);
    pages_moved();
}

// The position counts as a stored index here, whatever the order is.
void Model::paste_selected(bool cut)
{
    talks.clear();
    const std::size_t selected = index_at(book.header.position);
    const std::size_t index = cut ? static_cast<std::size_t>(book.header.position) : page_count();
    const std::wstring verb = cut ? L"カットした " : L"コピーした ";
    if (!ask(verb + L"1 枚のページを位置 [" + std::to_wstring(index + 1) + L"] に貼付けますか？"))
        return;
    Page page = book.pages[selected];
    std::size_t place = index;
    if (cut) {
        book.pages.erase(book.pages.begin() + static_cast<std::ptrdiff_t>(selected));
        place -= selected < index ? 1 : 0;
    } else {
        page.id = next_id_++;
    }
    book.pages.insert(book.pages.begin() + static_cast<std::ptrdiff_t>(place), page);
    book.header.position = place;
    pages_moved();
}

void Model::pages_moved()
{
    has_changed_ = true;
    forget_shown();
    recount();
    rebuild_order();
    finish(true);
}

void Model::close_editing(const std::wstring& question)
{
    talks.clear();
    if (!std::exchange(has_changed_, false))
        return finish(true);
    if (!ask(question))
        return load(std::wstring(path));
    store_scroll();
    write();
    finish(true);
}

Window Walker::side_window(const std::wstring& class_name) const
{
    for (const Window window : e2e::top_windows(program_->process_id()))
        if (window.class_name() == class_name)
            return window;
    return {};
}

Window Walker::open_side_window(int id, const std::wstring& class_name)
{
    model.open_editing();
    send(id);
    model.talks.clear();
    require("the window shows", [&] { return side_window(class_name).exists(); });
    return side_window(class_name);
}

// Sends a command to a window beside the main one. The boxes that follow are served.
void Walker::send_to(Window window, int id)
{
    read_scroll();
    perform_served([=] { window.send(WM_COMMAND, MAKEWPARAM(id, 0)); });
}

void Walker::close_side_window(Window window, const std::wstring& question)
{
    read_scroll();
    model.close_editing(question);
    perform_served([=] { window.send(WM_CLOSE); });
    model.talks.clear();
}

void Walker::replace_everywhere()
{
    std::wstring search = some_text(false).substr(0, 2);
    std::erase(search, wchar_t{ 3 });
    if (search.empty() || chance(50))
        search = L"字";
    std::wstring by = chance(30) ? L"" : some_text(false).substr(0, 5);
    std::erase(by, wchar_t{ 3 });
    note(walk::quoted(search) + " by " + walk::quoted(by));
    const Window window = open_side_window(command::show_replace, L"ovlib_replacewnd[112]");
    window.child(command::replace_search_text).set_text(search);
    window.child(command::replace_new_text).set_text(by);
    if (!replaces_boxes_) // the check keeps its state until the program ends
        window.send_command(command::replace_in_boxes);
    replaces_boxes_ = true;
    read_scroll();
    model.replace_all(search, by);
    send_to(window, command::replace_all_pages);
    close_side_window(window, close_replace_question);
}

void Walker::edit_pages()
{
    const Window window = open_side_window(command::show_book_editor, L"ovlib_bookeditor[344]");
    window.send_command(command::select_page);
    read_scroll();
    const std::size_t kind = below(model.page_count() < 14 ? 3 : 2);
    if (kind == 0) {
        model.delete_selected();
        send_to(window, command::delete_pages);
    } else {
        const bool cut = kind == 1;
        window.send_command(cut ? command::cut_pages : command::copy_pages);
        model.paste_selected(cut);
        send_to(window, cut ? command::paste_pages : command::paste_pages_at_end);
    }
    model.talks.clear();
    window.send_command(command::clear_selection);
    close_side_window(window, close_editor_question);
}

} // namespace walk
