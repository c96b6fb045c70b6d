// Reads expected_frames.txt: the frames of each demonstration at chosen times. A separate script
// (expected_frames.py) calculates them from the description of the motions.
//
// Errors:  a line that cannot be parsed fails the test.
#pragma once

#include "ui/demo/gesture_demo.h"

#include <vector>

namespace glidemap::test {

struct ExpectedFrame {
    GestureType gesture;
    double t = 0;
    demo::Frame frame;
};

std::vector<ExpectedFrame> expectedFrames();

} // namespace glidemap::test
