#include "app/file_commands.hpp"
#include "book/linguistic_sort.hpp"
#include "core/command_ids.hpp"
#include <algorithm>
#include <utility>

namespace app {

namespace command = core::command;

namespace {

// Where the entry at `place` of `count` entries stands after a step of `by`, which may reach far out.
std::uint64_t clamped(std::uint64_t place, std::int64_t by, std::size_t count)
{
    const auto last = static_cast<std::int64_t>(count) - 1;
    const auto from = static_cast<std::int64_t>(std::min<std::uint64_t>(place, count - 1));
    return static_cast<std::uint64_t>(std::clamp<std::int64_t>(from + by, 0, last));
}

std::int64_t step_of(int command, std::size_t count)
{
    const auto whole = static_cast<std::int64_t>(count);
    switch (command) {
    case command::first_file:
    case command::move_file_to_top:
        return -whole;
    case command::previous_file:
    case command::move_file_up:
        return -1;
    case command::next_file:
    case command::move_file_down:
        return 1;
    case command::last_file:
    case command::move_file_to_end:
        return whole;
    default:
        return 0;
    }
}

} // namespace

const std::wstring* current_entry(const book::Page& page)
{
    return page.current_file < page.files.size() ? &page.files[page.current_file] : nullptr;
}

bool select_file(book::Page& page, std::uint64_t place)
{
    if (place >= page.files.size())
        return false;
    page.current_file = place;
    return true;
}

bool select_file_by(book::Page& page, int command)
{
    const std::size_t count = page.files.size();
    return count != 0 && select_file(page, clamped(page.current_file, step_of(command, count), count));
}

bool move_file(book::Page& page, int command)
{
    const std::size_t count = page.files.size();
    if (!current_entry(page))
        return false;
    const auto from = page.files.begin() + static_cast<std::ptrdiff_t>(page.current_file);
    page.current_file = clamped(page.current_file, step_of(command, count), count);
    const auto to = page.files.begin() + static_cast<std::ptrdiff_t>(page.current_file);
    if (to < from)
        std::rotate(to, from, from + 1);
    else
        std::rotate(from, from + 1, to + 1);
    return true;
}

bool remove_file(book::Page& page)
{
    if (!current_entry(page))
        return false;
    page.files.erase(page.files.begin() + static_cast<std::ptrdiff_t>(page.current_file));
    const std::uint64_t last = page.files.empty() ? 0 : page.files.size() - 1;
    page.current_file = std::min(page.current_file, last);
    return true;
}

bool remove_all_files(book::Page& page)
{
    if (page.files.empty())
        return false;
    page.files.clear();
    page.current_file = 0;
    return true;
}

bool append_files(book::Page& page, const std::vector<std::wstring>& entries)
{
    if (entries.empty())
        return false;
    page.current_file = page.files.size();
    page.files.insert(page.files.end(), entries.begin(), entries.end());
    return true;
}

bool sort_files(book::Page& page, FileOrder order)
{
    if (page.files.empty())
        return false;
    std::vector<const std::wstring*> keys;
    for (const std::wstring& entry : page.files)
        keys.push_back(&entry);
    std::vector<std::wstring> sorted;
    for (const std::uint64_t place : book::linguistic_order(keys))
        sorted.push_back(page.files[place]);
    if (order == FileOrder::descending)
        std::reverse(sorted.begin(), sorted.end());
    page.files = std::move(sorted);
    return true;
}

} // namespace app
