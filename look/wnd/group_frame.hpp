// The frame around controls that belong together, with a title on its upper line.
#pragma once
#include "ovlib/gui/dc.hpp"
#include "platform/geometry.hpp"
#include <string>

namespace look {

// In the colours of the theme. The title covers the line below it.
void draw_group_frame(const ovlib::DC& dc, const platform::Rect& frame, const std::wstring& title);

} // namespace look
