// Folders that the shell knows.
#pragma once
#include <string>

namespace app {

// The user's desktop; empty when the shell does not tell.
std::wstring desktop_folder();

} // namespace app
