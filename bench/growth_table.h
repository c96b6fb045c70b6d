// Measures times and prints the lines of a growth table.
//
// Units:   nanoseconds.
// Thread:  one.
// Errors:  none.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace glidemap::bench {

// Prevents the compiler from removing an unused result.
template <typename Value>
void keep(const Value& value) {
    asm volatile("" : : "r,m"(value) : "memory");
}

template <typename Function>
double nanosecondsOf(Function&& function) {
    const auto start = std::chrono::steady_clock::now();
    std::forward<Function>(function)();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start)
        .count();
}

inline double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// Returns the median of seven rounds. Each round lasts at least a millisecond or makes more than
// 10,000 calls.
template <typename Function>
double medianNanoseconds(Function function) {
    constexpr double enough = 1e6;
    int calls = 1;
    while (calls < 10'000 && nanosecondsOf([&] {
                                 for (int call = 0; call < calls; ++call) {
                                     function();
                                 }
                             }) < enough) {
        calls *= 4;
    }
    std::vector<double> rounds;
    for (int round = 0; round < 7; ++round) {
        rounds.push_back(nanosecondsOf([&] {
                             for (int call = 0; call < calls; ++call) {
                                 function();
                             }
                         }) /
                         calls);
    }
    return median(std::move(rounds));
}

inline void printHeading() {
    std::printf("%-34s %9s %14s %14s\n", "what", "size", "microseconds", "ns a unit");
}

inline void printLine(const std::string& what, std::size_t size, double nanoseconds) {
    std::printf("%-34s %9zu %14.2f %14.1f\n", what.c_str(), size, nanoseconds / 1e3,
                nanoseconds / static_cast<double>(size));
    std::fflush(stdout);
}

} // namespace glidemap::bench
