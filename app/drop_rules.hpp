// Where a dropped text goes.
#pragma once
#include "platform/geometry.hpp"
#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace app {

// The first of the boxes whose rectangle contains the point; nullopt outside all of them. Both in screen
// coordinates.
std::optional<std::size_t> box_at(std::span<const platform::Rect> boxes, platform::Point point);

// What a box accepts of a dropped text: box 2 has one line, as for a paste.
std::wstring text_for_box(std::size_t box, std::wstring text);

} // namespace app
