// The one way to the system's GDI+ header: with NOMINMAX it finds no min and max of its own.
#pragma once
#include <algorithm>
#include <windows.h>

#include <objidl.h>

namespace Gdiplus {
using std::max;
using std::min;
} // namespace Gdiplus

#if defined(_MSC_VER)
#pragma warning(push)
#pragma warning(disable : 4458) // its parameters hide members of their own classes
#endif
#include <gdiplus.h>
#if defined(_MSC_VER)
#pragma warning(pop)
#endif
