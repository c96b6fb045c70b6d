// Adds the quantiles of single measurements to a benchmark's counters.
#pragma once

#include "bench/samples.h"

#include <benchmark/benchmark.h>

namespace glidemap::bench {

inline void reportQuantiles(benchmark::State& state, const Samples& samples) {
    state.counters["min_ns"] = samples.quantile(0);
    state.counters["median_ns"] = samples.quantile(0.5);
    state.counters["p99_ns"] = samples.quantile(0.99);
}

} // namespace glidemap::bench
