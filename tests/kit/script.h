// A performance on the pad, written as the hand does it:
//
//   fingers(2).down().hold(0.2).moveBy(0.2, 0, 0.3).add(1).lift(1).up()
//
// A script is a value: each verb answers a longer script. It remembers the verbs, not only the
// frames, so the same performance can be rendered at any rate and prints as the code that made it.
//
// When frames come. Every verb moves the hand from one moment to another. down(), add(), lift(),
// up() and report() make one frame, at the moment the verb before ended, or one interval later
// where that moment has been reported already. hold() and until() make frames inside their time and
// leave its last moment to the verb that follows, so the frame of `up()` in
// down().hold(0.3).up() comes 0.3 s after that of down(). Moves end with a frame of their own: the
// finger is seen where it arrives.
//
// Exact times. The first frame is at 0 and a moment is the sum of what the verbs say; the frames
// between count from the beginning of their verb. A difference to 0 is exact, so
// fingers(2).down().until(limit).up() lasts precisely `limit`, and so does until(justAbove(limit)).
// Where a limit is measured from a later moment, startingAt() puts that moment at 0:
// fingers(2).startingAt(-0.1).down().until(0).up() ends there.
//
// Exact distances. The root of a square is exact, so a finger that starts at 0 on one axis and
// moves along it by d has moved by precisely d.
//
// Units:   positions normalised 0..1, origin bottom-left; seconds; radians.
// Errors:  nonsense (moving before down, lifting more fingers than are down) throws
//          std::logic_error from the verb.
#pragma once

#include "input/touch_frame.h"
#include "kit/hand.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace glidemap::kit {

class Script {
public:
    static constexpr double usualRate = 125;

    // Before down(). `at` puts the first finger somewhere, the others beside it as before.
    Script at(double x, double y) const;
    Script startingAt(double time) const;

    Script down() const;
    Script hold(double seconds) const;
    Script until(double time) const;
    Script moveBy(double dx, double dy, double seconds) const;
    Script moveFinger(std::size_t index, double dx, double dy, double seconds) const;
    Script moveAll(std::vector<Spot> to, double seconds) const;
    // Around the middle of the hand, on the pad as it is shaped (wider than high), positive
    // anticlockwise.
    Script turnBy(double angle, double seconds) const;
    // Away from the middle of the hand; below 1, towards it.
    Script spreadBy(double factor, double seconds) const;
    // Every finger round a circle on the pad as it is shaped, beginning at its top, positive
    // anticlockwise.
    Script circle(double radius, double turns, double seconds) const;
    Script add(int count) const;
    Script addAt(double x, double y) const;
    Script lift(int count) const;
    Script liftFinger(std::size_t index) const;
    Script up() const;
    Script report() const;

    // Nothing touches.
    Script wait(double seconds) const;
    // The whole of `next` from now on. Times within it are shifted; see `until` for exact ones.
    Script then(const Script& next) const;

    std::vector<TouchFrame> frames() const { return performed.frames(); }
    std::vector<TouchFrame> frames(double framesPerSecond) const;
    double end() const { return performed.now(); }
    const std::string& text() const { return written; }

    friend Script fingers(int count);
    friend Script fingersAt(std::vector<Spot> spots);

private:
    using Verb = std::function<void(Hand&)>;

    Script with(const std::string& words, Verb verb) const;

    std::string written;
    std::vector<Verb> verbs;
    Hand performed{usualRate}; // has performed all verbs, so that nonsense is known at once
};

// Fingers side by side, 0.08 apart, the first at (0.3, 0.5).
Script fingers(int count);
Script fingersAt(std::vector<Spot> spots);

// A number as one would write it, with all its digits only where they matter.
std::string written(double number);

// The neighbours of a limit.
double justBelow(double limit);
double justAbove(double limit);

} // namespace glidemap::kit
