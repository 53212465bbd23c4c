// The texts that go into file dialogs and come out of them.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace ovlib {

struct FileFilter {
    std::wstring name; // "Book Files"
    std::wstring pattern; // "*.bok"
};

// Name and pattern of each filter, each ended by a null: what the older dialogs take, once one more null
// follows.
std::wstring filter_text(const std::vector<FileFilter>& filters);

// The paths in the buffer of an older dialog that has been answered: one full path, or with `multiple` a
// folder and then names, each ended by a null, the last by two or by the end of the buffer.
std::vector<std::wstring> chosen_paths(std::wstring_view buffer, bool multiple);

} // namespace ovlib
