// A performance on the pad, written as hand movements:
//
//   fingers(2).down().hold(0.2).moveBy(0.2, 0, 0.3).add(1).lift(1).up()
//
// A script is a value: each verb returns a longer script. It stores the verbs, not only the frames.
// The same performance can therefore be rendered at any rate, and it prints as the code that
// created it.
//
// When frames are sent. Every verb moves the hand from one time to another. down(), add(), lift(),
// up() and report() send one frame, at the end of the previous verb. If that time has already been
// reported, the frame is sent one interval later. hold() and until() send frames during their time,
// but the frame at the end belongs to the next verb. In down().hold(0.3).up(), the frame of `up()`
// is sent 0.3 s after that of down(). A move ends with its own frame, at the finger's destination.
//
// Exact times. The first frame is at 0, and a time is the sum of the verbs' durations; the times of
// frames within a verb count from its start. Subtracting 0 is exact, so
// fingers(2).down().until(limit).up() lasts exactly `limit`, and with justAbove(limit) it lasts
// exactly justAbove(limit). If a limit is measured from a later time, startingAt() puts that time
// at 0: fingers(2).startingAt(-0.1).down().until(0).up() ends exactly at 0.
//
// Exact distances. The square root of a square is exact. A finger that starts at 0 on one axis and
// moves along it by d has therefore moved by exactly d.
//
// Units:   positions normalised 0..1, origin bottom-left; seconds; radians.
// Errors:  impossible verbs (moving before down, lifting more fingers than are down) throw
//          std::logic_error.
#pragma once

#include "input/touch_frame.h"
#include "kit/hand.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace glidemap::test {

class Script {
public:
    static constexpr double usualRate = 125;

    // Call before down(). `at` places the first finger; the others keep their places relative to
    // it.
    Script at(double x, double y) const;
    Script startingAt(double time) const;

    Script down() const;
    Script hold(double seconds) const;
    Script until(double time) const;
    Script moveBy(double dx, double dy, double seconds) const;
    Script moveFinger(std::size_t index, double dx, double dy, double seconds) const;
    Script moveAll(std::vector<Spot> to, double seconds) const;
    // Turns the fingers around the centre of the hand, on a pad that is 1.35 times as wide as high.
    // A positive angle is counterclockwise.
    Script turnBy(double angle, double seconds) const;
    // Moves the fingers away from the centre of the hand. A factor below 1 moves them towards it.
    Script spreadBy(double factor, double seconds) const;
    // Moves every finger on a circle, on a pad that is 1.35 times as wide as high. The finger
    // starts at the top. A positive number of turns is counterclockwise.
    Script circle(double radius, double turns, double seconds) const;
    Script add(int count) const;
    Script addAt(double x, double y) const;
    Script lift(int count) const;
    Script liftFinger(std::size_t index) const;
    Script up() const;
    Script report() const;

    // Lets time pass between touches. Throws if a finger is down; use hold() then.
    Script wait(double seconds) const;
    // Appends all verbs of `next`, which start at the end of this script. Durations stay the same,
    // but the time of an until() in `next` is not shifted.
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
    // All verbs run immediately, so that errors are thrown immediately.
    Hand performed{usualRate};
};

// Returns a script with fingers side by side, 0.08 apart, the first at (0.3, 0.5).
Script fingers(int count);
Script fingersAt(std::vector<Spot> spots);

// Returns the number as a decimal text: in short form, or with 17 digits if the short form would
// not be read back as the same number.
std::string written(double number);

// These functions return the next representable values below and above a limit.
double justBelow(double limit);
double justAbove(double limit);

} // namespace glidemap::test
