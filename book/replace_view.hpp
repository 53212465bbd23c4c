// The menu, the messages and the first decision of the replace window.
#pragma once
#include "book/replace.hpp"
#include "controls/menu_rows.hpp"
#include <cstddef>
#include <cstdint>
#include <string>

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

} // namespace book
