// Runs the built glidemap-replay as a shell does, and captures its output.
//
// Thread:  one. The program has exited when the functions return.
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

// Runs the copy of the program at the path `program`.
Ended replayWith(const std::string& program, const std::vector<std::string>& arguments,
                 const std::string& input = "");

// Runs the program with standard output redirected to an existing file, whose content is not
// captured.
Ended replayInto(const std::string& outputPath, const std::vector<std::string>& arguments);

// A folder of files that is removed at the end of the test.
class Folder {
public:
    // Writes a file and returns its path.
    std::string write(const std::string& name, const std::string& content) const;

    // Copies a file and returns the path of the copy. Creates the folders in `name`.
    std::string copy(const std::string& file, const std::string& name) const;

private:
    TemporaryFolder folder;
};

// Returns the recording lines for `count` adjacent fingers that land at the time `down` and lift at
// the time `up`, in seconds.
std::string tapOf(int count, double down, double up);

// Returns the output line of an unbound gesture, while the frontmost application is unknown.
std::string deliveredLine(const std::string& time, const std::string& gesture);

// Returns a report without fingers.
std::string nothingAt(double time);

} // namespace glidemap::test
