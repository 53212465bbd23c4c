// What an entry of a file list is called where there is no room for its path.
#pragma once
#include "media/path_answers.hpp"
#include <string>

namespace media {

// The name of a regular file or a folder; anything else, addresses and missing files included, as it stands.
// A relative entry counts from the current directory. What lies on a share that does not answer stands as it
// is.
std::wstring display_name(const std::wstring& entry, PathAnswers& paths);
std::wstring display_name(const std::wstring& entry);

} // namespace media
