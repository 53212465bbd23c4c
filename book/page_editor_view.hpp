// What the page editor's window shows: texts, states of its controls, the menu and its questions.
#pragma once
#include "book/page_editor.hpp"
#include "controls/menu_rows.hpp"
#include "core/command_ids.hpp"
#include "platform/geometry.hpp"
#include <array>
#include <cstddef>
#include <string>

namespace book {

inline constexpr wchar_t page_editor_title[] = L"ブックエディタ";
inline constexpr wchar_t select_range_label[] = L"範囲を選択";
inline constexpr wchar_t reset_range_label[] = L"範囲のリセット";
inline constexpr wchar_t trace_selection_label[] = L"選択したページを追跡";
inline constexpr wchar_t page_edit_failure[] = L"編集に失敗しました";
inline constexpr wchar_t close_page_editor_question[] =
    L"変更内容をファイルに保存しますか？\r\n\r\n[はい] を押すと変更内容をファイルに保存して終了します．\r\n"
    L"[いいえ] を押すと編集前の状態に戻して終了します．";

std::wstring paste_question(const PasteRequest& request);
std::wstring delete_question(const DeleteRequest& request);

// A button that shows an end of the range and goes there.
struct RangeButton {
    std::wstring text; // the page's number
    PageSelection selected = PageSelection::none; // of that page, for its colour
    bool is_visible = true;

    friend bool operator==(const RangeButton&, const RangeButton&) = default;
};
struct PageEditorView {
    std::wstring title;
    std::wstring page_label; // of the check box of the current page
    bool is_page_selected = false;
    bool is_range_selected = false;
    RangeButton first;
    RangeButton last; // hidden if the range is one page

    friend bool operator==(const PageEditorView&, const PageEditorView&) = default;
};
PageEditorView page_editor_view(const PageEditor& editor, const Book& book);

// What the menu's rules look at.
struct PageMenuState {
    bool has_selection = false;
    ClipMode clip_mode = ClipMode::none;
    bool has_changed = false;
};
inline PageMenuState page_menu_state(const PageEditor& editor)
{
    return { editor.selected_count() != 0, editor.clip_mode(), editor.has_changed() };
}

struct PageMenuRow {
    int command = 0;
    const wchar_t* text = L"";
    bool (*is_enabled)(const PageMenuState&) = nullptr;
    bool ends_group = false; // a separator follows
};

namespace page_menu_rule {

constexpr bool selection(const PageMenuState& state)
{
    return state.has_selection;
}
constexpr bool copy(const PageMenuState& state)
{
    return state.has_selection && state.clip_mode != ClipMode::copy;
}
constexpr bool cut(const PageMenuState& state)
{
    return state.has_selection && state.clip_mode != ClipMode::cut;
}
constexpr bool paste(const PageMenuState& state)
{
    return state.has_selection && state.clip_mode != ClipMode::none;
}
constexpr bool change(const PageMenuState& state)
{
    return state.has_changed;
}

} // namespace page_menu_rule

// The last row is grey too until something has changed; the close box always works.
inline constexpr std::array page_menu_rows{
    PageMenuRow{ core::command::copy_pages, L"コピー", page_menu_rule::copy },
    PageMenuRow{ core::command::cut_pages, L"切取り", page_menu_rule::cut },
    PageMenuRow{ core::command::delete_pages, L"削除", page_menu_rule::selection, true },
    PageMenuRow{ core::command::paste_pages_at_end, L"貼付け (末尾)", page_menu_rule::paste },
    PageMenuRow{ core::command::paste_pages, L"貼付け (現在の位置)", page_menu_rule::paste, true },
    PageMenuRow{ core::command::clear_selection, L"選択の取消し", page_menu_rule::selection },
    PageMenuRow{ core::command::restore_book, L"編集の取消し(復元)", page_menu_rule::change, true },
    PageMenuRow{ core::command::close_window, L"終了", page_menu_rule::change },
};

// Whether a command may be run, from the menu or by its key. Commands that are not in the menu always may.
constexpr bool may_run_page_command(int command, const PageMenuState& state)
{
    for (const PageMenuRow& row : page_menu_rows)
        if (row.command == command)
            return row.is_enabled(state);
    return true;
}

ovlib::MenuRows page_editor_menu(const PageMenuState& state);

// The layout of the window, in client coordinates. The check box of the current page is wide enough for the
// last page of the largest Book, so that it keeps its size while pages are turned.
inline constexpr platform::Size page_editor_client_size{ 400, 180 };

namespace page_editor_place {

using platform::Rect;

inline constexpr Rect select_page{ 15, 14, 114, 32 };
inline constexpr Rect first_page{ 283, 12, 307, 34 };
inline constexpr Rect previous_page{ 309, 12, 333, 34 };
inline constexpr Rect next_page{ 335, 12, 359, 34 };
inline constexpr Rect last_page{ 361, 12, 385, 34 };
inline constexpr Rect select_range{ 15, 48, 95, 66 };
inline constexpr Rect reset_range{ 285, 46, 385, 68 };
inline constexpr Rect range_start{ 15, 84, 85, 106 };
inline constexpr Rect range_end{ 315, 84, 385, 106 };
inline constexpr Rect strip{ 15, 114, 385, 130 };
inline constexpr Rect trace_selection{ 15, 146, 155, 164 };

} // namespace page_editor_place

// The keys that work wherever the focus is in the window.
enum class PageKey { left, right, home, end, space, del, c, v, x };
// The command of a key; 0 for none. `is_ctrl_down` is needed for the letters and excludes the others.
int page_key_command(PageKey key, bool is_ctrl_down);

} // namespace book
