#include "tools/bok/console.hpp"
#include <unistd.h>

namespace bok {

bool is_terminal(StandardStream stream)
{
    return isatty(static_cast<int>(stream)) == 1;
}

unsigned prepare_console()
{
    return 0;
}

void restore_console(unsigned) { }

} // namespace bok
