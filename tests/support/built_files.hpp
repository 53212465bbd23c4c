// Paths of built and committed files, in the form of the system that runs the test.
#pragma once
#include <string>
#include <string_view>

namespace test_support {

// Converts a UTF-8 path from the build tool or the environment. For a Windows program under Wine the root is
// drive Z.
std::wstring system_path(std::string_view path);

// `below` begins with a slash, or is empty for the folder itself.
std::wstring dist_path(std::wstring_view below = {}); // a complete data root beside the program
std::wstring resource_path(std::wstring_view below = {}); // the committed pictures
std::wstring artifacts_path(std::wstring_view below = {}); // files kept from failed tests
std::wstring recorder_path(); // the program that records its command line
std::wstring sample_path(); // the sample Book as JSON

} // namespace test_support
