// Command lines: what a command takes, and what it was given.
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
    std::string_view value; // the word that stands for its value in the help, empty for a switch
    std::string_view help;
    bool required = false;
};

// What was given. Only what the rules allow is in it.
class Options {
public:
    bool has(std::string_view name) const;
    // Empty when the option was not given.
    std::string value(std::string_view name) const;
    // Throws UsageError when the value is no number from `least` to `most`.
    std::optional<std::uint64_t> number(std::string_view name, std::uint64_t least, std::uint64_t most) const;
    const std::string& operand(std::size_t index) const { return operands_[index]; }

private:
    friend Options parse_options(std::span<const std::string>, std::span<const OptionRule>, std::size_t);
    std::map<std::string, std::string, std::less<>> given_;
    std::vector<std::string> operands_;
};

// Options and operands mix freely; `--` ends the options, and `--name=value` is one word for two. Throws
// UsageError for an unknown option, a missing or doubled one, and a wrong number of operands.
Options parse_options(
    std::span<const std::string> words, std::span<const OptionRule> rules, std::size_t operands);

// A whole number in decimal digits and nothing else.
std::optional<std::uint64_t> parse_number(std::string_view text);

} // namespace bok
