#include "desktops/program.h"

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fstream>
#include <sstream>

namespace glidemap::test {

namespace {

using Clock = std::chrono::steady_clock;

constexpr uid_t nobody = 65534;

int millisecondsUntil(Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return static_cast<int>(std::max<decltype(left)>(left, 0));
}

// Waits until the descriptor is readable. Returns false on a timeout.
bool waitUntilReadable(int descriptor, Clock::time_point deadline) {
    pollfd source{descriptor, POLLIN, 0};
    int ready = 0;
    do {
        ready = poll(&source, 1, millisecondsUntil(deadline));
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

// The arguments of become(), which runs between fork and exec and must not allocate.
struct Start {
    int input;
    int output;
    int error;
    bool dropRights;
    pid_t parent;
    char* const* words;
    char* const* environment;
};

[[noreturn]] void become(const Start& start) {
    setpgid(0, 0);
    if (start.dropRights &&
        (setgroups(0, nullptr) != 0 || setgid(nobody) != 0 || setuid(nobody) != 0)) {
        _exit(126);
    }
    // The death signal is set after the change of user, which would clear it. The parent may
    // have exited before this call.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != start.parent) {
        _exit(126);
    }
    dup2(start.input, STDIN_FILENO);
    dup2(start.output, STDOUT_FILENO);
    dup2(start.error, STDERR_FILENO);
    execvpe(start.words[0], start.words, start.environment);
    _exit(127);
}

} // namespace

uid_t plainUser() {
    return getuid() == 0 ? nobody : getuid();
}

bool isInstalled(const std::string& program) {
    return access(("/usr/bin/" + program).c_str(), X_OK) == 0;
}

Environment plainEnvironment(const std::filesystem::path& folder) {
    return {{"HOME", folder},
            {"LANG", "C.UTF-8"},
            {"PATH", "/usr/local/bin:/usr/bin:/bin"},
            {"XDG_CACHE_HOME", folder / "cache"},
            {"XDG_CONFIG_HOME", folder / "config"},
            {"XDG_DATA_HOME", folder / "data"},
            {"XDG_RUNTIME_DIR", folder}};
}

Program::Program(const Command& command) : name(command.words.front()), log(command.log) {
    std::vector<std::string> words = command.words;
    std::vector<std::string> settings;
    for (const auto& [key, value] : command.environment) {
        settings.push_back(key + "=" + value);
    }
    const std::vector<char*> wordPointers = pointersTo(words);
    const std::vector<char*> settingPointers = pointersTo(settings);
    std::array<int, 2> in{};
    std::array<int, 2> out{};
    const int error = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (error < 0 || pipe2(in.data(), O_CLOEXEC) != 0 || pipe2(out.data(), O_CLOEXEC) != 0) {
        ADD_FAILURE() << "cannot start " << name << ": " << std::strerror(errno);
        return;
    }
    const Start start{in[0],
                      out[1],
                      error,
                      command.user == User::notRoot && getuid() == 0,
                      getpid(),
                      wordPointers.data(),
                      settingPointers.data()};
    _process = fork();
    if (_process == 0) {
        become(start);
    }
    close(in[0]);
    close(out[1]);
    close(error);
    input = in[1];
    output = out[0];
}

Program::~Program() {
    kill();
    for (const int pipe : {input, output}) {
        if (pipe >= 0) {
            close(pipe);
        }
    }
}

void Program::kill() {
    if (_process > 0) {
        ::kill(-_process, SIGKILL);
        ::kill(_process, SIGKILL); // in case the process has not created its group yet
        waitpid(_process, nullptr, 0);
        _process = -1;
    }
}

void Program::writeLine(const std::string& line) {
    const std::string whole = line + "\n";
    if (write(input, whole.data(), whole.size()) != static_cast<ssize_t>(whole.size())) {
        fail("takes no input");
    }
}

std::optional<std::string> Program::nextLine() {
    const auto deadline = Clock::now() + patience;
    for (;;) {
        if (const std::size_t end = read.find('\n'); end != std::string::npos) {
            const std::string line = read.substr(0, end);
            read.erase(0, end + 1);
            return line;
        }
        std::array<char, 4096> buffer{};
        const ssize_t size =
            waitUntilReadable(output, deadline) ? ::read(output, buffer.data(), buffer.size()) : -1;
        if (size <= 0) {
            fail(size == 0 ? "has ended its output" : "says nothing");
            return std::nullopt;
        }
        read.append(buffer.data(), static_cast<std::size_t>(size));
    }
}

std::optional<int> Program::finish() {
    close(input);
    input = -1;
    return waitForEnd();
}

std::optional<int> Program::waitForEnd() {
    const int descriptor = static_cast<int>(syscall(SYS_pidfd_open, _process, 0));
    const bool ended = waitUntilReadable(descriptor, Clock::now() + patience);
    close(descriptor);
    if (!ended) {
        fail("does not end");
        return std::nullopt;
    }
    int status = 0;
    waitpid(_process, &status, 0);
    ::kill(-_process, SIGKILL); // kills the remaining children
    _process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

void Program::fail(const std::string& what) const {
    std::ostringstream said;
    said << std::ifstream(log).rdbuf();
    ADD_FAILURE() << name << " " << what << "; its standard error:\n" << said.str();
}

} // namespace glidemap::test
