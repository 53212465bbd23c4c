// The commands on a page's file list and reference folder. The functions of the first half change only the
// page: they do not save, change the stamp or query the file system, and return whether there was something
// to do. The functions of the second half are the commands themselves, with their questions.
#pragma once
#include "app/book_session.hpp"
#include "book/page.hpp"
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace app {

// For the combo box and for commands 2532 to 2535. The selection does not wrap at either end.
bool select_file(book::Page& page, std::uint64_t place);
bool select_file_by(book::Page& page, int command);

// Commands 2536 to 2539: the entry moves as far as the list reaches, and stays selected.
bool move_file(book::Page& page, int command);

// The next entry is selected afterwards, or the last one.
bool remove_file(book::Page& page);
bool remove_all_files(book::Page& page);

// The first of the new entries is selected afterwards.
bool append_files(book::Page& page, const std::vector<std::wstring>& entries);

enum class FileOrder { ascending, descending };

// Sorts whole entries in the user's linguistic order. The selected index stays, so another entry may be
// selected.
bool sort_files(book::Page& page, FileOrder order);

// Show a dialog; the result is empty if the user cancelled.
using ChoosePaths = std::function<std::vector<std::wstring>()>;
using ChooseCopy = std::function<std::wstring(const std::wstring& source)>;

// Before a command changes the list while its editor holds edits, which the next apply would put in the place
// of that change: asks whether to apply them. Yes applies, no drops them; false for cancel, if another page
// is there after the question, and if there is no page to apply them to. The commands below that change the
// list begin with it, and so does closing the editor.
bool may_change_list(BookSession& session);

core::Outcome select_file_by(BookSession& session, int command);
core::Outcome select_file(BookSession& session, std::int64_t row); // a negative row selects nothing
core::Outcome move_file(BookSession& session, int command);
core::Outcome sort_files(BookSession& session, int command); // 2541 or 2542
core::Outcome remove_file(BookSession& session);
core::Outcome remove_all_files(BookSession& session);
// The added paths. Empty if none were added, also if the page was another one after the dialog.
std::vector<std::wstring> add_files(BookSession& session, const ChoosePaths& choose);
// The same with files that were dropped on the window.
std::vector<std::wstring> add_dropped_files(BookSession& session, std::vector<std::wstring> files);
// Copies the file of the selected entry to a path that the user chooses, and reports it.
core::Outcome duplicate_file(BookSession& session, const ChooseCopy& choose);

// Applies the text of the list's editor if it was edited, and marks the editor unedited.
core::Outcome apply_typed_list(BookSession& session);
// Makes a list of the text of the list's editor, for the page in the boxes. Neither saves nor changes the
// stamp; the editor's box counts as unedited only after the caller says so.
core::Outcome apply_file_list(BookSession& session, std::wstring text);
// The entry of a search hit becomes the selected one. Fails for a hit in a box, an entry that is gone and the
// one that is selected already.
core::Outcome select_file_of_hit(BookSession& session, const book::SearchHit& hit);

core::Outcome choose_folder(BookSession& session, const ChoosePaths& choose);
core::Outcome clear_folder(BookSession& session);

} // namespace app
