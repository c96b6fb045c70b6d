#include "choreography/pad.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <utility>

namespace glidemap {

namespace {

constexpr double reportInterval = 0.008;
constexpr double intervalUnsteadiness = 0.0015;

// A resting finger drifts by 0.6 to 2.4 % of the pad in 3 to 4 s.
constexpr double minDriftSpeed = 0.006 / 3.5;
constexpr double maxDriftSpeed = 0.024 / 3.5;

// 3 to 13 units on a pad whose axes have 4,000 to 5,000 units.
constexpr double minJitter = 0.0006;
constexpr double maxJitter = 0.0028;

class Contact {
public:
    Contact(const Finger& finger, std::int32_t identifier, double hover, Chance& chance)
        : finger(&finger), identifier(identifier), hover(hover),
          jitter(chance.between(minJitter, maxJitter)) {
        const double speed = chance.between(minDriftSpeed, maxDriftSpeed);
        const double angle = chance.between(-std::numbers::pi, std::numbers::pi);
        drift = {speed * std::cos(angle), speed * std::sin(angle)};
    }

    bool isSeen(double time) const { return !isGone && time >= finger->down - hover; }

    // Returns the contact's record in a report at `time`. isSeen(time) must be true.
    MTTouch record(double time, Chance& chance) {
        const MTTouchState state = advance(time);
        const PadPoint place = placeAt(time, chance);
        MTTouch touch{};
        touch.timestamp = time;
        touch.identifier = identifier;
        touch.state = static_cast<std::int32_t>(state);
        touch.normalized.pos = {static_cast<float>(place.x), static_cast<float>(place.y)};
        touch.normalized.vel = velocity(place, time);
        lastPlace = place;
        lastTime = time;
        return touch;
    }

private:
    MTTouchState advance(double time) {
        if (time < finger->down) {
            return MTTouchState::hoverInRange;
        }
        if (time < finger->up) {
            return std::exchange(hasTouched, true) ? MTTouchState::touching
                                                   : MTTouchState::makeTouch;
        }
        isGone = time >= finger->up + hover;
        return isGone ? MTTouchState::outOfRange : MTTouchState::hoverInRange;
    }

    PadPoint placeAt(double time, Chance& chance) const {
        const PadPoint unsteady = {jitter * chance.wobble(), jitter * chance.wobble()};
        const PadPoint place = finger->path(time) + drift * (time - finger->down) + unsteady;
        return {std::clamp(place.x, 0.0, 1.0), std::clamp(place.y, 0.0, 1.0)};
    }

    MTPoint velocity(PadPoint place, double time) const {
        if (lastTime < 0) {
            return {0, 0};
        }
        const PadPoint speed = (place - lastPlace) * (1 / (time - lastTime));
        return {static_cast<float>(speed.x), static_cast<float>(speed.y)};
    }

    const Finger* finger;
    std::int32_t identifier;
    double hover; // how long the contact is in range before landing and after lifting
    double jitter;
    PadPoint drift; // per second
    bool hasTouched = false;
    bool isGone = false;
    PadPoint lastPlace;
    double lastTime = -1;
};

std::vector<Contact> contactsOf(const Fingers& fingers, Chance& chance) {
    const bool seesHovering = chance.oneIn(2);
    // the first identifier is random, because a pad's contact counter keeps running between
    // performances
    auto identifier = static_cast<std::int32_t>(chance.between(1, 200));
    std::vector<Contact> contacts;
    contacts.reserve(fingers.size());
    for (const Finger& finger : fingers) {
        const double hover = seesHovering ? chance.between(0, 0.024) : 0;
        contacts.emplace_back(finger, identifier++, hover, chance);
    }
    return contacts;
}

double endOf(const Fingers& fingers) {
    double end = 0;
    for (const Finger& finger : fingers) {
        end = std::max(end, finger.up);
    }
    return end;
}

std::vector<MTTouch> recordsAt(double time, std::vector<Contact>& contacts, Chance& chance) {
    std::vector<MTTouch> records;
    for (Contact& contact : contacts) {
        if (contact.isSeen(time)) {
            records.push_back(contact.record(time, chance));
        }
    }
    return records;
}

// Shifts all times so that the first report is at zero, and numbers the reports.
void beginAtZero(Performance& performance) {
    const double begin = performance.empty() ? 0 : performance.front().time;
    std::int32_t number = 0;
    for (TimedReport& report : performance) {
        report.time -= begin;
        for (MTTouch& touch : report.touches) {
            touch.timestamp = report.time;
            touch.frame = number;
        }
        ++number;
    }
}

} // namespace

Performance report(const Fingers& fingers, Chance& chance) {
    std::vector<Contact> contacts = contactsOf(fingers, chance);
    const bool reportsEmptyPad = chance.oneIn(2);
    const double end = endOf(fingers) + 0.1; // every contact is out of range by then
    Performance performance;
    // The pad scans at its own rate, regardless of when a finger lands.
    double time = -0.03 - chance.between(0, reportInterval);
    while (time < end) {
        std::vector<MTTouch> records = recordsAt(time, contacts, chance);
        const bool padWasEmpty = performance.empty() || performance.back().touches.empty();
        if (!records.empty() || (reportsEmptyPad && !padWasEmpty)) {
            performance.push_back({time, std::move(records)});
        }
        time += reportInterval + intervalUnsteadiness * chance.wobble();
    }
    beginAtZero(performance);
    return performance;
}

} // namespace glidemap
