#include "platform/common/steady_uptime_clock.h"

#include <chrono>

namespace glidemap {

double SteadyUptimeClock::uptime() const {
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(sinceStart).count();
}

} // namespace glidemap
