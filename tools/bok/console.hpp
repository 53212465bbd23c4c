// What a terminal needs before a program can talk to it in UTF-8.
#pragma once

namespace bok {

enum class StandardStream { in, out, err };

bool is_terminal(StandardStream stream);

// Bytes pass unchanged and a terminal takes them as UTF-8 while this lives.
class ConsoleSetup {
public:
    ConsoleSetup();
    ConsoleSetup(const ConsoleSetup&) = delete;
    ConsoleSetup& operator=(const ConsoleSetup&) = delete;
    ~ConsoleSetup();

private:
    [[maybe_unused]] unsigned old_code_page_ = 0; // of a Windows console
};

} // namespace bok
