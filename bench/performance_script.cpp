#include "bench/performance_script.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace glidemap::bench {

namespace {

constexpr double noise = 0.001;
constexpr double tapDuration = 0.12;
constexpr double strokeDuration = 0.25;
constexpr double pause = 0.5; // longer than the maximum gap of a double tap

} // namespace

PerformanceScript::PerformanceScript(Sink receiver) : sink(std::move(receiver)) {}

void PerformanceScript::playMixed(double seconds) {
    const double end = now + seconds;
    for (std::size_t kind = 0; now < end; ++kind) {
        playOne(kind);
    }
}

void PerformanceScript::playOne(std::size_t kind) {
    const int fingers = 2 + static_cast<int>(kind / 8 % 4);
    switch (kind % 8) {
    case 0:
        tap(fingers, 1);
        break;
    case 1:
        swipe(fingers);
        break;
    case 2:
        tap(fingers, 2);
        break;
    case 3:
        pinch();
        break;
    case 4:
        circle();
        break;
    case 5:
        rest(fingers, 1);
        break;
    case 6:
        holdAndTap();
        break;
    default:
        rest(1, 3);
        break;
    }
    wait(pause);
}

void PerformanceScript::tap(int fingers, int times) {
    Strokes strokes;
    for (int finger = 0; finger < fingers; ++finger) {
        const double x = 0.2 + 0.15 * finger;
        strokes.push_back({x, 0.5, x, 0.5});
    }
    for (int time = 0; time < times; ++time) {
        perform(strokes, tapDuration);
        wait(tapDuration);
    }
}

void PerformanceScript::swipe(int fingers) {
    Strokes strokes;
    for (int finger = 0; finger < fingers; ++finger) {
        const double y = 0.2 + 0.15 * finger;
        strokes.push_back({0.2, y, 0.6, y});
    }
    perform(strokes, strokeDuration);
}

void PerformanceScript::pinch() {
    perform({{0.45, 0.5, 0.25, 0.5}, {0.55, 0.5, 0.75, 0.5}}, 2 * strokeDuration);
}

void PerformanceScript::circle() {
    constexpr int steps = 125;
    const std::int32_t identifier = nextIdentifier++;
    for (int step = 0; step <= steps; ++step) {
        const double turn = 2 * std::numbers::pi * step / steps;
        report({noisy(identifier, 0.5 + 0.2 * std::cos(turn), 0.5 + 0.25 * std::sin(turn))});
    }
    report({});
}

void PerformanceScript::rest(int fingers, double seconds) {
    Strokes strokes;
    for (int finger = 0; finger < fingers; ++finger) {
        const double x = 0.2 + 0.15 * finger;
        strokes.push_back({x, 0.4, x, 0.4});
    }
    perform(strokes, seconds);
}

void PerformanceScript::holdAndTap() {
    tapBesideRestingFinger(2);
    liftAll();
}

void PerformanceScript::tapBesideRestingFinger(double seconds) {
    constexpr int reportsPerTap = 62; // half a second
    constexpr int firstOfTap = 40;
    constexpr int lastOfTap = 55;
    if (restingIdentifier == 0) {
        restingIdentifier = nextIdentifier++;
    }
    const double end = now + seconds;
    for (int index = 0; now < end; index = (index + 1) % reportsPerTap) {
        Report contacts = {noisy(restingIdentifier, 0.3, 0.5)};
        if (index >= firstOfTap && index <= lastOfTap) {
            contacts.push_back(noisy(nextIdentifier, 0.5, 0.5));
        }
        report(contacts);
        nextIdentifier += index == lastOfTap ? 1 : 0;
    }
    ++nextIdentifier; // the next touch must not continue an interrupted tap
}

void PerformanceScript::liftAll() {
    restingIdentifier = 0;
    report({});
}

void PerformanceScript::perform(const Strokes& strokes, double seconds) {
    const std::int32_t first = nextIdentifier;
    nextIdentifier += static_cast<std::int32_t>(strokes.size());
    const int steps = static_cast<int>(seconds / reportInterval);
    for (int step = 0; step <= steps; ++step) {
        const double part = static_cast<double>(step) / steps;
        Report contacts;
        for (const Stroke& stroke : strokes) {
            contacts.push_back(noisy(first + static_cast<std::int32_t>(contacts.size()),
                                     stroke.fromX + part * (stroke.toX - stroke.fromX),
                                     stroke.fromY + part * (stroke.toY - stroke.fromY)));
        }
        report(contacts);
    }
    report({});
}

void PerformanceScript::report(const Report& contacts) {
    sink(contacts, now);
    ++reportCount;
    now += reportInterval;
}

MTTouch PerformanceScript::noisy(std::int32_t identifier, double x, double y) {
    std::uniform_real_distribution<double> offset(-noise, noise);
    const double noisyX = x + offset(generator);
    return contact(identifier, noisyX, y + offset(generator));
}

} // namespace glidemap::bench
