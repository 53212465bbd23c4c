// The settings record: its defaults, its bytes and its line of digits.
#include "book/book_header.hpp"
#include "book/header_text.hpp"
#include "book/page.hpp"
#include "platform/screen.hpp"
#include <bit>
#include <gtest/gtest.h>
#include <limits>

namespace {

using book::BookHeader;
using book::LogFont;

constexpr std::size_t digit_count = 2 * sizeof(BookHeader);

std::wstring wide_text(const BookHeader& header)
{
    const std::string text = book::header_text(header);
    return { text.begin(), text.end() };
}

std::string face_of(const LogFont& font)
{
    std::string units;
    for (const char16_t unit : font.face_name)
        units += unit ? std::to_string(static_cast<unsigned>(unit)) + " " : "";
    return units;
}

TEST(BookHeaderDefaults, AreThoseOfANewBook)
{
    const BookHeader header;
    EXPECT_EQ(header.version, 106u);
    EXPECT_EQ(header.position, 0u);
    EXPECT_EQ(header.seed, 0u);
    EXPECT_EQ(header.wrap_text, 0);
    EXPECT_EQ(header.track_tabs, 0);
    EXPECT_EQ(header.track_marks, 0);
    EXPECT_EQ(header.auto_file_search, 1);
    EXPECT_EQ(header.gif_autoplay, 0);
    EXPECT_EQ(header.order_mode, 2700);
    EXPECT_EQ(header.sort_key, 3000);
    EXPECT_EQ(header.tab_label_box, 4000);
    EXPECT_EQ(header.divider, 0);
    EXPECT_EQ(header.theme, 6000);
}

TEST(BookHeaderDefaults, HaveZerosInReservedMembers)
{
    const BookHeader header;
    EXPECT_EQ(header.reserved_0, 0u);
    EXPECT_EQ(header.reserved_1, (std::array<std::uint8_t, 3>{}));
    EXPECT_EQ(header.reserved_2, 0u);
}

TEST(BookHeaderDefaults, GiveEveryBoxItsFont)
{
    const BookHeader header;
    const int inch = platform::pixels_per_inch();
    const std::array<int, 3> points{ 10, 12, 10 };
    const std::array<int, 3> weights{ 400, 700, 400 };
    for (std::size_t box = 0; box < book::box_count; ++box) {
        LogFont expected;
        expected.height = -platform::mul_div(points[box], inch, 72);
        expected.weight = weights[box];
        expected.char_set = 1;
        const std::u16string face = u"メイリオ";
        std::copy(face.begin(), face.end(), expected.face_name.begin());
        EXPECT_EQ(header.fonts[box], expected) << box << ' ' << face_of(header.fonts[box]);
    }
}

TEST(BookHeaderDefaults, MeasureFontsInPixels)
{
    if (platform::pixels_per_inch() != 96)
        GTEST_SKIP() << "another resolution";
    const BookHeader header;
    EXPECT_EQ(header.fonts[0].height, -13);
    EXPECT_EQ(header.fonts[1].height, -16);
    EXPECT_EQ(header.fonts[2].height, -13);
}

TEST(DefaultBoxFont, ReplacesTheWholeRecord)
{
    LogFont font;
    font.italic = 1;
    font.width = 9;
    font.face_name.fill(u'x');
    book::default_box_font(1, font);
    EXPECT_EQ(font, BookHeader().fonts[1]);
}

TEST(DefaultBoxFont, LeavesTheRecordForAnIndexOfThreeOrMore)
{
    LogFont font;
    font.height = 5;
    const LogFont before = font;
    for (const std::size_t index : { std::size_t{ 3 }, std::size_t{ 4 }, static_cast<std::size_t>(-1) }) {
        book::default_box_font(index, font);
        EXPECT_EQ(font, before);
    }
}

TEST(MulDiv, RoundsHalfAwayFromZero)
{
    EXPECT_EQ(platform::mul_div(10, 96, 72), 13);
    EXPECT_EQ(platform::mul_div(12, 96, 72), 16);
    EXPECT_EQ(platform::mul_div(3, 1, 2), 2);
    EXPECT_EQ(platform::mul_div(-3, 1, 2), -2);
    EXPECT_EQ(platform::mul_div(3, 1, -2), -2);
    EXPECT_EQ(platform::mul_div(-3, 1, -2), 2);
    EXPECT_EQ(platform::mul_div(1, 1, 3), 0);
}

TEST(MulDiv, KeepsTheWholeProductAndReportsFailures)
{
    constexpr int greatest = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    EXPECT_EQ(platform::mul_div(greatest, greatest, greatest), greatest);
    EXPECT_EQ(platform::mul_div(1, 1, 0), -1);
    EXPECT_EQ(platform::mul_div(greatest, 2, 1), -1);
    EXPECT_EQ(platform::mul_div(least, least, 1), -1);
    EXPECT_EQ(platform::mul_div(least, 1, 1), least);
}

// Offset and bytes of each member, one row per line of the record's table.
struct MemberCase {
    const char* name;
    std::size_t offset;
    std::string digits;
    void (*set)(BookHeader&);
};

class HeaderMember : public testing::TestWithParam<MemberCase> { };

TEST_P(HeaderMember, IsAtItsOffset)
{
    BookHeader header;
    std::string expected = book::header_text(header);
    expected.replace(2 * GetParam().offset, GetParam().digits.size(), GetParam().digits);
    GetParam().set(header);
    EXPECT_EQ(book::header_text(header), expected);
    const std::wstring wide(expected.begin(), expected.end());
    EXPECT_EQ(book::header_from_text(wide), header);
}

INSTANTIATE_TEST_SUITE_P(BookHeader, HeaderMember,
    testing::Values( //
        MemberCase{ "version", 0, "01020304", [](BookHeader& h) { h.version = 0x04030201; } },
        MemberCase{ "reserved_0", 4, "0a0b0c0d", [](BookHeader& h) { h.reserved_0 = 0x0d0c0b0a; } },
        MemberCase{
            "position", 8, "0102030405060708", [](BookHeader& h) { h.position = 0x0807060504030201; } },
        MemberCase{ "seed", 16, "fffefdfc", [](BookHeader& h) { h.seed = 0xfcfdfeff; } },
        MemberCase{ "wrap_text", 20, "11", [](BookHeader& h) { h.wrap_text = 0x11; } },
        MemberCase{ "track_tabs", 21, "12", [](BookHeader& h) { h.track_tabs = 0x12; } },
        MemberCase{ "track_marks", 22, "13", [](BookHeader& h) { h.track_marks = 0x13; } },
        MemberCase{ "auto_file_search", 23, "14", [](BookHeader& h) { h.auto_file_search = 0x14; } },
        MemberCase{ "gif_autoplay", 24, "15", [](BookHeader& h) { h.gif_autoplay = 0x15; } },
        MemberCase{ "reserved_1", 25, "161718",
            [](BookHeader& h) {
                h.reserved_1 = { 0x16, 0x17, 0x18 };
            } },
        MemberCase{ "order_mode", 28, "73f5ffff", [](BookHeader& h) { h.order_mode = -2701; } },
        MemberCase{ "sort_key", 32, "bd0b0000", [](BookHeader& h) { h.sort_key = 3005; } },
        MemberCase{ "tab_label_box", 36, "a20f0000", [](BookHeader& h) { h.tab_label_box = 4002; } },
        MemberCase{ "divider", 40, "feffffff", [](BookHeader& h) { h.divider = -2; } },
        MemberCase{ "theme", 44, "75170000", [](BookHeader& h) { h.theme = 6005; } },
        MemberCase{ "first_font", 48, "21222324", [](BookHeader& h) { h.fonts[0].height = 0x24232221; } },
        MemberCase{ "second_font", 140, "31323334", [](BookHeader& h) { h.fonts[1].height = 0x34333231; } },
        MemberCase{ "third_font", 232, "41424344", [](BookHeader& h) { h.fonts[2].height = 0x44434241; } },
        MemberCase{ "font_width", 52, "01000000", [](BookHeader& h) { h.fonts[0].width = 1; } },
        MemberCase{ "font_escapement", 56, "02000000", [](BookHeader& h) { h.fonts[0].escapement = 2; } },
        MemberCase{ "font_orientation", 60, "03000000", [](BookHeader& h) { h.fonts[0].orientation = 3; } },
        MemberCase{ "font_weight", 64, "04000000", [](BookHeader& h) { h.fonts[0].weight = 4; } },
        MemberCase{ "font_italic", 68, "05", [](BookHeader& h) { h.fonts[0].italic = 5; } },
        MemberCase{ "font_underline", 69, "06", [](BookHeader& h) { h.fonts[0].underline = 6; } },
        MemberCase{ "font_strike_out", 70, "07", [](BookHeader& h) { h.fonts[0].strike_out = 7; } },
        MemberCase{ "font_char_set", 71, "80", [](BookHeader& h) { h.fonts[0].char_set = 0x80; } },
        MemberCase{ "font_out_precision", 72, "08", [](BookHeader& h) { h.fonts[0].out_precision = 8; } },
        MemberCase{ "font_clip_precision", 73, "09", [](BookHeader& h) { h.fonts[0].clip_precision = 9; } },
        MemberCase{ "font_quality", 74, "0a", [](BookHeader& h) { h.fonts[0].quality = 10; } },
        MemberCase{ "font_pitch", 75, "0b", [](BookHeader& h) { h.fonts[0].pitch_and_family = 11; } },
        MemberCase{
            "font_face_start", 76, "4230", [](BookHeader& h) { h.fonts[0].face_name[0] = u'\u3042'; } },
        MemberCase{
            "font_face_end", 138, "4330", [](BookHeader& h) { h.fonts[0].face_name[31] = u'\u3043'; } },
        MemberCase{ "reserved_2", 324, "51525354", [](BookHeader& h) { h.reserved_2 = 0x54535251; } }),
    [](const auto& row) { return row.param.name; });

TEST(HeaderText, IsLowerCaseDigitsWithoutBlanks)
{
    BookHeader header;
    header.seed = 0xABCDEF01;
    const std::string text = book::header_text(header);
    EXPECT_EQ(text.size(), 656u);
    EXPECT_EQ(text.find_first_not_of("0123456789abcdef"), std::string::npos);
    EXPECT_EQ(text.substr(0, 8), "6a000000");
    EXPECT_EQ(text.substr(32, 8), "01efcdab");
}

TEST(HeaderText, IsReadInEitherCase)
{
    BookHeader header;
    header.seed = 0xABCDEF01;
    std::wstring text = wide_text(header);
    for (wchar_t& unit : text)
        unit = unit >= L'a' && unit <= L'f' ? static_cast<wchar_t>(unit - L'a' + L'A') : unit;
    EXPECT_EQ(book::header_from_text(text), header);
}

TEST(HeaderText, IsRefusedUnlessItIsExactlyTheDigitsOfTheRecord)
{
    const std::wstring good = wide_text(BookHeader());
    ASSERT_TRUE(book::header_from_text(good));
    EXPECT_FALSE(book::header_from_text(L""));
    EXPECT_FALSE(book::header_from_text(good.substr(1)));
    EXPECT_FALSE(book::header_from_text(good.substr(2)));
    EXPECT_FALSE(book::header_from_text(good + L"0"));
    EXPECT_FALSE(book::header_from_text(good + L"00"));
    EXPECT_FALSE(book::header_from_text(L"0x" + good.substr(2)));
}

TEST(HeaderText, IsRefusedWithAnythingButADigitInIt)
{
    const std::wstring good = wide_text(BookHeader());
    for (const wchar_t unit : std::wstring(L" \t\r\n\0/:@G`g\u0130\uFF11\u3000\uFEFF", 15)) {
        for (const std::size_t place : { std::size_t{ 0 }, std::size_t{ 101 }, digit_count - 1 }) {
            std::wstring bad = good;
            bad[place] = unit;
            EXPECT_FALSE(book::header_from_text(bad)) << static_cast<int>(unit) << " at " << place;
        }
    }
}

TEST(HeaderText, AcceptsAnyBytesAsARecord)
{
    const std::wstring extreme(digit_count, L'f');
    const auto header = book::header_from_text(extreme);
    ASSERT_TRUE(header);
    EXPECT_EQ(header->position, std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(header->order_mode, -1);
    EXPECT_EQ(wide_text(*header), extreme);
}

TEST(OrderMode, HasAMagnitudeForEveryNumber)
{
    BookHeader header;
    for (const std::int32_t mode : { 2700, 2701, 2702, 0, std::numeric_limits<std::int32_t>::max() }) {
        header.order_mode = mode;
        EXPECT_EQ(book::order_magnitude(header), mode);
        EXPECT_FALSE(book::is_reversed(header));
        header.order_mode = -mode;
        EXPECT_EQ(book::order_magnitude(header), mode);
        EXPECT_EQ(book::is_reversed(header), mode != 0);
    }
    header.order_mode = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(book::order_magnitude(header), 2147483648);
    EXPECT_TRUE(book::is_reversed(header));
}

} // namespace
