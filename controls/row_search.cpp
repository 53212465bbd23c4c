#include "controls/row_search.hpp"
#include "platform/text.hpp"
#include <algorithm>

namespace ovlib {

bool row_matches(std::wstring_view row, std::wstring_view sought, RowMatch match)
{
    if (match == RowMatch::beginning)
        row = row.substr(0, sought.size());
    return platform::same_text_ignoring_case(row, sought);
}

int find_row(const RowRange& range, const std::function<bool(int row)>& matches)
{
    const int start = std::max(range.start, 0);
    for (int row = start; row < range.count; ++row) {
        if (matches(row))
            return row;
    }
    const int end = range.wraps ? std::min(start, range.count) : 0;
    for (int row = 0; row < end; ++row) {
        if (matches(row))
            return row;
    }
    return -1;
}

} // namespace ovlib
