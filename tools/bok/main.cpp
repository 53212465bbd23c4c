#include "platform/text.hpp"
#include "tools/bok/console.hpp"
#include "tools/bok/run.hpp"
#include <cstdio>
#include <exception>
#include <iostream>

namespace {

int run_on_console(const std::vector<std::string>& arguments)
{
    const unsigned code_page = bok::prepare_console();
    std::ios::sync_with_stdio(false);
    bok::Streams streams{ std::cin, std::cout, std::cerr, bok::is_terminal(bok::StandardStream::in),
        bok::is_terminal(bok::StandardStream::out), bok::is_terminal(bok::StandardStream::err) };
    const int code = bok::run(arguments, streams);
    const bool is_written = static_cast<bool>(std::cout.flush());
    bok::restore_console(code_page);
    return is_written ? code : bok::exit_problem;
}

// An exception that left main would end the process without a message and with an undefined exit code.
template <class Character, class Convert> int guarded(int count, Character** words, Convert convert) noexcept
{
    try {
        std::vector<std::string> arguments;
        for (int i = 1; i < count; ++i)
            arguments.push_back(convert(words[i]));
        return run_on_console(arguments);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bok: %s\n", error.what());
    } catch (...) {
        std::fputs("bok: unknown failure\n", stderr);
    }
    return bok::exit_problem;
}

} // namespace

#if defined(_WIN32)
int wmain(int count, wchar_t** words)
{
    return guarded(count, words, [](const wchar_t* word) { return platform::to_utf8(word); });
}
#else
int main(int count, char** words)
{
    return guarded(count, words, [](const char* word) { return std::string(word); });
}
#endif
