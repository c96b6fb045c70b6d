// Decides when a new clone can stand in for its touchpad. A clone that no desktop knows yet must not
// take the touchpad's place: what it forwards would reach no program.
//
//   made ──udev announces it, a program opens it──▶ grace ──▶ ready
//     └───────────── two seconds without that ──────────────▶ failed; the touchpad stays as it is
//
// Thread:  one at a time.
// Owner:   PadInterception, while the clone is new.
// Errors:  failed, with the reason.
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

    // A desktop that is at work has opened a new device long before; udev takes 0.2 s on a slow
    // machine.
    static constexpr std::chrono::seconds patience{2};
    // A program that has opened the clone throws away the events that come until it has chosen
    // the clock and read the state.
    static constexpr std::chrono::milliseconds graceOfReader{100};
    // Where the system does not report who opens a device.
    static constexpr std::chrono::milliseconds graceOfUnknownReader{500};

    explicit CloneIntroduction(Moment madeAt) : deadline(madeAt + patience) {}

    State look(const CloneStanding& standing, Moment now);

    // When to look again if nothing happens before.
    Moment nextLook() const;

    // Why it is not ready, for a log; null if it is.
    const char* obstacle() const { return reason; }

private:
    Moment deadline;
    std::optional<Moment> graceEnd; // while the clone is announced and may be read
    bool readerIsKnown = false;
    const char* reason = nullptr;
};

} // namespace glidemap
