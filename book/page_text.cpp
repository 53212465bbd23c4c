#include "book/page_text.hpp"
#include "book/page.hpp"
#include "platform/text.hpp"
#include <algorithm>

namespace book {

namespace {

bool has_side(TrimMode mode, TrimMode side)
{
    return (static_cast<int>(mode) & static_cast<int>(side)) != 0;
}

template <typename Unit>
std::basic_string_view<Unit> trim_view(std::basic_string_view<Unit> text, TrimMode mode)
{
    const auto is_blank = [](Unit unit) { return platform::is_white_space(static_cast<wchar_t>(unit)); };
    if (has_side(mode, TrimMode::right)) {
        while (!text.empty() && is_blank(text.back()))
            text.remove_suffix(1);
    }
    if (has_side(mode, TrimMode::left)) {
        while (!text.empty() && is_blank(text.front()))
            text.remove_prefix(1);
    }
    return text;
}

void append_digits(std::wstring& text, int value, std::size_t width)
{
    const std::wstring digits = std::to_wstring(value);
    if (digits.size() < width)
        text.append(width - digits.size(), L'0');
    text += digits;
}

} // namespace

std::wstring_view trimmed(std::wstring_view text, TrimMode mode)
{
    return trim_view(text, mode);
}

std::u16string_view trimmed(std::u16string_view text, TrimMode mode)
{
    return trim_view(text, mode);
}

std::size_t trim_text(std::wstring& text, TrimMode mode)
{
    const std::wstring_view kept = trimmed(text, mode);
    const auto start = static_cast<std::size_t>(kept.data() - text.data());
    // The end first, so that `start` stays valid.
    text.erase(start + kept.size());
    text.erase(0, start);
    return text.size();
}

void remove_separator(std::wstring& text)
{
    std::erase(text, separator);
}

std::wstring_view first_line(std::wstring_view text)
{
    return text.substr(0, text.find_first_of(L"\r\n"));
}

std::wstring time_text(const platform::LocalTime& time)
{
    std::wstring text;
    append_digits(text, time.year, 4);
    for (const int field : { time.month, time.day, time.hour, time.minute, time.second })
        append_digits(text, field, 2);
    return text;
}

std::wstring current_time_text()
{
    return time_text(platform::local_time());
}

void renew_stamp(std::wstring& stamp, std::wstring_view now)
{
    if (stamp.size() > time_length)
        stamp.resize(time_length);
    stamp += now;
}

} // namespace book
