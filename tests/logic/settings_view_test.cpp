// The texts, items and layout of the settings window, and what it shows.
#include "look/settings_view.hpp"
#include "platform/file.hpp"
#include "tests/support/temp_folder.hpp"
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace {

using platform::Rect;

TEST(SettingItems, OfTheSortKeyAreFixed)
{
    const std::vector<std::wstring> texts{ L"テキストボックス1", L"テキストボックス2", L"テキストボックス3",
        L"作成日時", L"更新日時", L"データサイズ" };
    const auto items = look::sort_items();
    ASSERT_EQ(items.size(), texts.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(items[i].text, texts[i]);
        EXPECT_EQ(items[i].value, 3000 + static_cast<std::int32_t>(i));
    }
}

TEST(SettingItems, OfTheTabLabelAreTheBoxes)
{
    const auto items = look::tab_items();
    ASSERT_EQ(items.size(), 3u);
    for (std::size_t i = 0; i < items.size(); ++i) {
        EXPECT_STREQ(items[i].text, look::box_names[i]);
        EXPECT_EQ(items[i].value, 4000 + static_cast<std::int32_t>(i));
    }
}

TEST(SettingItems, AValueOutsideIsClamped)
{
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    for (const std::int64_t value : { least, std::int64_t{ 2999 }, std::int64_t{ 3000 } })
        EXPECT_EQ(look::clamped_value(look::sort_items(), value), 3000) << value;
    for (const std::int64_t value : { std::int64_t{ 3005 }, std::int64_t{ 3006 }, most })
        EXPECT_EQ(look::clamped_value(look::sort_items(), value), 3005) << value;
    EXPECT_EQ(look::clamped_value(look::sort_items(), 3002), 3002);
    EXPECT_EQ(look::clamped_value(look::tab_items(), 4003), 4002);
    EXPECT_EQ(look::clamped_value(look::tab_items(), -1), 4000);
}

TEST(CurrentSettings, ComeFromTheBookAndFromTheInstallation)
{
    book::BookHeader header;
    header.auto_file_search = 0;
    core::Settings settings;
    const look::SettingsChoice off = look::current_settings(header, settings);
    EXPECT_EQ(off, (look::SettingsChoice{ .sort_key = 3000, .tab_label_box = 4000 }));
    header.gif_autoplay = 1;
    EXPECT_EQ(look::current_settings(header, settings).gif_autoplay, true);
    header.auto_file_search = 2; // any number but zero
    EXPECT_EQ(look::current_settings(header, settings).file_search, true);
    header.wrap_text = 1;
    EXPECT_EQ(look::current_settings(header, settings).wrap_text, true);
    settings.auto_imm = true;
    EXPECT_EQ(look::current_settings(header, settings).auto_imm, true);
    settings.auto_backup = true;
    EXPECT_EQ(look::current_settings(header, settings).auto_backup, true);
    settings.clear_cache_at_exit = true;
    EXPECT_EQ(look::current_settings(header, settings).clear_cache, true);
    header.sort_key = 2999;
    header.tab_label_box = 4009;
    EXPECT_EQ(look::current_settings(header, settings).sort_key, 3000);
    EXPECT_EQ(look::current_settings(header, settings).tab_label_box, 4002);
}

TEST(SettingsView, TextsAreFixed)
{
    EXPECT_STREQ(look::settings_title, L"設定");
    EXPECT_STREQ(look::sort_label, L"ページのソート条件");
    EXPECT_STREQ(look::tab_label, L"タブ文字列の取得先");
    EXPECT_STREQ(look::mail_label, L"mail: ");
}

TEST(SettingsView, ControlsAreInTwoColumnsAboveTheStrip)
{
    const look::SettingsLayout at = look::settings_layout();
    int top = 20;
    for (const auto& [left, right] : { std::pair{ at.gif_check, at.ime_check },
             std::pair{ at.search_check, at.backup_check }, std::pair{ at.wrap_check, at.cache_check } }) {
        EXPECT_EQ(left.top, top);
        EXPECT_EQ(right.top, top);
        EXPECT_EQ(left.left, 20);
        EXPECT_EQ(right.left, 220);
        top += 22;
    }
    EXPECT_EQ(at.sort_combo.top, 113);
    EXPECT_EQ(at.tab_combo.top, 113);
    EXPECT_LT(at.tab_combo.bottom, at.strip.top);
    EXPECT_EQ(at.strip, (Rect{ 0, 150, 480, 210 }));
    EXPECT_GT(at.ok_button.top, at.strip.top + 4);
    EXPECT_LT(at.ok_button.bottom, at.strip.bottom);
    EXPECT_LE(at.mail.right, at.ok_button.left);
}

TEST(SettingsView, TheFrameHoldsTheChecksOfTheBook)
{
    const look::SettingsLayout at = look::settings_layout();
    EXPECT_LT(at.book_frame.left, at.gif_check.left);
    EXPECT_LT(at.book_frame.top, at.gif_check.top);
    EXPECT_GT(at.book_frame.right, at.search_check.right);
    EXPECT_LT(at.book_frame.right, at.ime_check.left);
    EXPECT_GT(at.book_frame.bottom, at.wrap_check.bottom);
    EXPECT_LT(at.book_frame.bottom, at.sort_label.y);
}

TEST(SettingsView, TheStripIsDarkerWithAGrooveAtItsUpperEdge)
{
    const auto parts = look::strip_parts({ 0, 150, 480, 210 }, ovlib::rgb(200, 100, 0));
    EXPECT_EQ(parts[0].area, (Rect{ 0, 150, 480, 210 }));
    EXPECT_EQ(parts[0].color, ovlib::rgb(200 * 235 / 256, 100 * 235 / 256, 0));
    EXPECT_EQ(parts[1].area, (Rect{ 0, 150, 480, 152 }));
    EXPECT_EQ(parts[1].color, ovlib::rgb(200 * 205 / 256, 100 * 205 / 256, 0));
    EXPECT_EQ(parts[2].area, (Rect{ 0, 152, 480, 154 }));
    EXPECT_EQ(parts[2].color, ovlib::rgb((200 * 155 + 25755) >> 8, (100 * 155 + 25755) >> 8, 25755 >> 8));
}

class MailAddress : public testing::Test {
protected:
    std::wstring read(std::string_view bytes) const
    {
        const std::wstring path = folder_.file(L"mail_address.txt");
        platform::File file = platform::File::create(path);
        EXPECT_TRUE(file.write(std::as_bytes(std::span{ bytes })));
        file.close();
        return look::read_mail_address(path);
    }
    static std::string wide(std::u16string_view text)
    {
        std::string bytes;
        for (const char16_t unit : text) {
            bytes += static_cast<char>(unit & 0xFF);
            bytes += static_cast<char>(unit >> 8);
        }
        return bytes;
    }

    test_support::TempFolder folder_;
};

TEST_F(MailAddress, IsEmptyWithoutAFile)
{
    EXPECT_EQ(look::read_mail_address(folder_.file(L"nothing.txt")), L"");
    EXPECT_EQ(look::read_mail_address(folder_.path()), L"");
    EXPECT_EQ(read(""), L"");
    EXPECT_EQ(read(" \r\nb@example.com"), L"");
}

TEST_F(MailAddress, IsTheFirstLineTrimmed)
{
    EXPECT_EQ(read("a@example.com"), L"a@example.com");
    EXPECT_EQ(read(" \ta@example.com  \r\nsecond"), L"a@example.com");
    EXPECT_EQ(read("a@example.com\nsecond"), L"a@example.com");
    EXPECT_EQ(read("\xEF\xBB\xBF"
                   "a@example.com"),
        L"a@example.com");
}

TEST_F(MailAddress, MayBeUtf16)
{
    EXPECT_EQ(read(wide(u"\uFEFF a@example.com \r\nsecond")), L"a@example.com");
    EXPECT_EQ(read(wide(u"a@example.com\r\n")), L"a@example.com");
    EXPECT_EQ(read(wide(u"\uFEFF送り先@example.com")), L"送り先@example.com");
    EXPECT_EQ(read(wide(u"a@b") + "x"), L"a@b") << "half a unit at the end";
}

TEST_F(MailAddress, OfAHugeFileIsBounded)
{
    EXPECT_LE(read(std::string(1'000'000, 'a')).size(), 4096u);
}

} // namespace
