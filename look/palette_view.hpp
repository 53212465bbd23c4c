// The window for the colours and fonts of the boxes and for the theme: its texts, layout and subject.
#pragma once
#include "book/book.hpp"
#include "controls/menu_rows.hpp"
#include "look/shared_fonts.hpp"
#include "platform/geometry.hpp"
#include <array>
#include <cstddef>
#include <cstdint>

namespace look {

inline constexpr wchar_t palette_title[] = L"色 / フォントの設定";
inline constexpr wchar_t palette_label[] = L"適用する項目";
inline constexpr wchar_t theme_question[] = L"全てのページにテーマが適用されます．\r\n実行しますか？";
inline constexpr std::array<const wchar_t*, book::box_count> box_names{ L"テキストボックス1",
    L"テキストボックス2", L"テキストボックス3" };

// Of the whole window with its frame.
inline constexpr platform::Size palette_size{ 250, 195 };
// From the cursor to the upper left corner.
inline constexpr platform::Point palette_offset{ -125, -97 };

// In client coordinates.
struct PaletteLayout {
    platform::Rect box_combo;
    platform::Rect font_button, text_button, back_button;
    platform::Rect theme_button;
    platform::Rect apply_check; // its width comes from its text
    platform::Rect close_button;
};
PaletteLayout palette_layout();

// What is drawn around the controls of a box. Depends on the real rectangle of the combo box, whose height
// comes from its font.
struct PaletteGroup {
    platform::Rect frame;
    platform::Point label;
};
PaletteGroup palette_group(const platform::Rect& box_combo);
// The font of the label: the usual one unless the label is too wide for its place in it.
SharedFont palette_label_font(int usual_width);

// The box of the control that asked for the window; the first one for any other sender.
std::size_t palette_box(int sender_id);

// The six themes, with this one marked.
ovlib::MenuRows theme_menu(std::int32_t current_theme);

enum class BoxColor { text, back };
std::uint32_t& color_of(book::Page& page, BoxColor which, std::size_t box);

// The page that a dialog is about. Another page may be shown when the user answers.
struct PaletteSubject {
    std::size_t index = book::npos;
    std::uint64_t revision = 0; // of the Book

    friend bool operator==(const PaletteSubject&, const PaletteSubject&) = default;
};
PaletteSubject palette_subject(const book::Book& book);

} // namespace look
