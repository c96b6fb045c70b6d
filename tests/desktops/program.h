// A program of a desktop under test: it has a process group and an environment of its own, and ends
// with the test, even if that is killed.
//
// Thread:  one, and it has to live as long as the program: the kernel ends the program with it.
// Owner:   a test.
// Errors:  a program that cannot be started, or does not say in time what it should, is a failure of
//          the test.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::desktops {

// How long a test waits for what must happen. Nothing waits this long unless it has failed.
constexpr std::chrono::seconds patience{120};

using Environment = std::map<std::string, std::string>;

// What every desktop program needs, and nothing of the environment of whoever runs the test.
Environment plainEnvironment(const std::filesystem::path& folder);

// Whether it can be found where programs are.
bool isInstalled(const std::string& program);

class Program {
public:
    // Who it runs as: some refuse to be root's, who runs the tests in a container.
    enum class User { same, notRoot };

    struct Command {
        std::vector<std::string> words;
        Environment environment;
        std::filesystem::path log; // what it says on its standard error
        User user = User::same;
    };

    explicit Program(const Command& command);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    // Writes a line to its standard input.
    void tell(const std::string& line);

    // The next line of its standard output, none (a failure) if there is none in time.
    std::optional<std::string> nextLine();

    // Ends its whole process group at once, without a chance to say goodbye.
    void kill();

    // Closes its standard input and waits until it has ended; answers its exit status.
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

// The user that a program of User::notRoot runs as.
uid_t plainUser();

} // namespace glidemap::desktops
