// Lets the fuzzer choose the steps of the walk.
#include "tests/fuzz/stable.hpp"
#include "tests/session/session_walker.hpp"
#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::size_t place = 0;
    session_walk::Walker walker([&](std::uint32_t count) -> std::uint32_t {
        return place < size ? data[place++] % count : count - 1;
    });
    while (place < size)
        if (!walker.step()) {
            std::fprintf(stderr, "%s\n", walker.complaint.c_str());
            for (const std::string& step : walker.last_steps)
                std::fprintf(stderr, "  %s\n", step.c_str());
            fuzz::require(false);
        }
    return 0;
}
