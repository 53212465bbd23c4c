// The strings of the common file dialogs: filters and results.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace ovlib {

struct FileFilter {
    std::wstring name; // "Book Files"
    std::wstring pattern; // "*.bok"
};

// The filter string of OPENFILENAME: name and pattern of each filter, each ended by a null. The caller's
// string terminator is the final null that the dialog needs.
std::wstring filter_text(const std::vector<FileFilter>& filters);

// The paths in the result buffer of OPENFILENAME: one full path, or with `multiple` a folder and then file
// names. Each is ended by a null, the last one by two or by the end of the buffer.
std::vector<std::wstring> chosen_paths(std::wstring_view buffer, bool multiple);

} // namespace ovlib
