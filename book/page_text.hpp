// Small operations on the text of pages.
#pragma once
#include "platform/clock.hpp"
#include "platform/text.hpp"
#include <cstddef>
#include <string>
#include <string_view>

namespace book {

inline constexpr wchar_t separator = 3; // U+0003 separates the fields of a Book file
inline constexpr wchar_t byte_order_mark = 0xFEFF;

enum class TrimMode { left = 1, right = 2, both = 3 };

// Removes white space in place and returns the new length.
std::size_t trim_text(std::wstring& text, TrimMode mode);
// The same as a view of `text`.
std::wstring_view trimmed(std::wstring_view text, TrimMode mode);
std::u16string_view trimmed(std::u16string_view text, TrimMode mode);

// Erases every U+0003.
void remove_separator(std::wstring& text);

// The text before the first CR or LF, which is what a box of one line accepts.
std::wstring_view first_line(std::wstring_view text);

using platform::same_text_ignoring_case;

// Year, month, day, hour, minute, second as 14 digits.
std::wstring time_text(const platform::LocalTime& time);
std::wstring current_time_text();

// Makes `now` the time of the last modification. Keeps the creation time, as far as there is one.
void renew_stamp(std::wstring& stamp, std::wstring_view now);

} // namespace book
