// Single measurements, kept so that their median and their tail can be told: on a shared machine
// the mean says more about the neighbours than about the program.
//
// Units:   nanoseconds.
#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

namespace glidemap::bench {

using Moment = std::chrono::steady_clock::time_point;

inline Moment now() {
    return std::chrono::steady_clock::now();
}

// The processor's time that this thread has had: what a call costs its caller where the call hands
// the processor to another thread for a while.
double processorTimeOfThisThread();

class Samples {
public:
    explicit Samples(std::size_t expected) { values.reserve(expected); }

    void add(Moment from, Moment to) {
        values.push_back(std::chrono::duration<double, std::nano>(to - from).count());
    }

    void add(double value) { values.push_back(value); }

    // The smallest value that at least this part of all values does not exceed; 0 of none.
    double quantile(double part) const;

private:
    std::vector<double> values;
};

} // namespace glidemap::bench
