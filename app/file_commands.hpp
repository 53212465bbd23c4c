// What the commands on a page's file list do. None of them saves, touches the stamp or asks the file system.
// Each answers whether there was something to do.
#pragma once
#include "book/page.hpp"
#include <cstdint>
#include <string>
#include <vector>

namespace app {

// The selected entry; null when the list is empty.
const std::wstring* current_entry(const book::Page& page);

// What the combo box and the commands 2532 to 2535 select. There is no wrapping at either end.
bool select_file(book::Page& page, std::uint64_t place);
bool select_file_by(book::Page& page, int command);

// The commands 2536 to 2539: the entry moves as far as the list reaches, and the selection goes with it.
bool move_file(book::Page& page, int command);

// The entry that follows is selected then, or the last.
bool remove_file(book::Page& page);
bool remove_all_files(book::Page& page);

// The first of the new entries is selected.
bool append_files(book::Page& page, const std::vector<std::wstring>& entries);

enum class FileOrder { ascending, descending };

// In the user's linguistic order of the whole entries. The selection keeps its place, not its entry.
bool sort_files(book::Page& page, FileOrder order);

} // namespace app
