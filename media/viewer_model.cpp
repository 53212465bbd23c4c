#include "media/viewer_model.hpp"
#include "core/command_ids.hpp"
#include <algorithm>
#include <array>
#include <cmath>

namespace media {

namespace command = core::command;
using ovlib::menu_item;
using ovlib::menu_separator;
using platform::Rect;

namespace {

// Applies to each zoom below `below`, for which no earlier row applies.
struct StepRow {
    std::int32_t below;
    std::int32_t step;
};

// The limits of the two directions differ by one, so that a zoom at a limit takes the step of the range into
// which it moves.
constexpr std::array steps_in{ StepRow{ 25, 15 }, StepRow{ 250, 25 }, StepRow{ 500, 50 } };
constexpr std::array steps_out{ StepRow{ 26, 15 }, StepRow{ 251, 25 }, StepRow{ 501, 50 } };
constexpr std::int32_t largest_step = 100;

std::int32_t step_at(std::int32_t zoom, std::span<const StepRow> rows)
{
    const auto row = std::ranges::find_if(rows, [zoom](const StepRow& known) { return zoom < known.below; });
    return row == rows.end() ? largest_step : row->step;
}

std::int32_t limited(std::int32_t zoom)
{
    return std::clamp(zoom, smallest_zoom, largest_zoom);
}

constexpr int top_strip = 50; // pixels

struct KeyRow {
    std::uint64_t key;
    ViewerKey meaning;
};

// Virtual-key codes. The signs are on the number pad, and beside the letters on any keyboard layout.
constexpr std::array key_rows{
    KeyRow{ 0x1B, ViewerKey::close }, // Esc
    KeyRow{ 0x6B, ViewerKey::zoom_in }, // number pad +
    KeyRow{ 0xBB, ViewerKey::zoom_in }, // +
    KeyRow{ 0x6D, ViewerKey::zoom_out }, // number pad -
    KeyRow{ 0xBD, ViewerKey::zoom_out }, // -
    KeyRow{ 0x60, ViewerKey::zoom_to_actual }, // number pad 0
    KeyRow{ 0x30, ViewerKey::zoom_to_actual }, // 0
    KeyRow{ 0x21, ViewerKey::previous_file }, // Page Up
    KeyRow{ 0x22, ViewerKey::next_file }, // Page Down
    KeyRow{ 0x20, ViewerKey::next_file }, // Space
    KeyRow{ 0x25, ViewerKey::left },
    KeyRow{ 0x26, ViewerKey::up },
    KeyRow{ 0x27, ViewerKey::right },
    KeyRow{ 0x28, ViewerKey::down },
};

ovlib::MenuRow mode_item(std::int32_t mode, std::wstring_view text, std::int32_t shown)
{
    ovlib::MenuRow row = menu_item(mode, text);
    row.mark = mode == shown ? ovlib::MenuMark::radio : ovlib::MenuMark::none;
    row.is_default = mode == shown;
    return row;
}

// 64 bits: the edges come from a file and may be any numbers.
std::int64_t length(int from, int to)
{
    return std::int64_t{ to } - from;
}

bool meet(const Rect& a, const Rect& b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

Rect all_screens(std::span<const Rect> screens)
{
    Rect all = screens.front();
    for (const Rect& screen : screens)
        all = { std::min(all.left, screen.left), std::min(all.top, screen.top),
            std::max(all.right, screen.right), std::max(all.bottom, screen.bottom) };
    return all;
}

} // namespace

std::int32_t effective_view_mode(std::int32_t stored)
{
    return stored == mode_actual_size ? mode_actual_size : mode_fit;
}

std::optional<ZoomStep> zoom_step_of(int control_id)
{
    switch (control_id) {
    case viewer_command::zoom_in:
        return ZoomStep::in;
    case viewer_command::zoom_out:
        return ZoomStep::out;
    case viewer_command::zoom_to_actual:
        return ZoomStep::actual;
    default:
        return std::nullopt;
    }
}

std::int32_t next_zoom(std::int32_t zoom, ZoomStep step)
{
    switch (step) {
    case ZoomStep::in:
        return limited(zoom + step_at(zoom, steps_in));
    case ZoomStep::out:
        return limited(zoom - step_at(zoom, steps_out));
    default:
        return actual_zoom;
    }
}

std::int32_t zoom_of_scale(double scale)
{
    if (!(scale > 0))
        return actual_zoom;
    return static_cast<std::int32_t>(
        std::clamp<double>(std::round(scale * 100), smallest_zoom, largest_zoom));
}

ZoomChoices zoom_choices(std::int32_t zoom)
{
    return { zoom != largest_zoom, zoom != smallest_zoom, zoom != actual_zoom };
}

bool shows_zoom_buttons(platform::Point mouse, platform::Size client)
{
    return Rect{ 0, 0, client.width, std::min(client.height, top_strip) }.contains(mouse);
}

std::wstring viewer_title(const std::wstring& name, platform::Size image, double scale)
{
    if (name.empty())
        return L"Viewer";
    if (image.width <= 0 || image.height <= 0)
        return name;
    const auto percent = static_cast<std::int64_t>(std::round(scale * 100));
    return name + L"   [ " + std::to_wstring(image.width) + L" x " + std::to_wstring(image.height) + L",  "
        + std::to_wstring(percent) + L"% ]";
}

ovlib::MenuRows viewer_menu(const ViewerMenuState& state)
{
    const std::int32_t shown = effective_view_mode(state.view_mode);
    const bool has_entries = state.entry_count != 0;
    const bool is_first = state.selected == 0;
    const bool is_last = state.selected + 1 == state.entry_count;
    return { mode_item(mode_actual_size, L"実寸大", shown),
        mode_item(mode_fit, L"サイズをウィンドウに合わせる", shown), menu_separator(),
        menu_item(command::first_file, L"先頭ファイル", has_entries && !is_first),
        menu_item(command::last_file, L"末尾ファイル", has_entries && !is_last),
        menu_item(command::duplicate_file, L"ファイルを複製", state.is_entry_file), menu_separator(),
        menu_item(viewer_command::close_viewer, L"Viewer を閉じる") };
}

ViewerKey viewer_key(std::uint64_t key)
{
    const auto* const row = std::ranges::find(key_rows, key, &KeyRow::key);
    return row == key_rows.end() ? ViewerKey::none : row->meaning;
}

std::int64_t viewer_hit(std::int64_t system_answer, std::int32_t view_mode, bool can_be_moved)
{
    const bool moves = effective_view_mode(view_mode) == mode_fit && can_be_moved;
    return moves && system_answer == hit_client ? hit_caption : system_answer;
}

bool is_on_screen(const Rect& window, std::span<const Rect> screens)
{
    return std::ranges::any_of(screens, [&](const Rect& screen) { return meet(window, screen); });
}

// A larger window would need a bitmap that no memory can hold.
std::optional<Rect> first_viewer_place(const Rect& stored, std::span<const Rect> screens)
{
    if (stored.left >= stored.right || stored.top >= stored.bottom || !is_on_screen(stored, screens))
        return std::nullopt;
    const Rect all = all_screens(screens);
    Rect place = stored;
    if (length(place.left, place.right) > length(all.left, all.right)) {
        place.left = all.left;
        place.right = all.right;
    }
    if (length(place.top, place.bottom) > length(all.top, all.bottom)) {
        place.top = all.top;
        place.bottom = all.bottom;
    }
    return is_on_screen(place, screens) ? std::optional{ place } : std::nullopt;
}

} // namespace media
