#include "expected_frames.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace glidemap::test {

namespace {

void readPart(demo::Frame& frame, const std::string& kind, std::istream& values) {
    if (kind == "finger") {
        demo::Finger finger;
        values >> finger.position.x >> finger.position.y >> finger.opacity >> finger.scale;
        frame.fingers.push_back(finger);
    } else if (kind == "trail") {
        for (demo::Point point; values >> point.x >> point.y;) {
            frame.trail.push_back(point);
        }
        values.clear(std::ios::eofbit);
    } else if (kind == "ring") {
        demo::Ring ring;
        values >> ring.center.x >> ring.center.y >> ring.radius >> ring.opacity;
        frame.ring = ring;
    } else {
        ADD_FAILURE() << "unknown part of a frame: " << kind;
    }
}

} // namespace

std::vector<ExpectedFrame> expectedFrames() {
    std::ifstream file(GLIDEMAP_EXPECTED_FRAMES);
    std::vector<ExpectedFrame> frames;
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        std::string first;
        words >> first;
        if (line.starts_with("  ") && !frames.empty()) {
            readPart(frames.back().frame, first, words);
        } else if (const auto gesture = gestureTypeFromRawValue(first)) {
            frames.push_back({*gesture, 0, {}});
            words >> frames.back().t;
        } else {
            ADD_FAILURE() << "unknown gesture: " << line;
        }
        EXPECT_FALSE(words.fail()) << line;
    }
    return frames;
}

} // namespace glidemap::test
