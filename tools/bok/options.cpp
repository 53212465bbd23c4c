#include "tools/bok/options.hpp"
#include "tools/bok/streams.hpp"
#include <algorithm>
#include <charconv>

namespace bok {

namespace {

const OptionRule& rule_of(std::string_view name, std::span<const OptionRule> rules)
{
    const auto rule = std::ranges::find(rules, name, &OptionRule::name);
    if (rule == rules.end())
        throw UsageError("unknown option " + std::string(name));
    return *rule;
}

// A single dash is an operand: it names a standard stream.
bool is_option(std::string_view word)
{
    return word.size() > 1 && word.front() == '-';
}

void check_complete(const Options& options, std::span<const OptionRule> rules)
{
    for (const OptionRule& rule : rules) {
        if (rule.required && !options.has(rule.name))
            throw UsageError("option " + std::string(rule.name) + " is missing");
    }
}

} // namespace

std::optional<std::uint64_t> parse_number(std::string_view text)
{
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

bool Options::has(std::string_view name) const
{
    return given_.contains(name);
}

std::string Options::value(std::string_view name) const
{
    const auto found = given_.find(name);
    return found == given_.end() ? std::string() : found->second;
}

std::optional<std::uint64_t> Options::number(
    std::string_view name, std::uint64_t least, std::uint64_t most) const
{
    if (!has(name))
        return std::nullopt;
    const auto number = parse_number(value(name));
    if (!number || *number < least || *number > most)
        throw UsageError(std::string(name) + " takes a number from " + std::to_string(least) + " to "
            + std::to_string(most));
    return number;
}

Options parse_options(
    std::span<const std::string> words, std::span<const OptionRule> rules, std::size_t operands)
{
    Options options;
    bool only_operands = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (only_operands || !is_option(word)) {
            options.operands_.push_back(word);
            continue;
        }
        if (word == "--") {
            only_operands = true;
            continue;
        }
        // A short option takes its value only as the next word.
        const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string::npos;
        const OptionRule& rule = rule_of(std::string_view(word).substr(0, equals), rules);
        std::string value;
        if (equals != std::string::npos) {
            if (rule.value.empty())
                throw UsageError("option " + std::string(rule.name) + " takes no value");
            value = word.substr(equals + 1);
        } else if (!rule.value.empty()) {
            if (++i == words.size())
                throw UsageError("option " + std::string(rule.name) + " needs a value");
            value = words[i];
        }
        if (!options.given_.emplace(std::string(rule.name), std::move(value)).second)
            throw UsageError("option " + std::string(rule.name) + " is given twice");
    }
    if (options.operands_.size() != operands)
        throw UsageError(options.operands_.size() < operands ? "an operand is missing" : "too many operands");
    check_complete(options, rules);
    return options;
}

} // namespace bok
