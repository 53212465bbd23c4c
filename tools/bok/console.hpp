// Prepares the console for UTF-8.
#pragma once

namespace bok {

enum class StandardStream { in, out, err };

bool is_terminal(StandardStream stream);

// After this the standard streams pass bytes unchanged and the terminal reads them as UTF-8. Returns the old
// code page for restore_console: a Windows console keeps its code page after the program ends.
unsigned prepare_console();
void restore_console(unsigned code_page);

} // namespace bok
