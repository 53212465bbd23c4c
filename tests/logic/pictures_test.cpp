// The committed pictures: all are present, and each has the format that its user expects.
#include "app/bitmap_files.hpp"
#include "tests/support/built_files.hpp"
#include "tests/support/picture_file.hpp"
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace {

using test_support::BmpFile;
using test_support::FileBytes;
using test_support::PicturePixel;
using test_support::PngHeader;

constexpr PicturePixel black{ 0, 0, 0, 255 };
constexpr PicturePixel white{ 255, 255, 255, 255 };
constexpr PicturePixel magenta{ 255, 0, 255, 255 };
constexpr std::uint32_t uncompressed = 0;

const std::set<std::wstring> menu_pictures{ L"add_files", L"add_pages", L"backup", L"book", L"books",
    L"btmfile_mn", L"chat", L"copy", L"cut", L"edit", L"eraser", L"filelist", L"gear", L"history",
    L"ins_page_cur", L"ins_page_end", L"link", L"open_folder", L"palette", L"paste", L"replace", L"save_file",
    L"save_file_as", L"topfile_mn", L"trashbox" };

std::wstring picture(const std::wstring& file)
{
    return test_support::resource_path(L"/" + file);
}

BmpFile bitmap(const std::wstring& name)
{
    return BmpFile{ picture(name + L".bmp") };
}

template <class Visit> void for_each_pixel(const BmpFile& file, Visit visit)
{
    for (int y = 0; y < file.height(); ++y) {
        for (int x = 0; x < file.width(); ++x)
            visit(x, y, file.at(x, y));
    }
}

template <class Rule> int count_pixels(const BmpFile& file, Rule rule)
{
    int count = 0;
    for_each_pixel(file, [&](int, int, const PicturePixel& pixel) { count += rule(pixel) ? 1 : 0; });
    return count;
}

void expect_form(const BmpFile& file, int width, int height, std::uint32_t bits)
{
    EXPECT_EQ(file.width(), width);
    EXPECT_EQ(file.height(), height);
    EXPECT_EQ(file.bits(), bits);
    EXPECT_EQ(file.compression(), uncompressed);
}

double luminance(const PicturePixel& pixel)
{
    return 0.299 * pixel.red + 0.587 * pixel.green + 0.114 * pixel.blue;
}

// The brightness of a premultiplied pixel on a colour.
double luminance_on(const PicturePixel& pixel, const PicturePixel& back)
{
    return luminance(pixel) + luminance(back) * (255 - pixel.alpha) / 255.0;
}

TEST(MenuPictures, AreThoseOfTheCommands)
{
    std::set<std::wstring> used;
    for (const app::BitmapFile& row : app::bitmap_files)
        used.insert(row.file);
    EXPECT_EQ(used, menu_pictures);
}

TEST(MenuPictures, BelongToTheirCommands)
{
    const std::map<int, std::wstring> expected{ { 1003, L"book" }, { 1004, L"save_file" },
        { 1005, L"save_file_as" }, { 1009, L"backup" }, { 1059, L"copy" }, { 1060, L"cut" },
        { 1062, L"paste" }, { 1063, L"trashbox" }, { 1064, L"trashbox" }, { 2500, L"open_folder" },
        { 2509, L"edit" }, { 2510, L"replace" }, { 2519, L"palette" }, { 2522, L"filelist" },
        { 2523, L"add_files" }, { 2525, L"eraser" }, { 2528, L"ins_page_end" }, { 2529, L"add_pages" },
        { 2530, L"ins_page_cur" }, { 2531, L"copy" }, { 2532, L"topfile_mn" }, { 2533, L"btmfile_mn" },
        { 2544, L"link" }, { 2548, L"open_folder" }, { 5500, L"chat" }, { 7000, L"gear" },
        { 10000, L"history" }, { 15001, L"books" } };
    std::map<int, std::wstring> actual;
    for (const app::BitmapFile& row : app::bitmap_files)
        actual.emplace(row.command, row.file);
    EXPECT_EQ(actual, expected);
    EXPECT_EQ(app::bitmap_files.size(), expected.size());
}

TEST(MenuPictures, Are16PixelsSquareWithAlpha)
{
    for (const std::wstring& name : menu_pictures) {
        SCOPED_TRACE(platform::to_utf8(name));
        expect_form(bitmap(name), 16, 16, 32);
    }
}

// AlphaBlend needs this: a channel above its alpha would overflow.
TEST(MenuPictures, HaveNoChannelAboveItsAlpha)
{
    for (const std::wstring& name : menu_pictures) {
        SCOPED_TRACE(platform::to_utf8(name));
        const int excess = count_pixels(bitmap(name), [](const PicturePixel& p) {
            return std::max({ p.red, p.green, p.blue }) > p.alpha;
        });
        EXPECT_EQ(excess, 0);
    }
}

TEST(MenuPictures, LetTheMenuShowThrough)
{
    for (const std::wstring& name : menu_pictures) {
        SCOPED_TRACE(platform::to_utf8(name));
        const BmpFile file = bitmap(name);
        EXPECT_GT(count_pixels(file, [](const PicturePixel& p) { return p.alpha == 0; }), 30);
        EXPECT_GT(count_pixels(file, [](const PicturePixel& p) { return p.alpha == 255; }), 30);
    }
}

TEST(MenuPictures, AreVisibleOnLightDarkAndHighlightedMenus)
{
    constexpr PicturePixel menus[] = { white, { 0xF0, 0xF0, 0xF0, 255 }, { 0x2B, 0x2B, 0x2B, 255 },
        { 0x00, 0x78, 0xD7, 255 } };
    constexpr double distinct = 50;
    for (const std::wstring& name : menu_pictures) {
        const BmpFile file = bitmap(name);
        for (const PicturePixel& menu : menus) {
            SCOPED_TRACE(platform::to_utf8(name) + " on " + std::to_string(luminance(menu)));
            const int seen = count_pixels(file, [&](const PicturePixel& p) {
                return std::abs(luminance_on(p, menu) - luminance(menu)) > distinct;
            });
            EXPECT_GE(seen, 32);
        }
    }
}

TEST(MenuPictures, AreAllDifferent)
{
    std::vector<test_support::Bytes> seen;
    for (const std::wstring& name : menu_pictures) {
        seen.push_back(bitmap(name).bytes());
        EXPECT_EQ(std::count(seen.begin(), seen.end(), seen.back()), 1) << platform::to_utf8(name);
    }
}

TEST(FilmStrip, IsBlackWithWhiteHolesAtItsSidesAroundTheKeyColor)
{
    const BmpFile strip = bitmap(L"perfo");
    expect_form(strip, 32, 32, 24);
    for_each_pixel(strip, [](int x, int y, const PicturePixel& pixel) {
        const bool side = x < 5 || x >= 27;
        const bool known = side ? pixel == black || pixel == white : pixel == magenta;
        EXPECT_TRUE(known) << x << ", " << y;
    });
    EXPECT_EQ(count_pixels(strip, [](const PicturePixel& p) { return p == white; }), 2 * 4 * 12);
}

TEST(ManyFilesMark, AvoidsTheCornerThatTheRoundingClips)
{
    const BmpFile mark = bitmap(L"files");
    EXPECT_EQ(mark.bits(), 24u);
    EXPECT_EQ(mark.compression(), uncompressed);
    for (int y = 0; y < mark.height(); ++y) {
        for (int x = mark.width() - 6; x < mark.width(); ++x)
            EXPECT_EQ(mark.at(x, y), black) << x << ", " << y;
    }
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < mark.width(); ++x)
            EXPECT_EQ(mark.at(x, y), black) << x << ", " << y;
    }
}

