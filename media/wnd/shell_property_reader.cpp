#include "media/wnd/shell_property_reader.hpp"
#include <algorithm>
#include <iterator>
#include <propvarutil.h>

namespace media {

namespace {

PROPERTYKEY key_of(FileProperty property)
{
    const PropertyKeyName& name = property_keys[static_cast<std::size_t>(property)];
    PROPERTYKEY key{ { name.data1, name.data2, name.data3, {} }, name.number };
    std::ranges::copy(name.data4, std::begin(key.fmtid.Data4));
    return key;
}

// One value of a property store, released with its scope.
class StoredValue {
public:
    StoredValue(IPropertyStore& store, FileProperty property)
    {
        PropVariantInit(&value_);
        if (FAILED(store.GetValue(key_of(property), &value_)))
            clear();
    }
    StoredValue(const StoredValue&) = delete;
    StoredValue& operator=(const StoredValue&) = delete;
    ~StoredValue() { clear(); }

    const PROPVARIANT& get() const { return value_; }

private:
    void clear() { PropVariantClear(&value_); }

    PROPVARIANT value_;
};

} // namespace

PropertyValue stored_property(IPropertyStore& store, FileProperty property)
{
    const StoredValue stored{ store, property };
    const PROPVARIANT& from = stored.get();
    PropertyValue value;
    value.type = from.vt;
    if (from.vt == PropertyValue::texts_vector) {
        for (ULONG i = 0; i < from.calpwstr.cElems; ++i)
            value.texts.emplace_back(from.calpwstr.pElems[i]);
    } else {
        // Copies the union as 64 bits; value.type determines how to interpret them.
        value.bits = from.uhVal.QuadPart;
    }
    return value;
}

std::uint64_t stored_duration(IPropertyStore& store)
{
    const StoredValue stored{ store, FileProperty::duration };
    ULONGLONG ticks = 0;
    return SUCCEEDED(PropVariantToUInt64(stored.get(), &ticks)) ? ticks : 0;
}

bool ShellPropertyReader::open(const std::wstring& path)
{
    close();
    if (FAILED(SHCreateItemFromParsingName(path.c_str(), nullptr, IID_PPV_ARGS(&item_)))
        || FAILED(item_->GetPropertyStore(GPS_DEFAULT, IID_PPV_ARGS(&store_))) || !store_) {
        close();
        return false;
    }
    path_ = path;
    opened_ = true;
    return true;
}

void ShellPropertyReader::close()
{
    store_.Reset();
    item_.Reset();
    path_.clear();
    opened_ = false;
}

PropertyValue ShellPropertyReader::read(FileProperty property)
{
    return opened_ ? stored_property(*store_.Get(), property) : PropertyValue{};
}

std::uint64_t ShellPropertyReader::read_duration()
{
    return opened_ ? stored_duration(*store_.Get()) : 0;
}

} // namespace media
