// Reads any bytes as a history. No entry is empty, and what was written comes back.
#include "book/history_list.hpp"
#include "book/text.hpp"
#include "tests/fuzz/stable.hpp"
#include "tests/support/memory_stream.hpp"

namespace {

using Entries = std::vector<std::wstring>;

Entries read_back(const Entries& entries)
{
    test_support::MemorySink sink;
    book::write_history(entries, sink);
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

// The first byte chooses the sizes of the blocks.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const auto bytes = std::as_bytes(std::span(data + 1, size - 1));
    std::vector<std::size_t> block_sizes;
    if (data[0] != 0)
        block_sizes = { std::size_t{ data[0] } + 1, std::size_t{ data[0] } * 2 };
    test_support::MemorySource source({ bytes.begin(), bytes.end() }, block_sizes);
    const Entries entries = book::read_history(source);
    for (const std::wstring& entry : entries)
        fuzz::require(!entry.empty());
    if (is_settled(entries))
        fuzz::require(read_back(entries) == entries);
    return 0;
}
