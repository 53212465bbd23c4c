#include "ovlib/gui/com_object.hpp"

namespace ovlib {

FORMATETC memory_format(CLIPFORMAT format, LONG index)
{
    return { format, nullptr, DVASPECT_CONTENT, index, TYMED_HGLOBAL };
}

// What a failed call leaves in the record belongs to nobody.
bool StorageMedium::get(IDataObject& source, FORMATETC format)
{
    const bool is_there = SUCCEEDED(source.GetData(&format, &medium_));
    if (!is_there)
        medium_ = {};
    return is_there;
}

GlobalBlock::GlobalBlock(HGLOBAL memory)
    : memory_(memory)
    , start_(memory != nullptr ? GlobalLock(memory) : nullptr)
{
    if (start_ != nullptr)
        bytes_ = { static_cast<const std::byte*>(start_), GlobalSize(memory) };
}

GlobalBlock::~GlobalBlock()
{
    if (start_ != nullptr)
        GlobalUnlock(memory_);
}

} // namespace ovlib
