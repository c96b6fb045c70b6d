// The groups of benchmarks that pipeline_bench is made of.
//
// A benchmark that tells quantiles runs a number of times fixed in advance: `samples`, or, where
// reports come at a touchpad's own pace, `pacedSamples`.
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
