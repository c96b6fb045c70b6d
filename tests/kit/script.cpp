#include "kit/script.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <numbers>
#include <stdexcept>
#include <utility>

namespace glidemap::test {

namespace {

constexpr double padAspect = 1.35;

std::string argument(double number) {
    return written(number);
}

std::string argument(Spot spot) {
    return "{" + written(spot.x) + ", " + written(spot.y) + "}";
}

std::string argument(const std::vector<Spot>& spots) {
    std::string list;
    for (const Spot spot : spots) {
        list += (list.empty() ? "" : ", ") + argument(spot);
    }
    return "{" + list + "}";
}

template <typename... Arguments>
std::string call(const std::string& verb, const Arguments&... arguments) {
    std::string list;
    ((list += (list.empty() ? "" : ", ") + argument(arguments)), ...);
    return "." + verb + "(" + list + ")";
}

// Turns `spot` around `centre`, on a pad that is 1.35 times as wide as high.
Spot turned(Spot spot, Spot centre, double angle) {
    const double dx = (spot.x - centre.x) * padAspect;
    const double dy = spot.y - centre.y;
    return {centre.x + (dx * std::cos(angle) - dy * std::sin(angle)) / padAspect,
            centre.y + dx * std::sin(angle) + dy * std::cos(angle)};
}

} // namespace

Script Script::with(const std::string& words, Verb verb) const {
    Script longer = *this;
    verb(longer.performed);
    longer.written += words;
    longer.verbs.push_back(std::move(verb));
    return longer;
}

Script Script::at(double x, double y) const {
    return with(call("at", x, y), [x, y](Hand& hand) { hand.placeAt({x, y}); });
}

Script Script::startingAt(double time) const {
    return with(call("startingAt", time), [time](Hand& hand) { hand.startAt(time); });
}

Script Script::down() const {
    return with(call("down"), [](Hand& hand) { hand.down(); });
}

Script Script::hold(double seconds) const {
    if (!performed.isDown()) {
        throw std::logic_error("nonsense in a script: hold() before down()");
    }
    return with(call("hold", seconds), [seconds](Hand& hand) { hand.until(hand.now() + seconds); });
}

Script Script::until(double time) const {
    return with(call("until", time), [time](Hand& hand) { hand.until(time); });
}

Script Script::moveBy(double dx, double dy, double seconds) const {
    const Motion motion = [dx, dy](std::size_t, Spot from, double fraction) {
        return Spot{from.x + dx * fraction, from.y + dy * fraction};
    };
    return with(call("moveBy", dx, dy, seconds),
                [motion, seconds](Hand& hand) { hand.move(motion, seconds); });
}

Script Script::moveFinger(std::size_t index, double dx, double dy, double seconds) const {
    if (index >= performed.fingerCount()) {
        throw std::logic_error("nonsense in a script: moving a finger that is not down");
    }
    const Motion motion = [index, dx, dy](std::size_t finger, Spot from, double fraction) {
        return finger == index ? Spot{from.x + dx * fraction, from.y + dy * fraction} : from;
    };
    return with(call("moveFinger", static_cast<double>(index), dx, dy, seconds),
                [motion, seconds](Hand& hand) { hand.move(motion, seconds); });
}

Script Script::moveAll(std::vector<Spot> to, double seconds) const {
    const std::string words = call("moveAll", to, seconds);
    const Motion motion = [to = std::move(to)](std::size_t finger, Spot from, double fraction) {
        const Spot target = to.at(finger);
        // The last step is the exact target, without a rounding error.
        return fraction == 1 ? target
                             : Spot{from.x + (target.x - from.x) * fraction,
                                    from.y + (target.y - from.y) * fraction};
    };
    return with(words, [motion, seconds](Hand& hand) { hand.move(motion, seconds); });
}

Script Script::turnBy(double angle, double seconds) const {
    return with(call("turnBy", angle, seconds), [angle, seconds](Hand& hand) {
        const Spot centre = hand.middle();
        hand.move(
            [centre, angle](std::size_t, Spot from, double fraction) {
                return turned(from, centre, angle * fraction);
            },
            seconds);
    });
}

Script Script::spreadBy(double factor, double seconds) const {
    return with(call("spreadBy", factor, seconds), [factor, seconds](Hand& hand) {
        const Spot centre = hand.middle();
        hand.move(
            [centre, factor](std::size_t, Spot from, double fraction) {
                const double now = 1 + (factor - 1) * fraction;
                return Spot{centre.x + (from.x - centre.x) * now,
                            centre.y + (from.y - centre.y) * now};
            },
            seconds);
    });
}

Script Script::circle(double radius, double turns, double seconds) const {
    const Motion motion = [radius, turns](std::size_t, Spot from, double fraction) {
        const Spot centre = {from.x, from.y - radius};
        return turned(from, centre, turns * fraction * 2 * std::numbers::pi);
    };
    return with(call("circle", radius, turns, seconds),
                [motion, seconds](Hand& hand) { hand.move(motion, seconds); });
}

Script Script::add(int count) const {
    return with(call("add", count), [count](Hand& hand) { hand.addBeside(count); });
}

Script Script::addAt(double x, double y) const {
    return with(call("addAt", x, y), [x, y](Hand& hand) { hand.add({{x, y}}); });
}

Script Script::lift(int count) const {
    return with(call("lift", count), [count](Hand& hand) { hand.lift(count); });
}

Script Script::liftFinger(std::size_t index) const {
    return with(call("liftFinger", static_cast<double>(index)),
                [index](Hand& hand) { hand.liftFinger(index); });
}

Script Script::up() const {
    return with(call("up"), [](Hand& hand) { hand.up(); });
}

Script Script::report() const {
    return with(call("report"), [](Hand& hand) { hand.report(); });
}

Script Script::wait(double seconds) const {
    if (performed.isDown()) {
        throw std::logic_error("nonsense in a script: wait() with fingers down; hold() keeps them");
    }
    return with(call("wait", seconds), [seconds](Hand& hand) { hand.until(hand.now() + seconds); });
}

Script Script::then(const Script& next) const {
    if (performed.isDown()) {
        throw std::logic_error("nonsense in a script: then() with fingers down");
    }
    return with(".then(" + next.written + ")", [verbs = next.verbs](Hand& hand) {
        std::ranges::for_each(verbs, [&hand](const Verb& verb) { verb(hand); });
    });
}

std::vector<TouchFrame> Script::frames(double framesPerSecond) const {
    Hand performer(framesPerSecond);
    std::ranges::for_each(verbs, [&performer](const Verb& verb) { verb(performer); });
    return performer.frames();
}

Script fingers(int count) {
    std::vector<Spot> spots;
    for (int finger = 0; finger < count; ++finger) {
        spots.push_back({0.3 + finger * Hand::spacing, 0.5});
    }
    return Script().with("fingers(" + std::to_string(count) + ")",
                         [spots](Hand& hand) { hand.place(spots); });
}

Script fingersAt(std::vector<Spot> spots) {
    const std::string words = "fingersAt(" + argument(spots) + ")";
    return Script().with(words, [spots = std::move(spots)](Hand& hand) { hand.place(spots); });
}

std::string written(double number) {
    char text[40];
    std::snprintf(text, sizeof text, "%g", number);
    if (std::strtod(text, nullptr) != number) {
        std::snprintf(text, sizeof text, "%.17g", number);
    }
    return text;
}

double justBelow(double limit) {
    return std::nextafter(limit, -std::numeric_limits<double>::infinity());
}

double justAbove(double limit) {
    return std::nextafter(limit, std::numeric_limits<double>::infinity());
}

} // namespace glidemap::test
