#include "core/settings.hpp"
#include "platform/text.hpp"
#include "session_walker.hpp"
#include <utility>

namespace session_walk {

namespace {

std::wstring written_pages(std::size_t count, const std::wstring& name)
{
    Record record;
    for (std::size_t i = 0; i < count; ++i) {
        book::Page& page = record.pages.emplace_back();
        page.stamp = L"202301010000" + std::to_wstring(10 + i) + L"20230101000000";
        page.text[0] = name + std::to_wstring(i);
        page.text[1] = L"title" + std::to_wstring(count - i);
        page.files = { L"c" + name, L"a" };
        page.tab_number = i % 2;
    }
    return written(record);
}

} // namespace

void Walker::make_files()
{
    const std::wstring good = written_pages(4, L"a");
    std::wstring damaged = good;
    damaged[9] = L'x';
    const std::size_t header_end = good.find(L"\x3\x3\r\n", 4) + 4;
    const std::wstring older = static_cast<wchar_t>(0xFEFF) + good.substr(header_end);
    const std::wstring broken = good + L"x\r\n\x3\r\n\x3\r\n\x3\r\n\x3\r\n\x3\r\nno numbers\r\n\x3\r\n";
    const std::array<std::wstring, 6> odd{ damaged, older, broken, good.substr(0, header_end), L"\r\n",
        good + L"tail" };
    const std::wstring path = root_.file(L"odd.bok");
    if (paths_.size() == book_count)
        paths_.push_back(path);
    for (std::size_t i = 0; i + 1 < book_count; ++i)
        if (model_.files.count(paths_[i]) == 0 && model_.blocked.count(paths_[i]) == 0)
            test_support::write_text(paths_[i], model_.files[paths_[i]] = written_pages(2 + i, L"book"));
    if (model_.blocked.count(path) == 0)
        test_support::write_text(path, model_.files[path] = odd[below(odd.size())]);
}

std::wstring Walker::any_text()
{
    static const std::array<std::wstring, 12> pieces{ L"a", L"B", L" ", L"\r\n", L"\x3", L"\x3000",
        std::wstring{ wchar_t{ 0xD842 }, wchar_t{ 0xDFB7 } }, std::wstring{ wchar_t{ 0xD842 } }, L"\r", L"\n",
        L"水", L"\"x" };
    std::wstring text;
    for (std::uint32_t count = below(8); count > 0; --count)
        text += pieces[below(pieces.size())];
    if (one_in(300))
        text += std::wstring(70000, L'v');
    return text;
}

std::wstring Walker::any_line()
{
    std::wstring line(1 + below(3), L'a');
    for (wchar_t& unit : line)
        unit = static_cast<wchar_t>(L'a' + below(4));
    return line;
}

std::wstring Walker::any_path()
{
    return one_in(8) ? L""
        : one_in(10) ? root_.file(L"missing.bok")
                     : paths_[below(static_cast<std::uint32_t>(paths_.size()))];
}

void Walker::block(const std::wstring& path)
{
    if (path == model_.path && one_in(2))
        return;
    platform::remove_file(path);
    platform::create_folder(path);
    if (path == model_.history_file)
        model_.stored_history.clear();
    model_.files.erase(path);
    model_.blocked.insert(path);
}

void Walker::unblock(const std::wstring& path)
{
    std::filesystem::remove(platform::to_utf8(path));
    model_.blocked.erase(path);
}

// Restores, deletes and blocks files, and changes settings.
void Walker::change_world()
{
    switch (below(6)) {
    case 0:
        last_steps.push_back("block a file");
        return block(
            one_in(6) ? model_.history_file : paths_[below(static_cast<std::uint32_t>(paths_.size()))]);
    case 1:
    case 2:
        last_steps.push_back("free the files");
        while (!model_.blocked.empty())
            unblock(std::wstring(*model_.blocked.begin()));
        return make_files();
    case 3:
        room_->talk.busy = model_.is_busy = one_in(3);
        last_steps.push_back(model_.is_busy ? "busy" : "not busy");
        return;
    case 4:
        core::settings().auto_backup = model_.backs_up = one_in(4);
        return;
    default:
        return set_query();
    }
}

void Walker::set_query()
{
    book::SearchQuery query;
    for (std::uint32_t count = below(3); count > 0; --count)
        query.terms.push_back(one_in(3) ? any_line() : one_in(2) ? L"a" : L"B" + any_text());
    query.all_terms = one_in(2);
    query.ignore_case = one_in(2);
    query.in_file_list = one_in(2);
    room_->desk.asked = model_.asked = query;
    last_steps.push_back("search");
}

} // namespace session_walk
