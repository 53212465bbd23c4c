// The screen's resolution, for font heights.
#pragma once

namespace platform {

// Vertical pixels per logical inch: LOGPIXELSY of a memory device context; 96 without a screen.
int pixels_per_inch();

// number * numerator / denominator with a 64-bit product, rounded half away from zero, like MulDiv of
// Windows.
int mul_div(int number, int numerator, int denominator);

} // namespace platform
