// What the five parts of the status bar say.
#pragma once
#include "book/book.hpp"
#include "look/shared_fonts.hpp"
#include <array>
#include <string>
#include <vector>

namespace look {

inline constexpr int status_part_count = 5;
// -1: up to the end of the bar.
inline constexpr std::array<int, status_part_count> status_right_edges{ 120, 330, 530, 930, -1 };

enum class StatusTone { label, value };

struct StatusRun {
    std::wstring text;
    StatusTone tone = StatusTone::value;
    SharedFont font = SharedFont::ui_8_bold;
    int top = 2; // below the part's top

    friend bool operator==(const StatusRun&, const StatusRun&) = default;
};

// Runs follow one another from `left` on, counted from the part's left edge.
struct StatusPart {
    int left = 3;
    std::vector<StatusRun> runs;
    bool is_path = false; // one run, shortened in its middle to the part's width

    friend bool operator==(const StatusPart&, const StatusPart&) = default;
};

inline constexpr int path_margin = 8; // what a path leaves free of its part's width

// Empty for an index out of range and where the Book has nothing to show, such as a stamp without two whole
// dates.
StatusPart status_part(const book::Book& book, int index);

// "2024.01.02 03:04:05" of 20240102030405. A shorter text gets the separators it has room for.
std::wstring date_text(std::wstring digits);

} // namespace look
