// The menu, the messages and the first decision of the replace window.
#pragma once
#include "book/replace.hpp"
#include "controls/menu_rows.hpp"
#include "core/command_ids.hpp"
#include "platform/geometry.hpp"
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace book {

inline constexpr wchar_t replace_title[] = L"文字列の置換";
inline constexpr wchar_t replace_targets_title[] = L" 検索ターゲット ";
inline constexpr wchar_t no_target_text[] = L"ターゲットを指定してください";
inline constexpr wchar_t close_replace_question[] =
    L"変更内容を保存しますか？\r\n\r\n[はい] を押すと変更内容をファイルに保存して終了します．\r\n"
    L"[いいえ] を押すと最初の状態に戻して終了します．";
// The page editor asks the same.
inline constexpr wchar_t restore_question[] = L"編集を取消して最初の状態に戻しますか？";

enum class ReplaceStep {
    nothing, // without a word
    no_target, // show no_target_text
    replace,
};
// To be decided by the texts as they were typed: a search text of U+0003 only is replaced, zero times.
ReplaceStep replace_step(const ReplaceRequest& request);

// The report of a replacement in all pages, and in the page at `position`.
std::wstring replaced_in_all_text(std::size_t count);
std::wstring replaced_in_page_text(std::size_t count, std::uint64_t position);

// `changed`: there is something to restore.
ovlib::MenuRows replace_menu(bool changed);

// Whether a text that is selected in the main window is taken over as the search text: one line, into an
// empty field.
bool takes_selection(std::wstring_view search_text, std::wstring_view selection);

// The layout of the window, in client coordinates.
inline constexpr platform::Size replace_client_size{ 340, 192 };

struct ReplaceField {
    int id = 0;
    const wchar_t* title = L"";
    platform::Point title_at;
    platform::Rect place;
};
inline constexpr std::array replace_fields{
    ReplaceField{ core::command::replace_search_text, L"検索", { 14, 9 }, { 12, 28, 328, 50 } },
    ReplaceField{ core::command::replace_new_text, L"置換", { 14, 59 }, { 12, 78, 328, 100 } },
};

struct ReplaceCheck {
    int id = 0;
    const wchar_t* text = L"";
    platform::Rect place;
    ReplaceTargets target = 0; // 0: not a target
};
inline constexpr std::array replace_checks{
    ReplaceCheck{ core::command::replace_in_boxes, L"テキスト", { 26, 128, 96, 146 }, replace_target::boxes },
    ReplaceCheck{ core::command::replace_in_file_list, L"ファイルリスト", { 108, 128, 214, 146 },
        replace_target::file_list },
    ReplaceCheck{
        core::command::replace_in_folder, L"資料フォルダ", { 226, 128, 320, 146 }, replace_target::folder },
    ReplaceCheck{ core::command::toggle_ignore_case, L"大文字・小文字を区別しない", { 26, 164, 206, 182 } },
};
// The group around the targets.
inline constexpr platform::Rect replace_targets_frame{ 12, 117, 328, 155 };

} // namespace book
