// Choices that look free and can be made again: the same seed, the same choices, with every
// standard library (whose own distributions differ from each other).
//
// Owner:   one performance.
#pragma once

#include <cstdint>

namespace glidemap {

class Chance {
public:
    explicit Chance(std::uint64_t seed) : state(seed) {}

    // Evenly spread over [low, high).
    double between(double low, double high);

    // True once in so many times.
    bool oneIn(int times);

    // Around 0, mostly near it, never beyond -1 and 1.
    double wobble();

private:
    std::uint64_t next();

    std::uint64_t state;
};

} // namespace glidemap
