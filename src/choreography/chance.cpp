#include "choreography/chance.h"

namespace glidemap {

// SplitMix64: similar seeds give unrelated sequences.
std::uint64_t Chance::next() {
    state += 0x9e3779b97f4a7c15U;
    std::uint64_t mixed = state;
    mixed = (mixed ^ (mixed >> 30U)) * 0xbf58476d1ce4e5b9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94d049bb133111ebU;
    return mixed ^ (mixed >> 31U);
}

double Chance::between(double low, double high) {
    // the number of distinct values of `part` in [0, 1)
    constexpr double steps = 0x1p53;
    const double part = static_cast<double>(next() >> 11U) / steps;
    return low + (high - low) * part;
}

bool Chance::oneIn(int times) {
    return between(0, times) < 1;
}

double Chance::wobble() {
    // The mean of three uniform values approximates a normal distribution, but is bounded.
    double sum = 0;
    for (int choice = 0; choice < 3; ++choice) {
        sum += between(-1, 1);
    }
    return sum / 3;
}

} // namespace glidemap
