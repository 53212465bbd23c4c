// Properties of every import, whatever its text. Shared by the fuzz targets.
#pragma once
#include "book/book_file.hpp"
#include "tests/fuzz/stable.hpp"
#include "tests/support/memory_stream.hpp"
#include "tools/bok/json_book.hpp"
#include "tools/bok/progress.hpp"
#include "tools/bok/sink.hpp"
#include <sstream>

namespace test_support {

using fuzz::require;

// Streams that discard all output.
struct SilentStreams {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    bok::Streams streams{ in, out, err };
    bok::Progress progress{ streams, "" };
};

inline std::vector<std::byte> saved(book::Book& book)
{
    MemorySink sink;
    book::write_book(book, sink);
    return sink.bytes;
}

inline book::Book loaded(std::vector<std::byte> bytes)
{
    MemorySource source(std::move(bytes));
    book::Book book;
    std::wstring error;
    require(book::load_book(book, source, L"x", error, {}));
    return book;
}

template <class Export> std::string exported(const book::Book& book, Export export_book)
{
    SilentStreams silent;
    std::ostringstream out;
    const auto sink = bok::open_sink(out);
    export_book(book, *sink, silent.progress);
    sink->finish();
    return out.str();
}

// Checks that an imported Book can be saved and opened again with all its pages, and that its JSON is stable
// from then on.
inline book::Book check_imported(book::Book& book)
{
    const std::size_t pages = book.pages.size();
    book::Book reloaded = loaded(saved(book));
    require(reloaded.pages.size() == pages);
    const std::string json = exported(reloaded, bok::export_json);
    const std::vector<std::byte> bytes = saved(reloaded);
    SilentStreams silent;
    book::Book back;
    bok::import_json(json, back, silent.progress);
    require(saved(back) == bytes);
    return reloaded;
}

} // namespace test_support
