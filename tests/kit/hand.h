// The hand that performs a script. It stores the positions of all fingers, and every frame that the
// pad has reported.
//
// Units:   positions normalised 0..1, origin bottom-left; seconds.
// Errors:  an impossible movement throws std::logic_error.
#pragma once

#include "input/touch_frame.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace glidemap::test {

struct Spot {
    double x = 0;
    double y = 0;
};

// Returns a finger's position, given its position at the start of the move and the completed
// fraction (0 to 1) of the move's time.
using Motion = std::function<Spot(std::size_t finger, Spot from, double fraction)>;

class Hand {
public:
    static constexpr double spacing = 0.08; // the distance between neighbouring fingers

    explicit Hand(double framesPerSecond) : interval(1 / framesPerSecond) {}

    void place(std::vector<Spot> spots);
    void placeAt(Spot first);
    void startAt(double time);
    void down();
    void until(double time);
    void move(const Motion& motion, double seconds);
    void add(const std::vector<Spot>& spots);
    void addBeside(int count);
    void lift(int count);
    void liftFinger(std::size_t index);
    void up();
    void report();

    double now() const { return time; }
    bool isDown() const { return !fingers.empty(); }
    std::size_t fingerCount() const { return fingers.size(); }
    Spot middle() const;
    const std::vector<TouchFrame>& frames() const { return reported; }

private:
    struct Finger {
        std::int32_t id;
        Spot spot;
    };

    void land(Spot spot);
    void require(bool condition, const char* what) const;
    void emit();
    void emitAt(double moment);

    double interval;
    double time = 0;
    std::vector<Spot> home; // initial positions of the fingers, used by down()
    std::vector<Finger> fingers;
    std::int32_t nextId = 1;
    std::vector<TouchFrame> reported;
};

} // namespace glidemap::test
