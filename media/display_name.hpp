// The short name of a file list entry, for places without room for its path.
#pragma once
#include "media/path_answers.hpp"
#include <string>

namespace media {

// The file name of an entry that is a regular file or a folder; any other entry unchanged, such as an
// address, a missing file or a path on a share that does not answer. A relative entry counts from the current
// directory.
std::wstring display_name(const std::wstring& entry, PathAnswers& paths);
std::wstring display_name(const std::wstring& entry);

} // namespace media
