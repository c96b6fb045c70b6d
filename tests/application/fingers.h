// Simulated fingers on the stage's touchpad. A gesture takes no real time, because the touchpad's
// time is virtual.
//
// Thread:  one.
// Owner:   a stage.
// Errors:  a pipe that cannot be created fails the test.
#pragma once

#include "core/gesture_type.h"

#include <filesystem>
#include <fstream>

namespace glidemap::test {

class Fingers {
public:
    explicit Fingers(std::filesystem::path pipe);

    // The pipe that the staged driver reads.
    const std::filesystem::path& pipe() const { return path; }

    // Call this after the program has started to read the touchpad, because the program misses
    // earlier gestures.
    void make(GestureType gesture);

private:
    std::filesystem::path path;
    std::fstream stream; // open for reading and writing, so that the pipe outlives each reader
    double now = 1;      // the touchpad's virtual time, in seconds
};

} // namespace glidemap::test
