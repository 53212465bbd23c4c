#include "look/settings_view.hpp"
#include "book/page_text.hpp"
#include "platform/file.hpp"
#include "platform/text.hpp"
#include <algorithm>
#include <vector>

namespace look {

namespace {

using platform::Rect;

constexpr int left_column = 20;
constexpr int right_column = 220;
constexpr int check_width = 170;
constexpr int check_height = 20;
constexpr int combo_width = 160;
constexpr int combo_height = 24;

constexpr Rect check_at(int left, int top)
{
    return { left, top, left + check_width, top + check_height };
}
constexpr Rect combo_at(int left, int top)
{
    return { left, top, left + combo_width, top + combo_height };
}

// More than any address needs.
constexpr std::size_t longest_file = 4096;

std::string first_bytes(const std::wstring& path)
{
    platform::File file = platform::File::open_read(path);
    std::string bytes(longest_file, '\0');
    std::size_t length = 0;
    while (file.is_open() && length < bytes.size()) {
        const std::size_t count = file.read(std::as_writable_bytes(std::span{ bytes }).subspan(length));
        if (count == 0)
            break;
        length += count;
    }
    bytes.resize(length);
    return bytes;
}

std::wstring from_utf16(std::string_view bytes)
{
    std::wstring text;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto low = static_cast<unsigned char>(bytes[at]);
        const auto high = static_cast<unsigned char>(bytes[at + 1]);
        text += static_cast<wchar_t>(low | high << 8);
    }
    return text;
}

// An address contains ASCII characters, so half of its bytes are zero in UTF-16 and none in UTF-8.
std::wstring decoded(std::string_view bytes)
{
    const bool is_wide = bytes.starts_with("\xFF\xFE") || bytes.find('\0') != std::string_view::npos;
    return is_wide ? from_utf16(bytes) : platform::from_utf8(bytes);
}

} // namespace

SettingsChoice current_settings(const book::BookHeader& header, const core::Settings& settings)
{
    return {
        .gif_autoplay = header.gif_autoplay != 0,
        .file_search = header.auto_file_search != 0,
        .wrap_text = header.wrap_text != 0,
        .auto_imm = settings.auto_imm,
        .auto_backup = settings.auto_backup,
        .clear_cache = settings.clear_cache_at_exit,
        .sort_key = clamped_value(sort_items(), header.sort_key),
        .tab_label_box = clamped_value(tab_items(), header.tab_label_box),
    };
}

std::span<const SettingItem> sort_items()
{
    using book::SortKey;
    static constexpr std::array items{
        SettingItem{ box_names[0], static_cast<std::int32_t>(SortKey::box1) },
        SettingItem{ box_names[1], static_cast<std::int32_t>(SortKey::box2) },
        SettingItem{ box_names[2], static_cast<std::int32_t>(SortKey::box3) },
        SettingItem{ L"作成日時", static_cast<std::int32_t>(SortKey::created) },
        SettingItem{ L"更新日時", static_cast<std::int32_t>(SortKey::modified) },
        SettingItem{ L"データサイズ", static_cast<std::int32_t>(SortKey::size) },
    };
    return items;
}

std::span<const SettingItem> tab_items()
{
    static constexpr std::array items{
        SettingItem{ box_names[0], book::first_tab_label_box },
        SettingItem{ box_names[1], book::first_tab_label_box + 1 },
        SettingItem{ box_names[2], book::first_tab_label_box + 2 },
    };
    return items;
}

std::int32_t clamped_value(std::span<const SettingItem> items, std::int64_t value)
{
    const std::int64_t first = items.front().value;
    const std::int64_t last = items.back().value;
    return static_cast<std::int32_t>(std::clamp(value, first, last));
}

SettingsLayout settings_layout()
{
    constexpr int strip_top = settings_client_size.height - 60;
    return {
        .book_frame = { 10, 12, 208, 88 },
        .gif_check = check_at(left_column, 20),
        .search_check = check_at(left_column, 42),
        .wrap_check = check_at(left_column, 64),
        .ime_check = check_at(right_column, 20),
        .backup_check = check_at(right_column, 42),
        .cache_check = check_at(right_column, 64),
        .sort_label = { left_column, 92 },
        .tab_label = { right_column, 92 },
        .sort_combo = combo_at(left_column, 113),
        .tab_combo = combo_at(right_column, 113),
        .strip = { 0, strip_top, settings_client_size.width, settings_client_size.height },
        .mail = { left_column, strip_top + 22, 370, strip_top + 40 },
        .ok_button = { 380, strip_top + 19, 460, strip_top + 43 },
    };
}

std::array<StripPart, 3> strip_parts(const Rect& strip, Color back)
{
    constexpr int line = 2;
    const Rect dark{ strip.left, strip.top, strip.right, strip.top + line };
    const Rect light{ strip.left, dark.bottom, strip.right, dark.bottom + line };
    return { StripPart{ strip, back.shade(-20) }, StripPart{ dark, back.shade(-50) },
        StripPart{ light, back.shade(100) } };
}

std::wstring read_mail_address(const std::wstring& path)
{
    std::wstring text = decoded(first_bytes(path));
    if (text.starts_with(book::byte_order_mark))
        text.erase(0, 1);
    text.resize(std::min(text.size(), text.find_first_of(L"\r\n")));
    book::trim_text(text, book::TrimMode::both);
    return text;
}

} // namespace look
