#include "look/shared_fonts.hpp"
#include "platform/screen.hpp"
#include <algorithm>
#include <string_view>

namespace look {

namespace {

struct FontSpec {
    std::u16string_view face;
    int points;
    std::int32_t weight;
};

constexpr std::u16string_view arial = u"Arial";
constexpr std::u16string_view japanese = u"メイリオ";
constexpr std::u16string_view interface_face = u"Meiryo UI";
constexpr std::int32_t normal = 400;
constexpr std::int32_t bold = 700;

// In the order of SharedFont.
constexpr std::array<FontSpec, shared_font_count> specs{ {
    { arial, 8, normal },
    { arial, 9, normal },
    { japanese, 7, bold },
    { japanese, 8, normal },
    { japanese, 8, bold },
    { interface_face, 8, normal },
    { interface_face, 8, bold },
    { japanese, 9, normal },
    { japanese, 9, bold },
    { interface_face, 9, normal },
    { interface_face, 9, bold },
    { japanese, 10, normal },
    { japanese, 10, bold },
    { interface_face, 10, normal },
    { interface_face, 10, bold },
    { interface_face, 11, bold },
    { interface_face, 12, bold },
    { interface_face, 14, bold },
} };

} // namespace

book::LogFont shared_font_record(SharedFont font, int pixels_per_inch)
{
    constexpr int points_per_inch = 72;
    constexpr std::uint8_t default_char_set = 1;
    const FontSpec& spec = specs[static_cast<std::size_t>(font)];
    book::LogFont record;
    record.height = -platform::mul_div(spec.points, pixels_per_inch, points_per_inch);
    record.weight = spec.weight;
    record.char_set = default_char_set;
    std::copy(spec.face.begin(), spec.face.end(), record.face_name.begin());
    return record;
}

} // namespace look
