// Stores single measurements to report their median and tail. On a shared machine, the mean depends
// more on other programs than on the measured one.
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

// Returns the processor time of this thread. It excludes the time in which a call yields the
// processor to another thread.
double processorTimeOfThisThread();

class Samples {
public:
    explicit Samples(std::size_t expected) { values.reserve(expected); }

    void add(Moment from, Moment to) {
        values.push_back(std::chrono::duration<double, std::nano>(to - from).count());
    }

    void add(double value) { values.push_back(value); }

    // Returns the smallest value that is greater than or equal to this fraction of all values, or 0
    // without values.
    double quantile(double part) const;

private:
    std::vector<double> values;
};

} // namespace glidemap::bench
