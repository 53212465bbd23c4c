// Finds the problems of a Book's file line by line, without loading it.
#pragma once
#include "book/book_file.hpp"
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace bok {

struct Finding {
    std::optional<std::uint64_t> page; // stored index; nullopt for the file as a whole
    std::uint64_t line = 0; // of the file, from 1; 0 for no line
    std::string what; // English, one line
    bool stops_loading = false;
};

struct Inspection {
    book::HeaderStatus header = book::HeaderStatus::unreadable;
    std::uint64_t pages = 0; // complete ones
    std::uint64_t tabs = 0;
    std::uint64_t marks = 0;
    std::uint64_t findings = 0;
};

using Report = std::function<void(const Finding&)>;

// Calls `report` for each finding in file order. `size` is the file's size in bytes; `progress` is called
// with the number of bytes read so far.
Inspection inspect(book::ByteSource& source, std::uint64_t size, const Report& report,
    const std::function<void(std::uint64_t)>& progress = {});

// Reports every header value that is out of range, for a Book of `pages` pages.
void inspect_header(const book::BookHeader& header, std::uint64_t pages,
    const std::function<void(const std::string&)>& report);

// The finding as shown to the user: "page index 12 (line 345): ...".
std::string text_of(const Finding& finding);

} // namespace bok
