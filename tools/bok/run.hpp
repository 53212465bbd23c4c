// The commands of bok, callable without a process.
#pragma once
#include "tools/bok/streams.hpp"
#include <string>
#include <vector>

namespace bok {

// `arguments` are UTF-8, without the program's own name. Answers the exit code: 0 done, 1 the Book has a
// problem, 2 usage. A problem is told in one line on the error stream; nothing is thrown.
int run(const std::vector<std::string>& arguments, Streams& streams);

} // namespace bok
