// A check that holds in every build: libFuzzer keeps what broke it.
#pragma once
#include <cstdlib>

namespace fuzz {

inline void require(bool is_true)
{
    if (!is_true)
        std::abort();
}

} // namespace fuzz
