// When a Book is written, how the edits are committed before, and the message about a failure.
#pragma once
#include "book/page.hpp"
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace app {

// The numbers of the commands.
enum class SaveCode : int {
    always = 1004, // changed or not
    if_changed = 1006, // without a question
    ask = 1007, // before a change of page, order or view
};

enum class SaveStep {
    skip, // nothing to do
    give_up, // discard the edits: another window edits the Book, or the user does not want them
    ask, // ask the user, then write or discard
    write,
};

// `busy`: the page editor or the replace window owns the Book at present.
constexpr SaveStep save_step(SaveCode code, bool changed, bool busy)
{
    if (busy)
        return SaveStep::give_up;
    if (code == SaveCode::always)
        return SaveStep::write;
    if (!changed)
        return SaveStep::skip;
    return code == SaveCode::ask ? SaveStep::ask : SaveStep::write;
}

// What an action that leaves the page does after the attempt to commit it.
enum class Leave {
    go_on,
    drop_edits_and_go_on, // no page is current, so there is no page for the edits
    stay, // the edits could not be written, and would get into another page
};
constexpr Leave leave_decision(bool still_changed, bool has_current_page)
{
    if (!still_changed)
        return Leave::go_on;
    return has_current_page ? Leave::stay : Leave::drop_edits_and_go_on;
}

inline constexpr std::size_t single_line_box = 1; // box 2

// The text of each edited box; nullopt for a box without edits.
using BoxEdits = std::array<std::optional<std::wstring>, book::box_count>;

// Trims box 2 at both ends, cuts it at its first line break, and removes U+0003 from all texts.
void commit_edits(BoxEdits edits, book::Page& page);

inline constexpr wchar_t save_question[] = L"ページの内容が変更されています．\r\nファイルに保存しますか？";

// `attributes` are those of the file at `path`, or the value for a file that cannot be examined.
std::wstring save_failure_text(const std::wstring& path, std::uint32_t attributes);

} // namespace app
