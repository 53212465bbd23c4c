#include "book/linguistic_sort.hpp"
#include "session_model.hpp"
#include <algorithm>

namespace session_walk {

// Only CR LF divides lines, also if a U+0003 was between the two.
void Model::set_list(book::Page& listed, std::wstring text)
{
    listed.files.clear();
    std::erase(text, wchar_t{ 3 });
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(L"\r\n"), text.size());
        std::wstring line = text.substr(0, end);
        text.erase(0, end + 2);
        trim(line);
        if (!line.empty())
            listed.files.push_back(line);
    }
    const std::uint64_t last = listed.files.empty() ? 0 : listed.files.size() - 1;
    listed.current_file = std::min(listed.current_file, last);
}

void Model::apply_list()
{
    const std::size_t index = shown_index();
    if (!list_edit || index == none)
        return;
    set_list(book.pages[index], *list_edit);
    list_edit.reset();
    show_title();
    pending_ |= 0x8006;
}

bool Model::may_change_list()
{
    if (!list_edit)
        return true;
    const auto asked_about = on_desk();
    const Note current_page = note();
    say(L"ask or cancel: 内容が変更されています．\r\n適用しますか？");
    call();
    const Choice answer = choices.empty() ? Choice::yes : choices.front();
    if (!choices.empty())
        choices.pop_front();
    if (answer == Choice::cancel || is_gone || on_desk() != asked_about
        || (current_page.id != 0 && note() != current_page))
        return false;
    if (answer == Choice::yes && list_edit && shown_index() == none)
        return false;
    if (answer == Choice::yes)
        apply_list();
    list_edit.reset();
    show_title();
    pending_ |= 0xE;
    return true;
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
    if (!may_change_list())
        return;
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
    if (!may_change_list())
        return;
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
    if (!may_change_list())
        return;
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
    if (!may_change_list() || !page())
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
    if (!may_change_list() || !page())
        return;
    const Note asked_about = note();
    choose(L"files");
    if (note() == asked_about)
        append(chosen);
}

void Model::add_dropped_files(const std::vector<std::wstring>& dropped)
{
    if (!dropped.empty() && may_change_list())
        append(dropped);
}

void Model::add_pages_of_files(const std::vector<std::wstring>& dropped)
{
    if (dropped.empty() || !leave())
        return;
    for (const std::wstring& file : dropped) {
        book::Page made = fresh_page();
        made.files = { file };
        insert_under(book.pages.size(), made);
    }
    follow();
    pending_ |= full;
}

void Model::append(const std::vector<std::wstring>& chosen)
{
    if (!page() || chosen.empty())
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
