// The shipped executable: its headers and its manifest.
#include "driver_data_root.hpp"
#include "tests/support/built_files.hpp"
#include <windows.h>
#include <cstring>
#include <gmock/gmock.h>
#include <string>

namespace {

const std::wstring& program()
{
    static const std::wstring path = test_support::dist_path(L"/pagewick.exe");
    return path;
}

class ShippedProgram : public testing::Test {
protected:
    void SetUp() override
    {
        bytes = e2e::file_bytes(program());
        IMAGE_DOS_HEADER start{};
        ASSERT_GT(bytes.size(), sizeof start);
        std::memcpy(&start, bytes.data(), sizeof start);
        ASSERT_GT(bytes.size(), start.e_lfanew + sizeof headers);
        std::memcpy(&headers, bytes.data() + start.e_lfanew, sizeof headers);
        ASSERT_EQ(headers.Signature, DWORD{ IMAGE_NT_SIGNATURE });
        first_section = static_cast<std::size_t>(start.e_lfanew) + sizeof headers;
    }
    std::vector<IMAGE_SECTION_HEADER> sections() const
    {
        std::vector<IMAGE_SECTION_HEADER> found(headers.FileHeader.NumberOfSections);
        std::memcpy(found.data(), bytes.data() + first_section, found.size() * sizeof found.front());
        return found;
    }

    std::string bytes;
    IMAGE_NT_HEADERS64 headers{};
    std::size_t first_section = 0;
};

// The text of the only manifest, with each run of white space as one space.
std::string manifest()
{
    HMODULE const module = LoadLibraryExW(program().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    HRSRC const place = FindResourceW(module, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(24));
    std::string text;
    if (const void* data = LockResource(LoadResource(module, place))) {
        const std::string_view whole{ static_cast<const char*>(data), SizeofResource(module, place) };
        for (const char c : whole) {
            const bool is_blank = c == ' ' || c == '\r' || c == '\n';
            if (!is_blank || !text.ends_with(' '))
                text += is_blank ? ' ' : c;
        }
    }
    FreeLibrary(module);
    return text;
}

// With an older version, Windows applies the borders and scrolling of older systems.
TEST_F(ShippedProgram, IsMarkedForWindowsOfSubsystemVersionSix)
{
    EXPECT_EQ(headers.OptionalHeader.Subsystem, IMAGE_SUBSYSTEM_WINDOWS_GUI);
    EXPECT_EQ(headers.OptionalHeader.MajorSubsystemVersion, 6);
    EXPECT_EQ(headers.OptionalHeader.MinorSubsystemVersion, 0);
}

TEST_F(ShippedProgram, HasNoSymbols)
{
    EXPECT_EQ(headers.FileHeader.PointerToSymbolTable, 0u);
    EXPECT_EQ(headers.FileHeader.NumberOfSymbols, 0u);
    for (const IMAGE_SECTION_HEADER& section : sections()) {
        // The long names of debug sections are references into the symbols' string table, and begin with a
        // slash.
        EXPECT_NE(section.Name[0], '/');
    }
}

TEST_F(ShippedProgram, HasOneManifestWithTheSettingsOfTheSystem)
{
    using testing::HasSubstr;
    const std::string text = manifest();
    EXPECT_THAT(text,
        HasSubstr("<longPathAware xmlns=\"http://schemas.microsoft.com/SMI/2016/WindowsSettings\">true<"));
    EXPECT_THAT(text,
        HasSubstr("<ultraHighResolutionScrollingAware "
                  "xmlns=\"http://schemas.microsoft.com/SMI/2013/WindowsSettings\">false<"));
    EXPECT_THAT(text, HasSubstr("Microsoft.Windows.Common-Controls"));
    EXPECT_THAT(text, testing::Not(HasSubstr("<dpiAware")));

    std::size_t copies = 0;
    const std::string opening = "<assembly xmlns=";
    for (std::size_t at = 0; (at = bytes.find(opening, at)) != bytes.npos; ++at)
        ++copies;
    EXPECT_EQ(copies, 1u);
}

} // namespace
