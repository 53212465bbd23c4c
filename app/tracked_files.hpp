// The files that a Book names, for those who find moved files again.
#pragma once
#include "app/page_note.hpp"
#include <string>
#include <vector>

namespace app {

// Every entry of every page in stored order, as it stands: addresses and repetitions included.
std::vector<std::wstring> every_entry(const book::Book& book);

// Puts `path` in the place of the noted entry; false when that no longer stands. The stamp stays.
bool replace_entry(book::Book& book, const EntryNote& note, const std::wstring& path);

} // namespace app
