#include "app/drop_rules.hpp"
#include "app/save_rules.hpp"
#include "book/page_text.hpp"
#include <algorithm>

namespace app {

std::optional<std::size_t> box_at(std::span<const platform::Rect> boxes, platform::Point point)
{
    const auto holds = [point](const platform::Rect& box) { return box.contains(point); };
    const auto found = std::ranges::find_if(boxes, holds);
    if (found == boxes.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - boxes.begin());
}

std::wstring text_for_box(std::size_t box, std::wstring text)
{
    if (box == single_line_box)
        text.erase(book::first_line(text).size());
    return text;
}

} // namespace app
