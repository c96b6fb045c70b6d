// The playback speed of a recording: as fast as possible, or as recorded.
#pragma once

#include <chrono>
#include <optional>

namespace glidemap::replay {

class Pace {
public:
    enum class Speed { asFastAsPossible, realTime };

    explicit Pace(Speed speed) : speed(speed) {}

    // Waits until this time of the recording. Returns immediately for the first time and for a time
    // before the previous one: a recording may go backwards, but real time cannot.
    void waitUntil(double time);

    bool isRealTime() const { return speed == Speed::realTime; }

private:
    using Clock = std::chrono::steady_clock;

    struct Anchor {
        Clock::time_point moment;
        double time = 0;
    };

    Speed speed;
    std::optional<Anchor> last;
};

} // namespace glidemap::replay
