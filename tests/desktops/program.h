// Runs a program of a desktop under test, in its own process group and environment. The program
// ends with the test, even if the test is killed.
//
// Thread:  one, which must live as long as the program: the kernel kills the program with it.
// Owner:   a test.
// Errors:  a program that cannot be started, or does not write its output in time, fails the test.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::desktops {

// The time limit for expected events. Only a failing test waits this long.
constexpr std::chrono::seconds patience{120};

using Environment = std::map<std::string, std::string>;

// The variables that every desktop program needs, without those of the test's own environment.
Environment plainEnvironment(const std::filesystem::path& folder);

// Whether the program is in PATH.
bool isInstalled(const std::string& program);

class Program {
public:
    // The user to run as: some programs refuse to run as root, as tests in a container do.
    enum class User { same, notRoot };

    struct Command {
        std::vector<std::string> words;
        Environment environment;
        std::filesystem::path log; // receives its standard error
        User user = User::same;
    };

    explicit Program(const Command& command);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    // Writes a line to its standard input.
    void writeLine(const std::string& line);

    // The next line of its standard output; nullopt, and a failure, on time-out.
    std::optional<std::string> nextLine();

    // Kills its whole process group at once.
    void kill();

    // Closes its standard input, waits until it has exited and returns its exit status.
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

// The user for programs with User::notRoot.
uid_t plainUser();

} // namespace glidemap::desktops
