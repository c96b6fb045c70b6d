#include "kit/hand.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace glidemap::test {

void Hand::require(bool condition, const char* what) const {
    if (!condition) {
        throw std::logic_error(std::string("nonsense in a script: ") + what);
    }
}

void Hand::place(std::vector<Spot> spots) {
    require(fingers.empty(), "placing a hand that is down");
    home = std::move(spots);
}

void Hand::placeAt(Spot first) {
    require(fingers.empty() && !home.empty(), "at() without fingers, or with fingers down");
    const Spot shift = {first.x - home.front().x, first.y - home.front().y};
    for (Spot& spot : home) {
        spot = {spot.x + shift.x, spot.y + shift.y};
    }
    home.front() = first; // an exact value, without a rounding error
}

void Hand::startAt(double start) {
    require(reported.empty(), "starting a second time");
    time = start;
}

void Hand::land(Spot spot) {
    fingers.push_back({nextId++, spot});
}

void Hand::down() {
    require(fingers.empty(), "down() with fingers down");
    require(!home.empty(), "down() without fingers");
    std::ranges::for_each(home, [this](Spot spot) { land(spot); });
    emit();
}

void Hand::until(double end) {
    require(end >= time, "time going backwards");
    const double begin = time;
    // Skips a frame that almost coincides with the end, because the end has its own frame.
    for (int frame = 1; begin + frame * interval < end - interval / 1000; ++frame) {
        if (isDown()) {
            emitAt(begin + frame * interval);
        }
    }
    time = end;
}

void Hand::move(const Motion& motion, double seconds) {
    require(isDown(), "moving before down()");
    require(seconds > 0, "moving in no time");
    const double begin = time;
    const auto start = fingers;
    const auto moveTo = [&](double moment, double fraction) {
        for (std::size_t index = 0; index < fingers.size(); ++index) {
            fingers[index].spot = motion(index, start[index].spot, fraction);
        }
        emitAt(moment);
    };
    for (int frame = 1; frame * interval < seconds - interval / 1000; ++frame) {
        moveTo(begin + frame * interval, frame * interval / seconds);
    }
    moveTo(begin + seconds, 1);
}

void Hand::add(const std::vector<Spot>& spots) {
    require(isDown(), "add() before down()");
    std::ranges::for_each(spots, [this](Spot spot) { land(spot); });
    emit();
}

void Hand::addBeside(int count) {
    require(isDown(), "add() before down()");
    require(count > 0, "adding no finger");
    for (int added = 0; added < count; ++added) {
        const Spot last = fingers.back().spot;
        land({last.x + spacing, last.y});
    }
    emit();
}

void Hand::lift(int count) {
    require(count > 0, "lifting no finger");
    require(static_cast<std::size_t>(count) < fingers.size(),
            "lift() leaves a finger down; up() lifts all");
    fingers.resize(fingers.size() - static_cast<std::size_t>(count));
    emit();
}

void Hand::liftFinger(std::size_t index) {
    require(index < fingers.size(), "lifting a finger that is not down");
    require(fingers.size() > 1, "liftFinger() leaves a finger down; up() lifts all");
    fingers.erase(fingers.begin() + static_cast<std::ptrdiff_t>(index));
    emit();
}

void Hand::up() {
    require(isDown(), "up() before down()");
    fingers.clear();
    emit();
}

void Hand::report() {
    require(isDown(), "report() with nothing to report");
    emit();
}

Spot Hand::middle() const {
    require(isDown(), "the middle of a hand that is not down");
    Spot sum;
    for (const Finger& finger : fingers) {
        sum = {sum.x + finger.spot.x, sum.y + finger.spot.y};
    }
    const auto count = static_cast<double>(fingers.size());
    return {sum.x / count, sum.y / count};
}

void Hand::emit() {
    const bool alreadyReported = !reported.empty() && reported.back().timestamp >= time;
    emitAt(alreadyReported ? time + interval : time);
}

void Hand::emitAt(double moment) {
    time = moment;
    TouchFrame frame{moment, {}};
    for (const Finger& finger : fingers) {
        frame.touches.push_back({finger.id, finger.spot.x, finger.spot.y, true});
    }
    reported.push_back(std::move(frame));
}

} // namespace glidemap::test
