// A list of texts in one piece of memory: copying and freeing 200,000 entries costs two allocations.
#pragma once
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace media {

class EntryList {
public:
    EntryList() = default;
    EntryList(std::initializer_list<std::wstring_view> entries);
    EntryList(
        const std::vector<std::wstring>& entries); // NOLINT(google-explicit-constructor): the same texts

    // Makes room for so many further entries with so many units in total.
    void reserve(std::size_t entries, std::size_t units);
    void push_back(std::wstring_view entry);

    bool empty() const { return ends_.empty(); }
    std::size_t size() const { return ends_.size(); }
    // Valid until the list changes.
    std::wstring_view operator[](std::size_t index) const;

    friend bool operator==(const EntryList&, const EntryList&) = default;

private:
    std::wstring units_; // of all entries, one after the other
    std::vector<std::size_t> ends_; // of each entry, in units_
};

} // namespace media
