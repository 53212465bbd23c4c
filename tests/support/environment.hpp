// Numbers that whoever starts the tests may give, to have them go on for longer than the usual run allows.
#pragma once
#include <cstdlib>

namespace test_support {

inline double number_from_environment(const char* name, double otherwise)
{
    const char* text = std::getenv(name);
    return text && *text ? std::strtod(text, nullptr) : otherwise;
}

} // namespace test_support
