#include "statistics.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace glidemap::replay {

namespace {

bool anyTouches(const std::vector<MTTouch>& touches) {
    return std::any_of(touches.begin(), touches.end(),
                       [](const MTTouch& touch) { return isTouchingState(touch.state); });
}

} // namespace

void Statistics::beginRun() {
    hasTime = false;
    isTouched = false;
}

void Statistics::countRecordAt(double time) {
    if (hasTime) {
        recorded += std::max(time - lastTime, 0.0);
    }
    lastTime = time;
    hasTime = true;
}

void Statistics::count(double time, const std::vector<MTTouch>& touches) {
    countRecordAt(time);
    ++frames;
    contacts += touches.size();
    const bool wasTouched = isTouched;
    isTouched = anyTouches(touches);
    sessions += isTouched && !wasTouched ? 1 : 0;
}

void Statistics::count(const Recognised& recognised) {
    ++(recognised.delivered ? delivered : dropped);
}

std::string Statistics::text() const {
    const std::chrono::duration<double> took = Clock::now() - started;
    std::array<char, 512> lines{};
    std::snprintf(
        lines.data(), lines.size(),
        "frames          %llu\n"
        "contacts        %llu\n"
        "touch sessions  %llu\n"
        "gestures        %llu delivered, %llu dropped\n"
        "recorded time   %.3f s\n"
        "wall time       %.3f s\n"
        "speed           %.0f frames/s\n",
        static_cast<unsigned long long>(frames), static_cast<unsigned long long>(contacts),
        static_cast<unsigned long long>(sessions), static_cast<unsigned long long>(delivered),
        static_cast<unsigned long long>(dropped), recorded, took.count(),
        static_cast<double>(frames) / std::max(took.count(), 1e-9));
    return lines.data();
}

} // namespace glidemap::replay
