// What the commands on a page's file list and reference folder do. The first half changes a page alone: it
// does not save, touch the stamp or ask the file system, and says whether there was something to do. The
// second half is the commands themselves, with their questions.
#pragma once
#include "app/book_session.hpp"
#include "book/page.hpp"
#include <cstdint>
#include <functional>
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

// Shows a dialog; nothing when it was left.
using ChoosePaths = std::function<std::vector<std::wstring>()>;
using ChooseCopy = std::function<std::wstring(const std::wstring& source)>;

core::Outcome select_file_by(BookSession& session, int command);
core::Outcome select_file(BookSession& session, std::int64_t row); // a negative row is none
core::Outcome move_file(BookSession& session, int command);
core::Outcome sort_files(BookSession& session, int command); // 2541 or 2542
core::Outcome remove_file(BookSession& session);
core::Outcome remove_all_files(BookSession& session);
// The chosen paths; empty when none were added, also when another page was there after the dialog.
std::vector<std::wstring> add_files(BookSession& session, const ChoosePaths& choose);
// Copies the file of the selected entry to a chosen path and reports it.
core::Outcome duplicate_file(BookSession& session, const ChooseCopy& choose);

core::Outcome choose_folder(BookSession& session, const ChoosePaths& choose);
core::Outcome clear_folder(BookSession& session);

} // namespace app
