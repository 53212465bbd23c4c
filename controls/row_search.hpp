// Searching the rows of a list that does not hold them.
#pragma once
#include <functional>
#include <string_view>

namespace ovlib {

// How the letters of a row are compared with those that are sought, ignoring case.
enum class RowMatch { beginning, whole };

bool row_matches(std::wstring_view row, std::wstring_view sought, RowMatch match);

struct RowRange {
    int count = 0; // rows 0 to count - 1
    int start = 0; // the first one asked; below 0 is 0
    bool wraps = false; // goes on from row 0 up to the start
};

// The first row for which `matches` is true; -1 for none. Asks for each row once at most.
int find_row(const RowRange& range, const std::function<bool(int row)>& matches);

} // namespace ovlib
