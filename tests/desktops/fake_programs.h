// Fake programs in their own folder: some run under a given process name, others record how they
// are run.
//
// Thread:  the test's, which must live as long as the programs.
// Owner:   a test. The destructor ends the running programs.
// Errors:  a program that does not start fails the test.
#pragma once

#include "desktops/program.h"
#include "kit/temporary_folder.h"

#include <filesystem>
#include <list>
#include <string>
#include <vector>

namespace glidemap::test {

class FakePrograms {
public:
    // Returns the folder to put in PATH.
    std::string folder() const { return programs.path().string(); }

    // Runs a program with these arguments and this environment until this object is destroyed.
    void start(const std::string& name, const std::vector<std::string>& arguments,
               const Environment& environment);

    // Installs a program that records its name and arguments, and then runs `text` in the shell.
    void install(const std::string& name, const std::string& text = "");

    // Returns the recorded commands, one per line.
    std::string ran() const;

private:
    TemporaryFolder programs{"/tmp"};
    TemporaryFolder daemons{"/tmp"};
    TemporaryFolder records{"/tmp"};
    std::list<Program> running;
};

} // namespace glidemap::test
