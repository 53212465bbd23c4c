// The frame that windows draw around controls that belong together.
#pragma once
#include "ovlib/gui/dc.hpp"
#include "platform/geometry.hpp"

namespace look {

inline constexpr wchar_t page_settings_caption[] = L" ページごとの設定 ";

// A rounded line in the colour of the theme.
void draw_group_line(const ovlib::DC& dc, const platform::Rect& frame);
// A rounded frame in the colours of the theme, with its caption on the upper line.
void draw_group(const ovlib::DC& dc, const platform::Rect& frame, const wchar_t* caption);

// Draws a label of a panel.
void draw_label(const ovlib::DC& dc, HFONT font, platform::Point place, const wchar_t* text);
// The size of a text in this font.
platform::Size text_size(const ovlib::DC& dc, HFONT font, const wchar_t* text);

} // namespace look
