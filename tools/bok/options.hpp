// Parses a command line by a command's option rules.
//
// Our own and not getopt, which Visual Studio's library does not have. The same rules also print the help and
// give the exact error texts.
#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace bok {

struct OptionRule {
    std::string_view name; // with its dashes
    std::string_view value; // placeholder of its value in the help; empty for a switch
    std::string_view help;
    bool required = false;
};

// The options and operands that were given, checked against the rules.
class Options {
public:
    bool has(std::string_view name) const;
    // Empty if the option was not given.
    std::string value(std::string_view name) const;
    // nullopt if the option was not given. Throws UsageError if the value is no number from `least` to
    // `most`.
    std::optional<std::uint64_t> number(std::string_view name, std::uint64_t least, std::uint64_t most) const;
    const std::string& operand(std::size_t index) const { return operands_[index]; }

private:
    friend Options parse_options(std::span<const std::string>, std::span<const OptionRule>, std::size_t);
    std::map<std::string, std::string, std::less<>> given_;
    std::vector<std::string> operands_;
};

// Options and operands may be in any order; `--` ends the options, and `--name=value` is the same as `--name
// value`. Throws UsageError for an unknown, missing or duplicate option and for a wrong number of operands.
Options parse_options(
    std::span<const std::string> words, std::span<const OptionRule> rules, std::size_t operands);

// Parses a whole number of decimal digits only; nullopt for anything else.
std::optional<std::uint64_t> parse_number(std::string_view text);

} // namespace bok
