// Runs bok inside a process, for main and for tests.
#pragma once
#include "tools/bok/streams.hpp"
#include <string>
#include <vector>

namespace bok {

// `arguments` are UTF-8, without the program's own name. Returns the exit code: 0 done, 1 the Book has a
// problem, 2 usage. Writes an error as one line to the error stream; throws nothing.
int run(const std::vector<std::string>& arguments, Streams& streams);

} // namespace bok
