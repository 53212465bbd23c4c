// What a terminal needs before a program can talk to it in UTF-8.
#pragma once

namespace bok {

enum class StandardStream { in, out, err };

bool is_terminal(StandardStream stream);

// From here on bytes pass unchanged and a terminal takes them as UTF-8. Answers what restore_console wants
// back, for a console outlives the programs that write to it.
unsigned prepare_console();
void restore_console(unsigned code_page);

} // namespace bok
