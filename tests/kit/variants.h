// The same performance by another hand, on another pad: what must not matter to recognition.
//
// Thread:  plain functions; random numbers are seeded, so a failure repeats.
#pragma once

#include "core/gesture_type.h"
#include "input/touch_frame.h"
#include "kit/performance.h"
#include "kit/script.h"

#include <functional>
#include <string>
#include <vector>

namespace glidemap::kit {

struct Variant {
    std::string name;
    double framesPerSecond = Script::usualRate;
    std::function<void(std::vector<TouchFrame>&)> change = {}; // of the rendered frames
    std::function<GestureType(GestureType)> expect = {};       // in place of the gesture of the row
    Through through = Through::recognizer;
};

// The first is the performance as written.
const std::vector<Variant>& allVariants();

// The gesture that a mirror beside the pad, or one below it, makes of this one.
GestureType mirroredSideways(GestureType gesture);
GestureType mirroredUpDown(GestureType gesture);

void addHoveringContacts(std::vector<TouchFrame>& frames);
void jitter(std::vector<TouchFrame>& frames, unsigned seed, double reach);
void shuffleContacts(std::vector<TouchFrame>& frames, unsigned seed);
void mirrorSideways(std::vector<TouchFrame>& frames);
void mirrorUpDown(std::vector<TouchFrame>& frames);

} // namespace glidemap::kit
