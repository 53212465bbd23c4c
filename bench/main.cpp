// bench [--book FILE] [--scratch FILE] [--outside NAME=MS]… [--only SUITE]… [--tsv] [--quietest]
#include "bench/harness.hpp"
#include "platform/text.hpp"
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <span>

namespace {

constexpr bench::Suite suites[] = {
    { "load_save", bench::run_load_save },
    { "search", bench::run_search },
    { "order", bench::run_order },
    { "tabs", bench::run_tabs },
    { "edits", bench::run_edits },
#if defined(_WIN32)
    { "paint", bench::run_paint },
    { "start", bench::run_start },
    { "pages", bench::run_pages },
    { "typing", bench::run_typing },
    { "media", bench::run_media },
    { "links", bench::run_links },
    { "drops", bench::run_drops },
    { "windows", bench::run_windows },
#endif
};

constexpr int usage_error = 2;

bool read_outside(const std::string& text, bench::Options& options)
{
    const std::size_t sign = text.rfind('=');
    if (sign == std::string::npos)
        return false;
    options.outside[text.substr(0, sign)] = std::strtod(text.c_str() + sign + 1, nullptr);
    return true;
}

bool read_options(std::span<const std::string> arguments, bench::Options& options)
{
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& name = arguments[i];
        if (name == "--tsv") {
            options.tab_separated = true;
            continue;
        }
        if (name == "--quietest") {
            options.quietest = true;
            continue;
        }
        if (++i == arguments.size())
            return false;
        if (name == "--book")
            options.book = platform::from_utf8(arguments[i]);
        else if (name == "--scratch")
            options.scratch = platform::from_utf8(arguments[i]);
        else if (name == "--only")
            options.only.push_back(arguments[i]);
        else if (name != "--outside" || !read_outside(arguments[i], options))
            return false;
    }
    return true;
}

int run(std::span<const std::string> arguments)
{
    bench::Options options;
    options.book = L"build/big/edict.bok";
    options.scratch = L"build/big/scratch.bok";
    if (!read_options(arguments, options)) {
        std::fprintf(stderr,
            "usage: bench [--book FILE] [--scratch FILE] [--outside NAME=MS]... [--only SUITE]... [--tsv] "
            "[--quietest]\n");
        return usage_error;
    }
    const std::vector<std::string> only = options.only;
    try {
        bench::Bench bench(std::move(options));
        for (const bench::Suite& suite : suites)
            if (only.empty() || std::find(only.begin(), only.end(), suite.name) != only.end())
                suite.run(bench);
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "bench: %s\n", problem.what());
        return 1;
    }
    return 0;
}

} // namespace

#if defined(_WIN32)
int wmain(int argc, wchar_t** argv)
{
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i)
        arguments.push_back(platform::to_utf8(argv[i]));
    return run(arguments);
}
#else
int main(int argc, char** argv)
{
    return run(std::vector<std::string>(argv + 1, argv + argc));
}
#endif
