// Runs the built glidemap-replay like from a shell, and captures its output.
//
// Thread:  one. The program has exited when run() returns.
// Errors:  a program that cannot be started or is killed fails the test.
#pragma once

#include "kit/temporary_folder.h"

#include <ostream>
#include <string>
#include <vector>

namespace glidemap::test {

struct Ended {
    int status = -1;
    std::string output;
    std::string errors;

    friend bool operator==(const Ended&, const Ended&) = default;
    friend void PrintTo(const Ended& ended, std::ostream* out) {
        *out << "status " << ended.status << "\noutput:\n"
             << ended.output << "errors:\n"
             << ended.errors;
    }
};

Ended replay(const std::vector<std::string>& arguments, const std::string& input = "");

// Does the same with a copy of the program at another path.
Ended replayWith(const std::string& program, const std::vector<std::string>& arguments,
                 const std::string& input = "");

// Runs the program with standard output redirected to an existing file, which is not captured.
Ended replayInto(const std::string& outputPath, const std::vector<std::string>& arguments);

// A folder of files that is removed with the test.
class Folder {
public:
    // The path of the written file.
    std::string write(const std::string& name, const std::string& content) const;

    // The path of the copy; creates the folders in `name`.
    std::string copy(const std::string& file, const std::string& name) const;

private:
    TemporaryFolder folder;
};

// Lines of a recording: `count` fingers side by side that land at `down` and lift by `up`.
std::string tapOf(int count, double down, double up);

// The line of an unbound gesture, while the frontmost application is unknown.
std::string deliveredLine(const std::string& time, const std::string& gesture);

// One report without fingers.
std::string nothingAt(double time);

} // namespace glidemap::test
