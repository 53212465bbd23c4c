#include "core/command_rules.hpp"

namespace core {

const CommandRule* find_command(int id, int code)
{
    const CommandRule* rule = find_row(std::span<const CommandRule>{ command_rules }, id);
    return rule && rule->codes.allows(code) ? rule : nullptr;
}

} // namespace core
