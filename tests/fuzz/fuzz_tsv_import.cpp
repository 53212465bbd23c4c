// A table is either refused with a place, or makes a Book that can be opened again and gives the same table.
#include "tests/support/import_checks.hpp"
#include "tools/bok/tsv.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace test_support;
    SilentStreams silent;
    book::Book book;
    try {
        bok::import_tsv({ reinterpret_cast<const char*>(data), size }, book, silent.progress);
    } catch (const bok::TsvError&) {
        return 0;
    }
    book::Book reloaded = check_imported(book);
    const std::string table = exported(reloaded, bok::export_tsv);
    book::Book back;
    bok::import_tsv(table, back, silent.progress);
    require(exported(back, bok::export_tsv) == table);
    return 0;
}
