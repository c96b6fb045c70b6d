// Doubles of programs in a folder of their own: ones that run, under a name that the kernel has them by, and ones that are
// run and write down how.
//
// Thread:  the test's, which has to live as long as the programs.
// Owner:   a test. Destroying it ends those that run.
// Errors:  a program that does not start is a failure of the test.
#pragma once

#include "desktops/program.h"
#include "kit/temporary_folder.h"

#include <filesystem>
#include <list>
#include <string>
#include <vector>

namespace glidemap::test {

class ProgramDoubles {
public:
    // To be found in PATH.
    std::string folder() const { return programs.path().string(); }

    // Runs with these arguments until the end, in that environment.
    void start(const std::string& name, const std::vector<std::string>& arguments,
               const desktops::Environment& environment);

    // Writes down its name and its arguments, and then does what the shell makes of the text.
    void install(const std::string& name, const std::string& text = "");

    // The commands that were run, one a line.
    std::string ran() const;

private:
    TemporaryFolder programs{"/tmp"};
    TemporaryFolder daemons{"/tmp"};
    TemporaryFolder records{"/tmp"};
    std::list<desktops::Program> running;
};

} // namespace glidemap::test
