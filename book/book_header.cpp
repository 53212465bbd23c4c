#include "book/book_header.hpp"
#include "book/page.hpp"
#include "platform/screen.hpp"
#include <algorithm>

namespace book {

namespace {

struct FontRule {
    int points;
    std::int32_t weight;
};

constexpr std::array<FontRule, box_count> font_rules{ { { 10, 400 }, { 12, 700 }, { 10, 400 } } };
constexpr std::uint8_t default_char_set = 1;
constexpr int points_per_inch = 72;
constexpr std::u16string_view default_face = u"メイリオ";

} // namespace

void default_box_font(std::size_t index, LogFont& font)
{
    if (index >= font_rules.size())
        return;
    const FontRule& rule = font_rules[index];
    font = LogFont{};
    font.height = -platform::mul_div(rule.points, platform::pixels_per_inch(), points_per_inch);
    font.weight = rule.weight;
    font.char_set = default_char_set;
    std::ranges::copy(default_face, font.face_name.begin());
}

BookHeader::BookHeader()
{
    for (std::size_t box = 0; box < fonts.size(); ++box)
        default_box_font(box, fonts[box]);
}

} // namespace book
