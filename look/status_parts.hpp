// The contents of the five parts of the status bar.
#pragma once
#include "book/book.hpp"
#include "look/shared_fonts.hpp"
#include <array>
#include <string>
#include <vector>

namespace look {

inline constexpr int status_part_count = 5;
// In pixels; -1 is the end of the bar, as SB_SETPARTS takes it.
inline constexpr std::array<int, status_part_count> status_right_edges{ 120, 330, 530, 930, -1 };

enum class StatusTone { label, value };

struct StatusRun {
    std::wstring text;
    StatusTone tone = StatusTone::value;
    SharedFont font = SharedFont::ui_8_bold;
    int top = 2; // offset from the part's top

    friend bool operator==(const StatusRun&, const StatusRun&) = default;
};

// The runs are drawn one after another, starting `left` pixels from the part's left edge.
struct StatusPart {
    int left = 3;
    std::vector<StatusRun> runs;
    bool is_path = false; // one run, shortened in its middle to the part's width

    friend bool operator==(const StatusPart&, const StatusPart&) = default;
};

inline constexpr int path_margin = 8; // a path is shortened to the part's width less this

// Empty for an index out of range and if the Book has nothing to show, such as a stamp that is too short for
// two dates.
StatusPart status_part(const book::Book& book, int index);

// "2024.01.02 03:04:05" for 20240102030405. A shorter text gets the separators that lie inside it.
std::wstring date_text(std::wstring digits);

} // namespace look
