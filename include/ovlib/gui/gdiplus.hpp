// The only include of the system's GDI+ header, which needs min and max but finds none under NOMINMAX. Also
// the owners of GDI+ objects.
#pragma once
#include <windows.h>
#include <algorithm>
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

#include "ovlib/handles.hpp"

namespace ovlib {

using UniqueGdipGraphics =
    unique_handle<GivenBackBy<Gdiplus::GpGraphics*, &Gdiplus::DllExports::GdipDeleteGraphics>>;
using UniqueGdipImage = unique_handle<GivenBackBy<Gdiplus::GpImage*, &Gdiplus::DllExports::GdipDisposeImage>>;
using UniqueGdipPath = unique_handle<GivenBackBy<Gdiplus::GpPath*, &Gdiplus::DllExports::GdipDeletePath>>;
using UniqueGdipPen = unique_handle<GivenBackBy<Gdiplus::GpPen*, &Gdiplus::DllExports::GdipDeletePen>>;
using UniqueGdipSolidFill =
    unique_handle<GivenBackBy<Gdiplus::GpSolidFill*, &Gdiplus::DllExports::GdipDeleteBrush>>;

} // namespace ovlib
