// A person's fingers on the touchpad of a stage: they make a gesture at once when they are told to,
// whatever time it takes in their own.
//
// Thread:  one.
// Owner:   a stage.
// Errors:  a pipe that cannot be made is a failure of the test.
#pragma once

#include "core/gesture_type.h"

#include <filesystem>
#include <fstream>

namespace glidemap::application {

class Fingers {
public:
    explicit Fingers(std::filesystem::path pipe);

    // What the staged driver reads.
    const std::filesystem::path& pipe() const { return path; }

    // To be called once the program has started its touchpads; what comes before that is lost.
    void make(GestureType gesture);

private:
    std::filesystem::path path;
    std::fstream stream; // open for both, so that the pipe outlives each program that reads it
    double now = 1;      // of the touchpad, in seconds
};

} // namespace glidemap::application
