#include "look/palette_view.hpp"
#include "core/command_ids.hpp"
#include "look/theme.hpp"

namespace look {

namespace {

using platform::Rect;

constexpr int button_width = 60;
constexpr int button_height = 22;
constexpr int usual_label_room = 68;

constexpr Rect button_at(int left, int top, int width = button_width)
{
    return { left, top, left + width, top + button_height };
}

} // namespace

PaletteLayout palette_layout()
{
    return {
        .box_combo = { 84, 22, 208, 46 },
        .font_button = button_at(20, 56),
        .text_button = button_at(90, 56),
        .back_button = button_at(160, 56),
        .theme_button = button_at(12, 112, 90),
        .apply_check = { 12, 142, 162, 160 },
        .close_button = button_at(172, 140),
    };
}

PaletteGroup palette_group(const Rect& box_combo)
{
    return {
        .frame = { box_combo.left - 76, box_combo.top - 6, box_combo.right + 30, box_combo.bottom + 58 },
        .label = { box_combo.left - 70, box_combo.top + 4 },
    };
}

SharedFont palette_label_font(int usual_width)
{
    return usual_width > usual_label_room ? SharedFont::ui_8 : SharedFont::ui_9;
}

std::size_t palette_box(int sender_id)
{
    const bool is_box = sender_id >= core::command::box_1 && sender_id <= core::command::box_3;
    return is_box ? static_cast<std::size_t>(sender_id - core::command::box_1) : 0;
}

ovlib::MenuRows theme_menu(std::int32_t current_theme)
{
    return ovlib::radio_items(theme_standard,
        { L"スタンダード", L"セピア", L"ダーク", L"パステル ピンク", L"パステル グリーン",
            L"パステル ブルー" },
        current_theme);
}

std::uint32_t& color_of(book::Page& page, BoxColor which, std::size_t box)
{
    return which == BoxColor::text ? page.text_color[box] : page.back_color[box];
}

PaletteSubject palette_subject(const book::Book& book)
{
    return { book.current_index(), book.revision };
}

} // namespace look