// Black is its transparent colour: a black outline would have holes, and one blended with black a dark seam.
TEST(ManyFilesMark, HasNoBlackOutlineOfItsOwn)
{
    const BmpFile mark = bitmap(L"files");
    const int drawn = count_pixels(mark, [](const PicturePixel& p) { return p != black; });
    const int dark =
        count_pixels(mark, [](const PicturePixel& p) { return p != black && luminance(p) < 70; });
    EXPECT_GT(drawn, 150);
    EXPECT_EQ(dark, 0);
}

TEST(Indicator, HasAMiddleColumnOfTheBarsWholeHeight)
{
    const BmpFile indicator = bitmap(L"indicator");
    expect_form(indicator, 9, 21, 24);
    constexpr int rows_above_the_bar = 5;
    const int middle = indicator.width() / 2;
    for (int y = rows_above_the_bar; y < indicator.height(); ++y) {
        EXPECT_NE(indicator.at(middle, y), white) << y;
        for (int x = 0; x < middle; ++x)
            EXPECT_EQ(indicator.at(x, y), indicator.at(indicator.width() - 1 - x, y)) << x << ", " << y;
    }
}

// White is its transparent colour: nearly white pixels would show as a seam around it.
TEST(Indicator, HasNoSeamOfNearlyWhite)
{
    const BmpFile indicator = bitmap(L"indicator");
    EXPECT_GT(count_pixels(indicator, [](const PicturePixel& p) { return p == white; }), 40);
    EXPECT_EQ(
        count_pixels(indicator, [](const PicturePixel& p) { return p != white && luminance(p) > 230; }), 0);
}

