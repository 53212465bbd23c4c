// The one way to the system's GDI+ header: with NOMINMAX it finds no min and max of its own.
#pragma once
#include <algorithm>
#include <windows.h>

#include <objidl.h>

namespace Gdiplus {
using std::max;
using std::min;
} // namespace Gdiplus

#include <gdiplus.h>
