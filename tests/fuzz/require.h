// Aborts the program if a rule is violated, so that libFuzzer reports the input.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace glidemap::fuzz {

inline void require(bool holds, const char* rule) {
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", rule);
        std::abort();
    }
}

} // namespace glidemap::fuzz
