// pipeline_bench [--smoke] [Google Benchmark's options]: measures the time cost of the pipeline.
// --smoke runs every benchmark only a few times, as a test.
#include "pipeline_bench.h"

#include "bench/headless_pipeline.h"
#include "platform/linux/thread_setup.h"

#include <cstring>
#include <vector>

namespace glidemap::bench {

namespace {

struct Counts {
    int samples = 20'000;
    int pacedSamples = 500;
};

bool takeSmoke(std::vector<char*>& arguments) {
    return std::erase_if(arguments, [](const char* argument) {
               return std::strcmp(argument, "--smoke") == 0;
           }) > 0;
}

int run(std::vector<char*> arguments) {
    Counts counts;
    char shortest[] = "--benchmark_min_time=0.001";
    if (takeSmoke(arguments)) {
        counts = {10, 3};
        arguments.push_back(shortest);
    }
    auto count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 2;
    }
    registerYardsticks(counts.samples, counts.pacedSamples);
    registerContactCallbackBenchmarks(counts.samples);
    registerRecognizerBenchmarks();
    registerLatencyBenchmarks(counts.samples, counts.pacedSamples);
    registerDelayedWorkBenchmarks(counts.samples);
    // This thread acts as the driver's thread, so it gets the same priority.
    setUpResponsiveThread("driver");
    return benchmark::RunSpecifiedBenchmarks() > 0 ? 0 : 1;
}

} // namespace

} // namespace glidemap::bench

int main(int argumentCount, char** arguments) {
    return glidemap::bench::run({arguments, arguments + argumentCount});
}
