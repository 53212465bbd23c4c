#include "tools/bok/inspect.hpp"
#include <algorithm>
#include <array>
#include <cstdlib>

namespace bok {

namespace {

using book::BookHeader;

// A larger font fits on no screen.
constexpr std::int64_t greatest_font_height = 2000;
constexpr std::int64_t greatest_font_weight = 1000;
constexpr std::int64_t window_height = 854;

struct RangeRule {
    const char* name;
    std::int64_t (*value)(const BookHeader&);
    std::int64_t least;
    std::int64_t most;
};

constexpr std::array range_rules{
    RangeRule{ "wrap_text", [](const BookHeader& h) -> std::int64_t { return h.wrap_text; }, 0, 1 },
    RangeRule{ "track_tabs", [](const BookHeader& h) -> std::int64_t { return h.track_tabs; }, 0, 1 },
    RangeRule{ "track_marks", [](const BookHeader& h) -> std::int64_t { return h.track_marks; }, 0, 1 },
    RangeRule{
        "auto_file_search", [](const BookHeader& h) -> std::int64_t { return h.auto_file_search; }, 0, 1 },
    RangeRule{ "gif_autoplay", [](const BookHeader& h) -> std::int64_t { return h.gif_autoplay; }, 0, 1 },
    RangeRule{ "the magnitude of order_mode", book::order_magnitude, 2700, 2702 },
    RangeRule{ "sort_key", [](const BookHeader& h) -> std::int64_t { return h.sort_key; }, 3000, 3005 },
    RangeRule{
        "tab_label_box", [](const BookHeader& h) -> std::int64_t { return h.tab_label_box; }, 4000, 4002 },
    RangeRule{ "divider", [](const BookHeader& h) -> std::int64_t { return h.divider; }, 0, window_height },
    RangeRule{ "theme", [](const BookHeader& h) -> std::int64_t { return h.theme; }, 6000, 6006 },
};

std::string out_of_range(const std::string& name, std::int64_t value, std::int64_t least, std::int64_t most)
{
    return name + " is " + std::to_string(value) + ", outside " + std::to_string(least) + " to "
        + std::to_string(most);
}

void inspect_font(
    const book::LogFont& font, const std::string& name, const std::function<void(const std::string&)>& report)
{
    if (const std::int64_t height = font.height; std::abs(height) > greatest_font_height)
        report(out_of_range(name + ".height", height, -greatest_font_height, greatest_font_height));
    if (font.weight < 0 || font.weight > greatest_font_weight)
        report(out_of_range(name + ".weight", font.weight, 0, greatest_font_weight));
    if (std::ranges::find(font.face_name, u'\0') == font.face_name.end())
        report(name + ".face has no terminating zero");
}

} // namespace

void inspect_header(
    const BookHeader& header, std::uint64_t pages, const std::function<void(const std::string&)>& report)
{
    if (pages > 0 && header.position >= pages)
        report("position is " + std::to_string(header.position)
            + ", past the last page: no page is shown at first");
    for (const RangeRule& rule : range_rules) {
        const std::int64_t value = rule.value(header);
        if (value < rule.least || value > rule.most)
            report(out_of_range(rule.name, value, rule.least, rule.most));
    }
    for (std::size_t i = 0; i < header.fonts.size(); ++i)
        inspect_font(header.fonts[i], "fonts[" + std::to_string(i) + "]", report);
}

} // namespace bok
