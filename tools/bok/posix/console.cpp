#include "tools/bok/console.hpp"
#include <unistd.h>

namespace bok {

bool is_terminal(StandardStream stream)
{
    return isatty(static_cast<int>(stream)) == 1;
}

ConsoleSetup::ConsoleSetup()
{
    static_cast<void>(old_code_page_); // terminals here have none
}

ConsoleSetup::~ConsoleSetup() = default;

} // namespace bok
