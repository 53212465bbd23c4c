// Reads any bytes as the header of a Book, and any digits as its record.
#include "book/book_file.hpp"
#include "book/header_text.hpp"
#include "tests/fuzz/stable.hpp"
#include "tests/support/memory_stream.hpp"

namespace {

void check_lines(const std::vector<std::byte>& bytes)
{
    test_support::MemorySource source(bytes);
    book::LineReader reader(source);
    book::BookHeader header;
    header.seed = 77;
    const book::BookHeader before = header;
    if (book::read_header(reader, header) != book::HeaderStatus::good)
        fuzz::require(header == before);
}

void check_digits(const std::vector<std::byte>& bytes)
{
    std::wstring digits;
    for (const std::byte byte : bytes)
        digits += std::to_integer<wchar_t>(byte);
    const auto header = book::header_from_text(digits);
    if (!header)
        return;
    const std::string text = book::header_text(*header);
    const std::wstring again(text.begin(), text.end());
    fuzz::require(book::header_from_text(again) == header);
    fuzz::require(again.size() == digits.size());
    fuzz::require(book::order_magnitude(*header) >= 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto raw = std::as_bytes(std::span(data, size));
    const std::vector<std::byte> bytes(raw.begin(), raw.end());
    check_lines(bytes);
    check_digits(bytes);
    return 0;
}
