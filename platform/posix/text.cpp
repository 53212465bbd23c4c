#include "platform/text.hpp"
#include <locale>
#include <sstream>
#include <stdexcept>

namespace platform {

namespace {

// For every `step`-th unit from `first` to `last` the lower case is the unit plus `distance`.
struct Run {
    std::uint16_t first;
    std::uint16_t last;
    std::uint16_t step;
    std::int32_t distance;
};

constexpr Run runs[] = {
#include "platform/posix/lower_case_table.inc"
};

// A table from Unicode's data and not towlower, whose result depends on the locale: in the "C" locale it maps
// only ASCII letters.
UnitTable make_lower_case_table()
{
    UnitTable table{};
    for (std::size_t unit = 0; unit < unit_count; ++unit)
        table[unit] = static_cast<std::uint16_t>(unit);
    for (const Run& run : runs) {
        for (std::int32_t unit = run.first; unit <= run.last; unit += run.step)
            table[static_cast<std::size_t>(unit)] = static_cast<std::uint16_t>(unit + run.distance);
    }
    return table;
}

std::locale user_locale()
{
    try {
        return std::locale("");
    } catch (const std::runtime_error&) {
        return std::locale::classic(); // the environment names a locale that is not installed
    }
}

} // namespace

const UnitTable& lower_case_table()
{
    static const UnitTable table = make_lower_case_table();
    return table;
}

std::wstring grouped_number(std::uint64_t number)
{
    std::wostringstream stream;
    stream.imbue(user_locale());
    stream << number;
    return stream.str();
}

} // namespace platform
