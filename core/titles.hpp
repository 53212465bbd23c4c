// The program's name and version, and the texts of captions and titles.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace core {

inline constexpr wchar_t program_name[] = L"Pagewick";
inline constexpr std::uint32_t program_version = 106;

// The version in decimal with a point before the last two digits: 106 gives "1.06".
std::wstring version_text(std::uint32_t version);

// The caption of the main window's message boxes: name, version and the stem of the Book's path, if it has
// one.
std::wstring message_caption(std::wstring_view book_path);

// The text of the about box.
std::wstring about_text();

struct TitleState {
    bool changed = false; // a box has text that is not committed to the page
    bool needs_update = false; // the display order is stale
};

// The main window's title, followed by `extra`.
std::wstring title_text(std::wstring_view book_path, TitleState state, std::wstring_view extra = {});

} // namespace core
