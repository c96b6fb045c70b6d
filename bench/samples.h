// Single measurements, stored so that their median and tail can be reported: on a shared machine,
// the mean depends more on other programs than on ours.
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

// The processor time of this thread: the caller's cost of a call that yields the processor to
// another thread.
double processorTimeOfThisThread();

class Samples {
public:
    explicit Samples(std::size_t expected) { values.reserve(expected); }

    void add(Moment from, Moment to) {
        values.push_back(std::chrono::duration<double, std::nano>(to - from).count());
    }

    void add(double value) { values.push_back(value); }

    // The smallest value that is at least as large as this fraction of all values; 0 without
    // values.
    double quantile(double part) const;

private:
    std::vector<double> values;
};

} // namespace glidemap::bench
