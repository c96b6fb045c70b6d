// Makes reproducible random choices: the same seed gives the same choices on every platform. The
// distributions of the standard library do not guarantee this.
//
// Owner:   each performance creates its own.
#pragma once

#include <cstdint>

namespace glidemap {

class Chance {
public:
    explicit Chance(std::uint64_t seed) : state(seed) {}

    // Returns a uniformly distributed value in [low, high).
    double between(double low, double high);

    // Returns true with a probability of 1 / `times`.
    bool oneIn(int times);

    // Returns a random value in [-1, 1], usually close to 0.
    double wobble();

private:
    std::uint64_t next();

    std::uint64_t state;
};

} // namespace glidemap
