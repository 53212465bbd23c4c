// JSON is either refused with a place, or makes a Book that can be opened again.
#include "tests/support/import_checks.hpp"
#include "tools/bok/json_reader.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    test_support::SilentStreams silent;
    book::Book book;
    try {
        bok::import_json({ reinterpret_cast<const char*>(data), size }, book, silent.progress);
    } catch (const bok::JsonError&) {
        return 0;
    }
    test_support::check_imported(book);
    return 0;
}
