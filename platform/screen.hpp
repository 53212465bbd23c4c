// The screen's resolution, which font heights are measured by.
#pragma once

namespace platform {

// Pixels of a logical inch, vertically: LOGPIXELSY of a memory device context, 96 where there is no screen.
int pixels_per_inch();

// number * numerator / denominator with a 64-bit product, rounded half away from zero, as the system's MulDiv
// does.
int mul_div(int number, int numerator, int denominator);

} // namespace platform
