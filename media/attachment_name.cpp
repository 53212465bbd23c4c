#include "media/attachment_name.hpp"
#include "platform/path_text.hpp"
#include "platform/text.hpp"
#include <algorithm>
#include <array>

namespace media {

namespace {

constexpr std::size_t proposed_units = 260;
constexpr std::size_t longest_name = 200;
constexpr wchar_t filler = L'_';

constexpr bool is_between(wchar_t unit, wchar_t first, wchar_t last)
{
    return unit >= first && unit <= last;
}

// The last two ranges make a text run from right to left, which can hide its real extension.
bool is_forbidden(wchar_t unit)
{
    constexpr std::wstring_view special = L"<>:\"|?*";
    return unit < 0x20 || special.find(unit) != special.npos || is_between(unit, 0x202A, 0x202E)
        || is_between(unit, 0x2066, 0x2069);
}

// The system ignores dots and blanks at the end of a name.
void cut_ignored_end(std::wstring& name)
{
    name.erase(name.find_last_not_of(L". ") + 1);
}

// Also the superscript digits, which the system takes for 1 to 3.
bool is_port_number(wchar_t unit)
{
    return is_between(unit, L'1', L'9') || unit == 0xB9 || unit == 0xB2 || unit == 0xB3;
}

// A device keeps its meaning with any extension.
bool names_device(std::wstring_view name)
{
    constexpr std::array<std::wstring_view, 6> devices{ L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$",
        L"CONOUT$" };
    constexpr std::array<std::wstring_view, 2> ports{ L"COM", L"LPT" };
    std::wstring stem{ name.substr(0, name.find(L'.')) };
    cut_ignored_end(stem);
    const auto is_stem = [&stem](std::wstring_view device) {
        return platform::same_text_ignoring_case(stem, device);
    };
    if (std::ranges::any_of(devices, is_stem))
        return true;
    if (stem.empty() || !is_port_number(stem.back()))
        return false;
    stem.pop_back();
    return std::ranges::any_of(ports, is_stem);
}

// Cuts in front of the extension, unless that is most of the name.
void shorten(std::wstring& name)
{
    if (name.size() <= longest_name)
        return;
    std::wstring extension{ platform::path_extension(name) };
    if (extension.size() >= longest_name)
        extension.clear();
    std::size_t kept = longest_name - extension.size();
    if (platform::is_high_surrogate(name[kept - 1]) && platform::is_low_surrogate(name[kept]))
        --kept;
    name.erase(kept);
    name += extension;
    cut_ignored_end(name);
}

} // namespace

std::wstring attachment_name(std::wstring_view proposed)
{
    proposed = proposed.substr(0, std::min(proposed.find(L'\0'), proposed_units));
    std::wstring name{ proposed.substr(proposed.find_last_of(L"\\/") + 1) };
    std::ranges::replace_if(name, is_forbidden, filler);
    cut_ignored_end(name);
    shorten(name);
    if (names_device(name)) {
        name.insert(name.begin(), filler);
        shorten(name);
    }
    return name.empty() ? std::wstring{ filler } : name;
}

} // namespace media
