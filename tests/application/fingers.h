// Simulated fingers on the stage's touchpad. They make a gesture at once, in virtual time.
//
// Thread:  one.
// Owner:   a stage.
// Errors:  a pipe that cannot be created fails the test.
#pragma once

#include "core/gesture_type.h"

#include <filesystem>
#include <fstream>

namespace glidemap::application {

class Fingers {
public:
    explicit Fingers(std::filesystem::path pipe);

    // The pipe that the staged driver reads.
    const std::filesystem::path& pipe() const { return path; }

    // Call after the program has started its touchpads; earlier gestures are lost.
    void make(GestureType gesture);

private:
    std::filesystem::path path;
    std::fstream stream; // opened for reading and writing, to outlive each reader
    double now = 1;      // virtual time of the touchpad, in seconds
};

} // namespace glidemap::application
