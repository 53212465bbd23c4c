// The streams, exit codes and errors of the commands.
#pragma once
#include <iosfwd>
#include <stdexcept>

namespace bok {

struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool in_is_terminal = false;
    bool out_is_terminal = false;
    bool err_is_terminal = false;
};

inline constexpr int exit_done = 0;
inline constexpr int exit_problem = 1;
inline constexpr int exit_usage = 2;

// The command cannot be carried out. The text is UTF-8.
class Problem : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The command line was not understood.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace bok
