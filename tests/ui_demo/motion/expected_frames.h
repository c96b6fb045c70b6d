// Reads expected_frames.txt: what each demonstration shows at chosen moments, worked out from the
// description of the motions by a calculator of its own (expected_frames.py).
//
// Errors:  a line that cannot be read fails the test that reads.
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
