// The settings of a Book, as the record that its file holds byte for byte (docs/file-format.md).
#pragma once
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

namespace book {

enum class OrderMode : std::int32_t { stored = 2700, sorted = 2701, random = 2702 };
enum class SortKey : std::int32_t {
    box1 = 3000,
    box2 = 3001,
    box3 = 3002,
    created = 3003,
    modified = 3004,
    size = 3005
};

inline constexpr std::uint32_t format_version = 106;
inline constexpr std::int32_t first_tab_label_box = 4000;
inline constexpr std::int32_t standard_theme = 6000;

// Same layout as LOGFONTW, declared here because logic does not include windows.h.
struct LogFont {
    std::int32_t height = 0;
    std::int32_t width = 0;
    std::int32_t escapement = 0;
    std::int32_t orientation = 0;
    std::int32_t weight = 0;
    std::uint8_t italic = 0;
    std::uint8_t underline = 0;
    std::uint8_t strike_out = 0;
    std::uint8_t char_set = 0;
    std::uint8_t out_precision = 0;
    std::uint8_t clip_precision = 0;
    std::uint8_t quality = 0;
    std::uint8_t pitch_and_family = 0;
    std::array<char16_t, 32> face_name{}; // a file may leave out the terminating zero

    friend bool operator==(const LogFont&, const LogFont&) = default;
};

// Read from a file without checks: every member may hold any value, so its users check it.
struct BookHeader {
    BookHeader(); // the defaults of a new Book

    std::uint32_t version = format_version;
    std::uint32_t reserved_0 = 0;
    std::uint64_t position = 0; // current page, in display order
    std::uint32_t seed = 0; // of the random order
    std::uint8_t wrap_text = 0;
    std::uint8_t track_tabs = 0;
    std::uint8_t track_marks = 0;
    std::uint8_t auto_file_search = 1;
    std::uint8_t gif_autoplay = 0;
    std::array<std::uint8_t, 3> reserved_1{};
    std::int32_t order_mode = static_cast<std::int32_t>(OrderMode::stored); // negative: reversed
    std::int32_t sort_key = static_cast<std::int32_t>(SortKey::box1);
    std::int32_t tab_label_box = first_tab_label_box;
    std::int32_t divider = 0; // pixels; 0: not yet set
    std::int32_t theme = standard_theme;
    std::array<LogFont, 3> fonts; // one a box
    std::uint32_t reserved_2 = 0;

    friend bool operator==(const BookHeader&, const BookHeader&) = default;
};

static_assert(sizeof(LogFont) == 92 && offsetof(LogFont, face_name) == 28);
static_assert(sizeof(BookHeader) == 328);
static_assert(offsetof(BookHeader, position) == 8 && offsetof(BookHeader, seed) == 16);
static_assert(offsetof(BookHeader, wrap_text) == 20 && offsetof(BookHeader, gif_autoplay) == 24);
static_assert(offsetof(BookHeader, order_mode) == 28 && offsetof(BookHeader, theme) == 44);
static_assert(offsetof(BookHeader, fonts) == 48 && offsetof(BookHeader, reserved_2) == 324);
static_assert(std::is_trivially_copyable_v<BookHeader> && std::is_standard_layout_v<BookHeader>);
static_assert(std::endian::native == std::endian::little, "records are written as they are in memory");

// True when the display order runs backwards.
constexpr bool is_reversed(const BookHeader& header)
{
    return header.order_mode < 0;
}
// The mode without its direction. 64 bits, because the magnitude of -2^31 does not fit in 32.
constexpr std::int64_t order_magnitude(const BookHeader& header)
{
    const std::int64_t mode = header.order_mode;
    return mode < 0 ? -mode : mode;
}

// Sets `font` to the font of box `index` in a new Book: 12 points bold for index 1, 10 points for the others.
// An index of 3 or more leaves `font` unchanged.
void default_box_font(std::size_t index, LogFont& font);

} // namespace book
