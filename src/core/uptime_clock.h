// Port: the time since the system started.
//
// Units:   seconds, monotonic. The system decides whether the time spent asleep counts.
// Thread:  any.
#pragma once

namespace glidemap {

class UptimeClock {
public:
    UptimeClock() = default;
    UptimeClock(const UptimeClock&) = delete;
    UptimeClock& operator=(const UptimeClock&) = delete;
    virtual ~UptimeClock() = default;

    virtual double uptime() const = 0;
};

} // namespace glidemap
