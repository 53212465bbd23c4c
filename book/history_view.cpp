#include "book/history_view.hpp"
#include "core/command_ids.hpp"
#include "platform/path_text.hpp"
#include <algorithm>

namespace book {

namespace {

constexpr int above_cursor = 64;

} // namespace

HistoryRow history_row(std::wstring_view path)
{
    const std::wstring_view name = platform::file_name(path);
    return { std::wstring{ name }, name.size() == path.size() ? L"" : platform::parent_path(path) };
}

std::wstring history_title(std::size_t count)
{
    return L"履歴  [" + std::to_wstring(count) + L"件]";
}

std::optional<int> history_command(int row)
{
    constexpr int count = core::command::last_history_entry - core::command::first_history_entry + 1;
    if (row < 0 || row >= count)
        return std::nullopt;
    return core::command::first_history_entry + row;
}

ovlib::Color history_text_color(ovlib::Color text, ovlib::Color back, bool enabled)
{
    if (enabled)
        return text;
    return ovlib::Color{ back.is_bright() ? 0xBFBFBFu : 0x3F3F3Fu };
}

platform::Rect history_list_rect(platform::Size client)
{
    return { history_margin, history_margin, std::max(client.width - history_margin, history_margin),
        std::max(client.height - history_margin, history_margin) };
}

platform::Point history_corner(platform::Point cursor, int width)
{
    return { cursor.x - width / 2, cursor.y - above_cursor };
}

} // namespace book
