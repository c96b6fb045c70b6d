#include "kit/variants.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <random>
#include <string_view>
#include <utility>

namespace glidemap::test {

namespace {

struct Exchange {
    std::string_view one;
    std::string_view other;
};

constexpr std::array sideways = {Exchange{"Left", "Right"},
                                 Exchange{"Clockwise", "Counterclockwise"}};
constexpr std::array upDown = {Exchange{"Up", "Down"}, Exchange{"Above", "Below"},
                               Exchange{"Top", "Bottom"},
                               Exchange{"Clockwise", "Counterclockwise"}};

// Returns the gesture whose name has one word replaced by its opposite, or `gesture` if its name
// has no such word. The result is derived from the names, so that it does not depend on how the
// program groups the gestures.
GestureType exchanged(GestureType gesture, std::span<const Exchange> exchanges) {
    const std::string name(rawValue(gesture));
    for (const auto& [one, other] : exchanges) {
        for (const auto& [from, to] : {Exchange{one, other}, Exchange{other, one}}) {
            if (const auto place = name.find(from); place != std::string::npos) {
                auto opposite = name;
                opposite.replace(place, from.size(), to);
                return gestureTypeFromRawValue(opposite).value();
            }
        }
    }
    return gesture;
}

// Returns the same numbers on every machine, unlike the distributions of the standard library.
double between(std::mt19937& random, double low, double high) {
    return low + (high - low) * (static_cast<double>(random()) / 4294967295.0);
}

std::vector<PerformanceVariant> makeVariants() {
    constexpr double handJitter = 0.001;
    std::vector<PerformanceVariant> variants = {{"as written"}};
    for (const double rate : {60, 90, 250}) {
        variants.push_back({written(rate) + " Hz", rate});
    }
    variants.push_back({"with hovering contacts", Script::usualRate, addHoveringContacts});
    for (const unsigned seed : {1U, 2U, 3U}) {
        variants.push_back(
            {"jitter, seed " + std::to_string(seed), Script::usualRate, [seed](auto& frames) {
                 jitter(frames, seed, handJitter);
             }});
        variants.push_back({"shuffled contacts, seed " + std::to_string(seed), Script::usualRate,
                            [seed](auto& frames) {
                                shuffleContacts(frames, seed);
                            }});
    }
    variants.push_back({"mirrored sideways", Script::usualRate, mirrorSideways, mirroredSideways});
    variants.push_back({"mirrored up and down", Script::usualRate, mirrorUpDown, mirroredUpDown});
    variants.push_back({"through the engine", Script::usualRate, {}, {}, Through::engine});
    return variants;
}

} // namespace

const std::vector<PerformanceVariant>& allVariants() {
    static const std::vector<PerformanceVariant> variants = makeVariants();
    return variants;
}

GestureType mirroredSideways(GestureType gesture) {
    return exchanged(gesture, sideways);
}

GestureType mirroredUpDown(GestureType gesture) {
    return exchanged(gesture, upDown);
}

// Adds a hovering thumb and a drifting palm to every frame, and one frame with only these contacts
// before the first frame and one after the last frame.
void addHoveringContacts(std::vector<TouchFrame>& frames) {
    if (frames.empty()) {
        return;
    }
    frames.insert(frames.begin(), TouchFrame{frames.front().timestamp - 0.01, {}});
    frames.push_back(TouchFrame{frames.back().timestamp + 0.01, {}});
    for (TouchFrame& frame : frames) {
        const double wander = std::fmod(std::abs(frame.timestamp), 1.0);
        frame.touches.insert(frame.touches.begin(), {-1, 0.5, 0.02, false});
        frame.touches.push_back({-2, wander, 1 - wander, false});
    }
}

void jitter(std::vector<TouchFrame>& frames, unsigned seed, double reach) {
    std::mt19937 random(seed);
    for (TouchFrame& frame : frames) {
        for (TouchPoint& touch : frame.touches) {
            touch.x += between(random, -reach, reach);
            touch.y += between(random, -reach, reach);
        }
    }
}

// Changes the identifiers to widely spaced values, and shuffles the contacts in every frame.
void shuffleContacts(std::vector<TouchFrame>& frames, unsigned seed) {
    std::mt19937 random(seed);
    std::map<std::int32_t, std::int32_t> newIds;
    for (TouchFrame& frame : frames) {
        for (TouchPoint& touch : frame.touches) {
            const auto spread = static_cast<std::int32_t>(random());
            touch.id = newIds.try_emplace(touch.id, spread).first->second;
        }
        std::ranges::shuffle(frame.touches, random);
    }
}

void mirrorSideways(std::vector<TouchFrame>& frames) {
    for (TouchFrame& frame : frames) {
        for (TouchPoint& touch : frame.touches) {
            touch.x = 1 - touch.x;
        }
    }
}

void mirrorUpDown(std::vector<TouchFrame>& frames) {
    for (TouchFrame& frame : frames) {
        for (TouchPoint& touch : frame.touches) {
            touch.y = 1 - touch.y;
        }
    }
}

} // namespace glidemap::test
