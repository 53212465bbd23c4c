#include "media/entry_list.hpp"

namespace media {

EntryList::EntryList(std::initializer_list<std::wstring_view> entries)
{
    for (const std::wstring_view entry : entries)
        push_back(entry);
}

EntryList::EntryList(const std::vector<std::wstring>& entries)
{
    std::size_t units = 0;
    for (const std::wstring& entry : entries)
        units += entry.size();
    reserve(entries.size(), units);
    for (const std::wstring& entry : entries)
        push_back(entry);
}

void EntryList::reserve(std::size_t entries, std::size_t units)
{
    ends_.reserve(ends_.size() + entries);
    units_.reserve(units_.size() + units);
}

void EntryList::push_back(std::wstring_view entry)
{
    units_ += entry;
    ends_.push_back(units_.size());
}

std::wstring_view EntryList::operator[](std::size_t index) const
{
    const std::size_t start = index == 0 ? 0 : ends_[index - 1];
    return std::wstring_view{ units_ }.substr(start, ends_[index] - start);
}

} // namespace media
