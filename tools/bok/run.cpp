#include "tools/bok/run.hpp"
#include "book/my_exception.hpp"
#include "platform/text.hpp"
#include "tools/bok/commands.hpp"
#include "tools/bok/options.hpp"
#include "tools/bok/utf8.hpp"
#include <algorithm>
#include <array>
#include <new>
#include <ostream>

namespace bok {

namespace {

struct Command {
    std::string_view name;
    std::string_view operands;
    std::string_view summary;
    std::size_t operand_count;
    std::span<const OptionRule> rules;
    int (*run)(const Options&, Streams&);
};

constexpr OptionRule json_rule{ "--json", "", "one JSON object per line instead of a table" };
constexpr OptionRule output_rule{ "-o", "FILE", "the Book to write", true };

constexpr std::array info_rules{ OptionRule{ "--json", "", "one JSON object" } };
constexpr std::array pages_rules{
    OptionRule{ "--range", "A-B", "positions A to B, counted from 0; without B, to the end" },
    json_rule,
};
constexpr std::array order_rules{
    OptionRule{ "--mode", "MODE", "stored, sorted or random, forward unless --reverse" },
    OptionRule{ "--reverse", "", "backward; without --mode, opposite to the Book" },
    OptionRule{ "--key", "KEY", "sort key, 3000 to 3005" },
    OptionRule{ "--seed", "N", "seed of the random order" },
    OptionRule{ "--json", "", "one JSON array of stored indices" },
};
constexpr std::array find_rules{
    OptionRule{ "--all", "", "all terms must match instead of any" },
    OptionRule{ "--ignore-case", "", "ignore upper and lower case" },
    OptionRule{ "--files", "", "search the file lists too" },
    OptionRule{ "--track-marks", "", "pages with a mark match too" },
    OptionRule{ "--track-tabs", "", "pages with a tab match too" },
    json_rule,
};
constexpr std::array convert_rules{
    output_rule,
    OptionRule{ "--yes", "", "do not ask" },
};
constexpr std::array import_rules{
    OptionRule{ "--from", "FORMAT", "tsv or json", true },
    output_rule,
};
constexpr std::array export_rules{
    OptionRule{ "--to", "FORMAT", "tsv, json, markdown or html", true },
    OptionRule{ "-o", "FILE", "the file to write instead of standard output" },
};

constexpr std::array commands{
    Command{ "info", "BOOK", "contents and settings of the Book", 1, info_rules, run_info },
    Command{ "pages", "BOOK", "the pages in display order", 1, pages_rules, run_pages },
    Command{ "order", "BOOK", "the stored indices in display order", 1, order_rules, run_order },
    Command{ "find", "BOOK QUERY", "the matching pages and their hits", 2, find_rules, run_find },
    Command{ "check", "BOOK", "problems of the file, page by page", 1, {}, run_check },
    Command{ "convert", "BOOK", "read an older or damaged Book, write the current format", 1, convert_rules,
        run_convert },
    Command{ "import", "FILE", "make a Book; FILE may be - for standard input", 1, import_rules, run_import },
    Command{ "export", "BOOK", "write the Book in another format", 1, export_rules, run_export },
};

void print_usage(std::ostream& out)
{
    out << "bok, the companion of Pagewick\n\nusage: bok COMMAND ...\n\n";
    for (const Command& command : commands) {
        std::string call = std::string(command.name) + ' ' + std::string(command.operands);
        call.resize(std::max<std::size_t>(call.size(), 17), ' ');
        out << "  bok " << call << ' ' << command.summary << '\n';
    }
    out << "\n`bok COMMAND --help` lists its options. Positions and indices count from 0; text is UTF-8.\n"
           "Exit codes: 0 done, 1 the Book has a problem, 2 usage.\n";
}

void print_usage(const Command& command, std::ostream& out)
{
    out << "usage: bok " << command.name << ' ' << command.operands
        << (command.rules.empty() ? "" : " [options]") << "\n\n"
        << command.summary << "\n";
    if (!command.rules.empty())
        out << '\n';
    for (const OptionRule& rule : command.rules) {
        std::string call = std::string(rule.name) + (rule.value.empty() ? "" : " ") + std::string(rule.value);
        call.resize(std::max<std::size_t>(call.size(), 16), ' ');
        out << "  " << call << ' ' << rule.help << (rule.required ? " (required)" : "") << '\n';
    }
}

bool asks_for_help(std::string_view word)
{
    return word == "--help" || word == "-h";
}

// After the word "--", a query may itself be "--help".
bool has_help(std::span<const std::string> words)
{
    return std::find_if(words.begin(), std::ranges::find(words, "--"), asks_for_help)
        != std::ranges::find(words, "--");
}

int dispatch(const std::vector<std::string>& arguments, Streams& streams)
{
    if (arguments.empty())
        throw UsageError("a command is missing");
    const std::string& name = arguments.front();
    if (asks_for_help(name) || name == "help") {
        print_usage(streams.out);
        return exit_done;
    }
    const auto command = std::ranges::find(commands, std::string_view(name), &Command::name);
    if (command == commands.end())
        throw UsageError("unknown command " + name);
    const std::span<const std::string> words = std::span(arguments).subspan(1);
    if (has_help(words)) {
        print_usage(*command, streams.out);
        return exit_done;
    }
    return command->run(parse_options(words, command->rules, command->operand_count), streams);
}

int complain(Streams& streams, int code, std::string_view reason)
{
    streams.err << "bok: " << printable(reason) << std::endl;
    return code;
}

} // namespace

int run(const std::vector<std::string>& arguments, Streams& streams)
{
    try {
        return dispatch(arguments, streams);
    } catch (const UsageError& error) {
        return complain(
            streams, exit_usage, std::string(error.what()) + " (`bok --help` lists the commands)");
    } catch (const Problem& problem) {
        return complain(streams, exit_problem, problem.what());
    } catch (const MyException& problem) { // no std::exception
        return complain(streams, exit_problem, platform::to_utf8(problem.message));
    } catch (const std::bad_alloc&) {
        return complain(streams, exit_problem, "not enough memory");
    } catch (const std::exception& problem) {
        return complain(streams, exit_problem, problem.what());
    }
}

} // namespace bok
