// The settings window: its texts, items and layout, and the choice that it shows and returns.
#pragma once
#include "book/book_header.hpp"
#include "core/settings.hpp"
#include "look/palette_view.hpp"
#include "look/theme.hpp"
#include "platform/geometry.hpp"
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace look {

inline constexpr wchar_t settings_title[] = L"設定";
inline constexpr wchar_t sort_label[] = L"ページのソート条件";
inline constexpr wchar_t tab_label[] = L"タブ文字列の取得先";
inline constexpr wchar_t mail_label[] = L"mail: ";

// The identifiers of the controls.
enum SettingId : int {
    setting_file_search = 2549,
    setting_gif_autoplay = 2550,
    setting_auto_backup = 2551,
    setting_auto_imm = 2552,
    setting_wrap_text = 2553,
    setting_clear_cache = 2554,
    setting_sort_key = 3007,
    setting_tab_label_box = 4004,
};

// Everything that the user sets in the window.
struct SettingsChoice {
    bool gif_autoplay = false;
    bool file_search = false;
    bool wrap_text = false;
    bool auto_imm = false;
    bool auto_backup = false;
    bool clear_cache = false;
    std::int32_t sort_key = 0;
    std::int32_t tab_label_box = 0;

    friend bool operator==(const SettingsChoice&, const SettingsChoice&) = default;
};
// The two numbers are clamped to their items.
SettingsChoice current_settings(const book::BookHeader& header, const core::Settings& settings);

// An item of one of the combo boxes. The items of a box have consecutive values.
struct SettingItem {
    const wchar_t* text;
    std::int32_t value;
};
std::span<const SettingItem> sort_items();
std::span<const SettingItem> tab_items();
// The nearest value of an item.
std::int32_t clamped_value(std::span<const SettingItem> items, std::int64_t value);

// In client coordinates. The widths of the checks come from their texts.
inline constexpr platform::Size settings_client_size{ 480, 210 };
struct SettingsLayout {
    platform::Rect book_frame; // around the checks of the Book
    platform::Rect gif_check, search_check, wrap_check;
    platform::Rect ime_check, backup_check, cache_check;
    platform::Point sort_label, tab_label;
    platform::Rect sort_combo, tab_combo;
    platform::Rect strip; // at the lower edge, with the link and the button
    platform::Rect mail; // the line of the mail label and the link, as far as the link may reach
    platform::Rect ok_button;
};
SettingsLayout settings_layout();

// The strip and the groove at its upper edge.
struct StripPart {
    platform::Rect area;
    Color color;
};
std::array<StripPart, 3> strip_parts(const platform::Rect& strip, Color back);

// The first line of a text file, without white space at its ends: UTF-16 or UTF-8, with or without a byte
// order mark. Empty if there is no such file.
std::wstring read_mail_address(const std::wstring& path);

} // namespace look
