// Reads any bytes as a history. No entry is empty, and what was written comes back.
#include "book/history_list.hpp"
#include "book/page_text.hpp"
#include "tests/fuzz/blocks.hpp"
#include "tests/fuzz/stable.hpp"

namespace {

using Entries = std::vector<std::wstring>;

Entries read_back(const Entries& entries)
{
    test_support::MemorySink sink;
    book::LineWriter writer(sink);
    book::write_history(entries, writer);
    test_support::MemorySource source(sink.bytes);
    return book::read_history(source);
}

// Each reading takes marks and blanks from the front of an entry, until none is left there.
bool is_settled(const Entries& entries)
{
    return std::ranges::all_of(entries, [](const std::wstring& entry) {
        return !entry.starts_with(book::byte_order_mark)
            && book::trimmed(std::wstring_view(entry), book::TrimMode::both).size() == entry.size()
            && entry.find(L"\r\n") == std::wstring::npos && entry.back() != L'\r';
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    test_support::MemorySource source = fuzz::in_blocks(data, size);
    const Entries entries = book::read_history(source);
    for (const std::wstring& entry : entries)
        fuzz::require(!entry.empty());
    if (is_settled(entries))
        fuzz::require(read_back(entries) == entries);
    return 0;
}
