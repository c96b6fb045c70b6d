// How fast a recording is played: as fast as the machine can, or as it was recorded.
#pragma once

#include <chrono>
#include <optional>

namespace glidemap::replay {

class Pace {
public:
    enum class Speed { asFastAsPossible, realTime };

    explicit Pace(Speed chosen) : speed(chosen) {}

    // Returns when that moment of the recording has come. The first moment is now, and so is one
    // that lies before the last: a recording may go back in time, a person who watches cannot.
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