struct Sheet {
    const wchar_t* file;
    std::uint32_t least, most; // side lengths of a half
    std::uint32_t widest;
};

constexpr Sheet sheets[] = {
    { L"front", 12, 16, 16 },
    { L"prev", 12, 16, 16 },
    { L"next", 12, 16, 16 },
    { L"back", 12, 16, 16 },
    { L"loupe", 12, 16, 16 },
    { L"clear", 12, 16, 16 },
    { L"topfile", 12, 16, 14 },
    { L"btmfile", 12, 16, 14 },
    { L"reload", 12, 16, 16 },
    { L"web_zoomin", 12, 16, 16 },
    { L"web_zoomout", 12, 16, 16 },
    { L"add_files", 16, 24, 24 },
    { L"add_pages", 16, 24, 24 },
};

TEST(ButtonPictures, AreSheetsOfTwoHalvesThatFitTheirButtons)
{
    constexpr std::uint32_t red_green_blue_alpha = 6;
    for (const Sheet& sheet : sheets) {
        SCOPED_TRACE(platform::to_utf8(sheet.file));
        const PngHeader header = test_support::png_header(picture(std::wstring(sheet.file) + L".png"));
        EXPECT_EQ(header.depth, 8u);
        EXPECT_EQ(header.color, red_green_blue_alpha);
        EXPECT_EQ(header.width % 2, 0u);
        EXPECT_GE(header.width / 2, sheet.least);
        EXPECT_LE(header.width / 2, sheet.widest);
        EXPECT_GE(header.height, sheet.least);
        EXPECT_LE(header.height, sheet.most);
    }
}

TEST(ProgramIcon, HasASizeForEveryPlaceThatShowsIt)
{
    const FileBytes icon{ test_support::read_bytes(picture(L"../app/wnd/pagewick.ico")) };
    ASSERT_EQ(icon.little(0, 2), 0u);
    ASSERT_EQ(icon.little(2, 2), 1u);
    std::vector<std::uint32_t> sizes;
    for (std::size_t entry = 6; entry < 6 + 16 * icon.little(4, 2); entry += 16) {
        const std::uint32_t side = icon.byte(entry) == 0 ? 256 : icon.byte(entry);
        const std::uint32_t start = icon.little(entry + 12, 4);
        EXPECT_EQ(icon.byte(entry), icon.byte(entry + 1));
        EXPECT_EQ(icon.little(entry + 6, 2), 32u);
        EXPECT_LE(start + icon.little(entry + 8, 4), icon.size());
        if (test_support::is_png(icon, start)) {
            EXPECT_EQ(icon.big(start + 16, 4), side);
        } else {
            EXPECT_EQ(icon.little(start + 4, 4), side);
            EXPECT_EQ(icon.little(start + 8, 4), 2 * side);
            EXPECT_EQ(icon.little(start + 14, 2), 32u);
        }
        sizes.push_back(side);
    }
    EXPECT_EQ(sizes, (std::vector<std::uint32_t>{ 16, 24, 32, 48, 256 }));
}

} // namespace
