// What check says of a file and what loading makes of it agree, and convert leaves a Book that can be kept.
#include "tests/support/import_checks.hpp"
#include "tools/bok/inspect.hpp"
#include "tools/bok/mend.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace test_support;
    const auto* first = reinterpret_cast<const std::byte*>(data);
    const std::vector<std::byte> bytes(first, first + size);

    bool stops_loading = false;
    MemorySource checked(bytes);
    const bok::Inspection inspection = bok::inspect(checked, size, [&](const bok::Finding& finding) {
        stops_loading = stops_loading || finding.stops_loading;
        require(!bok::text_of(finding).empty());
    });

    book::Book book;
    std::wstring error;
    MemorySource strict(bytes);
    const bool is_loaded = book::load_book(book, strict, L"x", error, {});
    require(is_loaded != stops_loading);
    if (is_loaded)
        require(book.pages.size() == inspection.pages);
    if (is_loaded && inspection.findings == 0)
        check_imported(book);

    book::Book mended;
    MemorySource lenient(bytes);
    if (!book::load_book(mended, lenient, L"x", error, [](const std::wstring&) { return true; }))
        return 0;
    for (book::Page& page : mended.pages)
        bok::mend_page(page, [](const std::string&) {});
    check_imported(mended);
    return 0;
}
