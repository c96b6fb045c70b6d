#include "bench/samples.h"

#include <time.h>

#include <algorithm>
#include <cmath>

namespace glidemap::bench {

double processorTimeOfThisThread() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

double Samples::quantile(double part) const {
    if (values.empty()) {
        return 0;
    }
    auto sorted = values;
    const auto count = static_cast<double>(sorted.size());
    const auto rank = std::clamp(std::ceil(part * count), 1.0, count);
    const auto place = sorted.begin() + static_cast<std::ptrdiff_t>(rank) - 1;
    std::ranges::nth_element(sorted, place);
    return *place;
}

} // namespace glidemap::bench
