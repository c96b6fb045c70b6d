// Variants of a performance, with differences between hands and between pads that must not affect
// recognition.
//
// Thread:  plain functions; random numbers have a fixed seed, so a failure is reproducible.
#pragma once

#include "core/gesture_type.h"
#include "input/touch_frame.h"
#include "kit/performance.h"
#include "kit/script.h"

#include <functional>
#include <string>
#include <vector>

namespace glidemap::test {

struct PerformanceVariant {
    std::string name;
    double framesPerSecond = Script::usualRate;
    std::function<void(std::vector<TouchFrame>&)> change = {}; // modifies the rendered frames
    // Returns the expected gesture for the row's gesture.
    std::function<GestureType(GestureType)> expect = {};
    Through through = Through::recognizer;
};

// Returns all variants; the first one is the performance as written.
const std::vector<PerformanceVariant>& allVariants();

// These functions return the gesture that results from mirroring `gesture`.
GestureType mirroredSideways(GestureType gesture);
GestureType mirroredUpDown(GestureType gesture);

void addHoveringContacts(std::vector<TouchFrame>& frames);
void jitter(std::vector<TouchFrame>& frames, unsigned seed, double reach);
void shuffleContacts(std::vector<TouchFrame>& frames, unsigned seed);
void mirrorSideways(std::vector<TouchFrame>& frames);
void mirrorUpDown(std::vector<TouchFrame>& frames);

} // namespace glidemap::test
