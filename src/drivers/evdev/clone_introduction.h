// Decides when a new clone can replace its touchpad. As long as no program has opened the clone, no
// program would receive the forwarded events.
//
//   made ──udev announces it, a program opens it──▶ grace ──▶ ready
//     └───────────── two seconds without that ──────────────▶ failed; the touchpad stays as it is
//
// Thread:  one at a time.
// Owner:   PadInterception, while the clone is new.
// Errors:  look() returns State::failed, and obstacle() returns the reason.
#pragma once

#include "drivers/evdev/pad_directory.h"
#include "drivers/evdev/watchdog_time.h"

#include <chrono>
#include <optional>

namespace glidemap {

class CloneIntroduction {
public:
    using Moment = WatchdogTime::Moment;

    enum class State { waiting, ready, failed };

    // A generous time limit: udev takes 0.2 s on a slow machine, and a running desktop opens a new
    // device soon after.
    static constexpr std::chrono::seconds patience{2};
    // The time that a program gets after it has opened the clone. The program discards events until
    // it has set the clock and read the state.
    static constexpr std::chrono::milliseconds readerGracePeriod{100};
    // Replaces readerGracePeriod if the system does not report whether a program has opened the
    // clone.
    static constexpr std::chrono::milliseconds unknownReaderGracePeriod{500};

    explicit CloneIntroduction(Moment madeAt) : deadline(madeAt + patience) {}

    State look(const CloneStanding& standing, Moment now);

    // Returns the time at which to call look() again if nothing changes before then.
    Moment nextLook() const;

    // Returns the reason why programs cannot read the clone yet, for a log, or null if they can.
    const char* obstacle() const { return reason; }

private:
    Moment deadline;
    std::optional<Moment> graceEnd; // set while the clone is announced and may be open
    bool readerIsKnown = false;
    const char* reason = nullptr;
};

} // namespace glidemap
