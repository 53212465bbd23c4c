// What the build has made and what the repository holds, as paths of the system that runs the test.
#pragma once
#include <string>
#include <string_view>

namespace test_support {

// A path that the build tool or the environment writes, in UTF-8; a Windows program finds the root as drive
// Z.
std::wstring system_path(std::string_view path);

// `below` begins with a slash, or is empty for the folder itself.
std::wstring dist_path(std::wstring_view below = {}); // a complete data root beside the program
std::wstring resource_path(std::wstring_view below = {}); // the committed pictures
std::wstring artifacts_path(std::wstring_view below = {}); // what a failed test leaves behind
std::wstring recorder_path(); // the program that writes down how it was started
std::wstring sample_path(); // the sample Book as JSON

} // namespace test_support
