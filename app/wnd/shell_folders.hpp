// Folders known to the shell.
#pragma once
#include <string>

namespace app {

// The user's desktop folder; empty if the shell returns none.
std::wstring desktop_folder();

} // namespace app
