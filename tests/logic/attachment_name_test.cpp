// The names that mail programs and browsers propose for attachments, and those that an attacker would.
#include "media/attachment_name.hpp"
#include "platform/text.hpp"
#include <gtest/gtest.h>

namespace {

using media::attachment_name;

TEST(AttachmentName, LeavesOrdinaryNamesAlone)
{
    for (const auto* name : { L"a.txt", L"資料 (1).xlsx", L".profile", L"a.b.c", L"console.txt", L"com10.txt",
             L"lpt.txt", L"nulls", L"é~#%&'!.png", L"無題" })
        EXPECT_EQ(attachment_name(name), name);
}

TEST(AttachmentName, KeepsOnlyTheLastPart)
{
    EXPECT_EQ(attachment_name(L"..\\x.txt"), L"x.txt");
    EXPECT_EQ(attachment_name(L"../../x.txt"), L"x.txt");
    EXPECT_EQ(attachment_name(L"C:\\Windows\\x.txt"), L"x.txt");
    EXPECT_EQ(attachment_name(L"\\\\server\\share\\x.txt"), L"x.txt");
    EXPECT_EQ(attachment_name(L"\\\\?\\C:\\x.txt"), L"x.txt");
    EXPECT_EQ(attachment_name(L"folder\\"), L"_");
}

TEST(AttachmentName, EndsAtTheFirstZeroAndAtTheFieldsEnd)
{
    EXPECT_EQ(attachment_name({ L"a.txt\0.exe", 10 }), L"a.txt");
    const std::wstring behind = std::wstring(260, L'a') + L"\\b.txt";
    EXPECT_EQ(attachment_name(behind), std::wstring(200, L'a'));
}

TEST(AttachmentName, ReplacesWhatNoNameMayContain)
{
    EXPECT_EQ(attachment_name(L"a<b>c:d\"e|f?g*h.txt"), L"a_b_c_d_e_f_g_h.txt");
    EXPECT_EQ(attachment_name(L"a\tb\x1F"
                              L"c\x01.txt"),
        L"a_b_c_.txt");
    EXPECT_EQ(attachment_name(L"C:x.txt"), L"C_x.txt") << "a drive without folder";
    EXPECT_EQ(attachment_name(L"x.txt:stream"), L"x.txt_stream");
    EXPECT_EQ(attachment_name(L"\x7F\x20\x21.txt"), L"\x7F !.txt");
}

TEST(AttachmentName, ReplacesCharactersThatTurnTheText)
{
    for (const wchar_t turn : std::wstring{ L"\x202A\x202B\x202C\x202D\x202E\x2066\x2067\x2068\x2069" })
        EXPECT_EQ(attachment_name(std::wstring{ L"a" } + turn + L"gpj.exe"), L"a_gpj.exe");
    for (const wchar_t other : std::wstring{ L"\x2029\x202F\x2065\x206A" })
        EXPECT_EQ(attachment_name(std::wstring{ L'a', other, L'b' }), (std::wstring{ L'a', other, L'b' }));
}

TEST(AttachmentName, EndsWithoutDotsAndBlanks)
{
    EXPECT_EQ(attachment_name(L"a.txt. . ."), L"a.txt");
    EXPECT_EQ(attachment_name(L"a.txt   "), L"a.txt");
    EXPECT_EQ(attachment_name(L" a"), L" a");
}

TEST(AttachmentName, IsNeverEmpty)
{
    for (const auto* name : { L"", L".", L"..", L" ", L". . .", L"\\", L"/", L"a\\.." })
        EXPECT_EQ(attachment_name(name), L"_");
}

TEST(AttachmentName, NamesNoDevice)
{
    for (const auto* name :
        { L"CON", L"con.txt", L"PRN", L"aux.c", L"nul.tar.gz", L"COM1", L"com9.log", L"LPT1.txt", L"lpt9",
            L"CONIN$", L"conout$.x", L"NUL .txt", L"Com\u00B9.txt", L"lpt\u00B2", L"COM\u00B3" })
        EXPECT_EQ(attachment_name(name), std::wstring{ L"_" } + name);
    EXPECT_EQ(attachment_name(L"NUL."), L"_NUL");
    EXPECT_EQ(attachment_name(L"C:\\CON"), L"_CON");
    for (const auto* name : { L"COM0", L"COMA", L"LPT", L"1", L"XCON", L"CON1", L"CONIN" })
        EXPECT_EQ(attachment_name(name), name);
}

TEST(AttachmentName, HasAtMost200UnitsAndKeepsItsExtension)
{
    const std::wstring fits = std::wstring(196, L'a') + L".txt";
    EXPECT_EQ(attachment_name(fits), fits);
    EXPECT_EQ(attachment_name(std::wstring(197, L'a') + L".txt"), fits);
    EXPECT_EQ(attachment_name(std::wstring(250, L'a') + L".txt"), fits);
    EXPECT_EQ(attachment_name(std::wstring(200, L'a')), std::wstring(200, L'a'));
    EXPECT_EQ(attachment_name(std::wstring(201, L'a')), std::wstring(200, L'a'));
    for (const std::size_t extension : { 198u, 199u, 200u }) {
        const std::wstring name = L"ab." + std::wstring(extension, L'x');
        EXPECT_EQ(attachment_name(name).size(), 200u) << extension;
    }
    const std::wstring long_extension = L"a." + std::wstring(220, L'x');
    EXPECT_EQ(attachment_name(long_extension), long_extension.substr(0, 200));
    EXPECT_EQ(attachment_name(L"NUL." + std::wstring(196, L'x')), L"_NU." + std::wstring(196, L'x'));
}

TEST(AttachmentName, SplitsNoPair)
{
    const std::wstring pair{ wchar_t{ 0xD842 }, wchar_t{ 0xDFB7 } };
    const std::wstring split = std::wstring(195, L'a') + pair + std::wstring(20, L'b') + L".txt";
    EXPECT_EQ(attachment_name(split), std::wstring(195, L'a') + L".txt");
    const std::wstring whole = std::wstring(194, L'a') + pair + std::wstring(20, L'b') + L".txt";
    EXPECT_EQ(attachment_name(whole), std::wstring(194, L'a') + pair + L".txt");
}

// A device can appear by the cut alone.
TEST(AttachmentName, IsNoDeviceAfterTheCutEither)
{
    const std::wstring padded = L"CON" + std::wstring(220, L' ') + L"x";
    EXPECT_EQ(attachment_name(padded), L"_CON");
}

} // namespace
