// Runs a program of a desktop under test, in its own process group and environment. The program
// ends with the test, even if the test is killed.
//
// Thread:  one, which must live as long as the program: the kernel kills the program with it.
// Owner:   a test.
// Errors:  a program that cannot be started, or does not write its output in time, fails the test.
#pragma once

#include "kit/patience.h"

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::test {

using Environment = std::map<std::string, std::string>;

// Returns the variables that every desktop program needs, without those of the test's own
// environment.
Environment plainEnvironment(const std::filesystem::path& folder);

// Returns whether the program is in /usr/bin.
bool isInstalled(const std::string& program);

class Program {
public:
    // The user that runs the program. Some programs refuse to run as root, and tests in a container
    // run as root.
    enum class User { same, notRoot };

    struct Command {
        std::vector<std::string> words;
        Environment environment;
        std::filesystem::path log; // receives the program's standard error
        User user = User::same;
    };

    explicit Program(const Command& command);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    // Writes a line to the program's standard input.
    void writeLine(const std::string& line);

    // Returns the next line of the program's standard output. On a timeout, or at the end of the
    // output, fails the test and returns nullopt.
    std::optional<std::string> nextLine();

    // Kills the program's whole process group at once.
    void kill();

    // Closes the program's standard input and waits until the program has exited. Returns its exit
    // status, or 128 plus the signal that ended the program.
    std::optional<int> finish();

    pid_t process() const { return _process; }

private:
    std::optional<int> waitForEnd();
    void fail(const std::string& what) const;

    std::string name;
    std::filesystem::path log;
    pid_t _process = -1;
    int input = -1;
    int output = -1;
    std::string read;
};

// Returns the user for programs with User::notRoot.
uid_t plainUser();

} // namespace glidemap::test
