// The name under which an attachment is proposed to the user.
#pragma once
#include <string>
#include <string_view>

namespace media {

// A name that names a file in the chosen folder and nothing else, whatever the source proposes: without
// folders, characters that no file name may contain, characters that change the direction of the text, and
// names of devices. Never empty; at most 200 units. Ordinary names pass unchanged.
std::wstring attachment_name(std::wstring_view proposed);

} // namespace media
