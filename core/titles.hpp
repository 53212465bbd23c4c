// What the program calls itself, and what stands in captions and titles.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace core {

inline constexpr wchar_t program_name[] = L"Pagewick";
inline constexpr std::uint32_t program_version = 106;

// In decimal with a point two digits from the end: 106 gives "1.06".
std::wstring version_text(std::uint32_t version);

// The caption of the main window's boxes: name, version and, with a Book file, its stem.
std::wstring message_caption(std::wstring_view book_path);

// What the about box says.
std::wstring about_text();

struct TitleState {
    bool changed = false; // an edit box holds text that the page has not
    bool needs_update = false; // the display order is stale
};

// The main window's title. `extra` is added at its end.
std::wstring title_text(std::wstring_view book_path, TitleState state, std::wstring_view extra = {});

} // namespace core
