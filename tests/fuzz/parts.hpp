// An input as texts: one byte of switches, then UTF-16 units, little-endian, in parts divided by U+FFFF.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace fuzz {

struct Parts {
    std::uint8_t switches = 0;
    std::vector<std::wstring> parts{ 1 };

    std::wstring part(std::size_t i) const { return i < parts.size() ? parts[i] : std::wstring(); }
    bool is_on(int bit) const { return (switches >> bit & 1) != 0; }
};

inline Parts read_parts(std::span<const std::uint8_t> bytes)
{
    constexpr wchar_t part_end = 0xFFFF;
    Parts input;
    if (bytes.empty())
        return input;
    input.switches = bytes[0];
    for (std::size_t i = 1; i + 1 < bytes.size(); i += 2) {
        const auto unit = static_cast<wchar_t>(bytes[i] | bytes[i + 1] << 8);
        if (unit == part_end)
            input.parts.emplace_back();
        else
            input.parts.back() += unit;
    }
    return input;
}

} // namespace fuzz
