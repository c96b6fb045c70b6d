// The groups of benchmarks in pipeline_bench.
//
// A benchmark that reports quantiles runs a fixed number of times: `samples`, or `pacedSamples` if
// reports arrive at a touchpad's rate.
#pragma once

#include "quantiles.h"

#include <benchmark/benchmark.h>

namespace glidemap::bench {

void registerContactCallbackBenchmarks(int samples);
void registerRecognizerBenchmarks();
void registerLatencyBenchmarks(int samples, int pacedSamples);
void registerDelayedWorkBenchmarks(int samples);
void registerYardsticks(int samples, int pacedSamples);

} // namespace glidemap::bench
