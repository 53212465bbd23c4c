// Environment variables of the tests: numbers that make them run longer than usual, and the name of the run,
// which separates runs that share a build folder.
#pragma once
#include <cstdlib>
#include <string>

namespace test_support {

inline double number_from_environment(const char* name, double otherwise)
{
    const char* text = std::getenv(name);
    return text && *text ? std::strtod(text, nullptr) : otherwise;
}

inline std::string run_name()
{
    const char* name = std::getenv("PAGEWICK_RUN");
    return name && *name ? name : "run";
}

} // namespace test_support
