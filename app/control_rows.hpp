// The main window's buttons and check boxes as data, and its fields for typing. A control's identifier is the
// command that it sends.
#pragma once
#include "app/main_layout.hpp"
#include "core/command_ids.hpp"
#include <array>
#include <cstddef>
#include <optional>

namespace app {

namespace command = core::command;

struct ButtonRow {
    int command = 0;
    const wchar_t* text = L"";
    const wchar_t* picture = L""; // a file of the resource folder; empty for none
    Rect MainLayout::*place = nullptr;
};

// In order of creation. A window created earlier is above a later one in z-order: the page buttons come
// before the slider because they cover its ends.
inline constexpr std::array button_rows{
    ButtonRow{ command::first_page, L"", L"front.png", &MainLayout::first_page_button },
    ButtonRow{ command::previous_page, L"", L"prev.png", &MainLayout::previous_page_button },
    ButtonRow{ command::next_page, L"", L"next.png", &MainLayout::next_page_button },
    ButtonRow{ command::last_page, L"", L"back.png", &MainLayout::last_page_button },
    ButtonRow{ command::show_book_menu, L"Book", L"", &MainLayout::book_button },
    ButtonRow{ command::save_if_changed, L"保存", L"", &MainLayout::save_button },
    ButtonRow{ command::toggle_results, L"", L"loupe.png", &MainLayout::search_button },
    ButtonRow{ command::clear_search, L"", L"clear.png", &MainLayout::clear_search_button },
    ButtonRow{ command::show_folder_menu, L"資料", L"", &MainLayout::folder_button },
    ButtonRow{ command::first_file, L"", L"topfile.png", &MainLayout::first_file_button },
    ButtonRow{ command::last_file, L"", L"btmfile.png", &MainLayout::last_file_button },
};

enum class CheckWidth {
    as_placed,
    as_text, // its text is wider than its rectangle, and nothing is to its right
};

struct CheckRow {
    int command = 0;
    const wchar_t* text = L"";
    Rect MainLayout::*place = nullptr;
    CheckWidth width = CheckWidth::as_placed;
};

inline constexpr std::array check_rows{
    CheckRow{ command::toggle_mark, L"マーク", &MainLayout::mark_check },
    CheckRow{ command::toggle_mark_tracking, L"マーク追跡", &MainLayout::mark_tracking_check },
    CheckRow{ command::toggle_tab, L"タブ", &MainLayout::tab_check },
    CheckRow{ command::toggle_tab_tracking, L"タブ追跡", &MainLayout::tab_tracking_check },
    CheckRow{ command::toggle_sorted_order, L"昇順", &MainLayout::sorted_check },
    CheckRow{ command::toggle_random_order, L"ランダム", &MainLayout::random_check },
    CheckRow{ command::reverse_order, L"逆順", &MainLayout::reversed_check },
    CheckRow{ command::toggle_all_terms, L"AND検索", &MainLayout::all_terms_check },
    CheckRow{ command::toggle_ignore_case, L"大文字・小文字を区別しない", &MainLayout::ignore_case_check },
    CheckRow{ command::toggle_file_list_search, L"ファイルリストも検索", &MainLayout::file_list_search_check,
        CheckWidth::as_text },
};

// The fields for typing, in Tab order.
inline constexpr std::array typing_fields{ int{ command::box_1 }, int{ command::box_2 },
    int{ command::box_3 }, int{ command::search_box } };

// The index in that list of the field that gets the focus when the window itself received it: the field that
// had the focus last, or the next one in Tab order that can take it. nullopt if none can.
constexpr std::optional<std::size_t> field_for_keyboard(
    std::size_t last, const std::array<bool, typing_fields.size()>& can_take)
{
    for (std::size_t step = 0; step < can_take.size(); ++step) {
        const std::size_t place = (last + step) % can_take.size();
        if (can_take[place])
            return place;
    }
    return std::nullopt;
}

} // namespace app
