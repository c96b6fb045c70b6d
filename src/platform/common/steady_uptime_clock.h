// Returns the system's uptime from the monotonic clock.
#pragma once

#include "core/uptime_clock.h"

namespace glidemap {

class SteadyUptimeClock : public UptimeClock {
public:
    double uptime() const override;
};

} // namespace glidemap
