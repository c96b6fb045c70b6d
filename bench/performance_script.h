// An endless series of touches like those of a busy person: taps, double taps, swipes, pinches,
// circles, long presses, hold and taps, five fingers, and resting fingers without a gesture.
//
// Every contact has a new identifier and slight noise from a generator with a fixed seed, so that
// every run has the same touches.
//
// Units:   seconds on the clock of the reports; one report every 8 ms while a finger touches.
#pragma once

#include "bench/touching.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <random>

namespace glidemap::bench {

class PerformanceScript {
public:
    using Sink = std::function<void(const Report& report, double timestamp)>;

    static constexpr double reportInterval = 0.008;

    explicit PerformanceScript(Sink sink);

    // Plays gestures until `seconds` more have passed, and lifts all fingers.
    void playMixed(double seconds);

    // One finger rests while another taps beside it twice a second. Does not lift the resting
    // finger, so the next call continues the session.
    void tapBesideRestingFinger(double seconds);
    void liftAll();

    double time() const { return now; }
    std::int64_t reports() const { return reportCount; }

private:
    struct Stroke {
        double fromX = 0, fromY = 0, toX = 0, toY = 0;
    };
    using Strokes = std::vector<Stroke>;

    void playOne(std::size_t kind);
    void tap(int fingers, int times);
    void swipe(int fingers);
    void pinch();
    void circle();
    void rest(int fingers, double seconds);
    void holdAndTap();

    void perform(const Strokes& strokes, double seconds);
    void report(const Report& contacts);
    void wait(double seconds) { now += seconds; }
    MTTouch noisy(std::int32_t identifier, double x, double y);

    Sink sink;
    std::mt19937 generator{1};
    double now = 0;
    std::int32_t nextIdentifier = 1;
    std::int32_t restingIdentifier = 0; // 0: no finger rests
    std::int64_t reportCount = 0;
};

} // namespace glidemap::bench
