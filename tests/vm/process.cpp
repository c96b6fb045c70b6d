#include "process.h"

#include "deadline.h"
#include "threads.h"
#include "unprivileged.h"

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

namespace glidemap::test {

namespace {

[[noreturn]] void become(const std::vector<std::string>& command, Process::User user) {
    if (user == Process::User::nobody &&
        (setgroups(0, nullptr) != 0 || setgid(unprivilegedUser) != 0 ||
         setuid(unprivilegedUser) != 0)) {
        _exit(126);
    }
    std::vector<char*> arguments;
    for (const std::string& word : command) {
        arguments.push_back(const_cast<char*>(word.c_str()));
    }
    arguments.push_back(nullptr);
    execv(arguments.front(), arguments.data());
    _exit(127);
}

// Appends up to 4 KiB of pending output. At the end of the stream, closes the pipe and returns
// false.
bool drain(int& pipe, std::string& into) {
    std::array<char, 4096> buffer{};
    const ssize_t size = read(pipe, buffer.data(), buffer.size());
    if (size > 0) {
        into.append(buffer.data(), static_cast<std::size_t>(size));
        return true;
    }
    if (size < 0 && errno == EINTR) {
        return true;
    }
    close(pipe);
    pipe = -1;
    return false;
}

std::optional<std::string> completeLineWith(const std::string& output, const std::string& text) {
    std::size_t start = 0;
    for (std::size_t end = 0; (end = output.find('\n', start)) != std::string::npos;
         start = end + 1) {
        const std::string line = output.substr(start, end - start);
        if (line.find(text) != std::string::npos) {
            return line;
        }
    }
    return std::nullopt;
}

} // namespace

Process::Process(const std::vector<std::string>& command, User user) {
    std::array<int, 2> out{};
    std::array<int, 2> error{};
    if (pipe2(out.data(), O_CLOEXEC) != 0 || pipe2(error.data(), O_CLOEXEC) != 0) {
        ADD_FAILURE() << "cannot create a pipe: " << std::strerror(errno);
        return;
    }
    process = fork();
    if (process == 0) {
        dup2(out[1], STDOUT_FILENO);
        dup2(error[1], STDERR_FILENO);
        become(command, user);
    }
    close(out[1]);
    close(error[1]);
    outputPipe = out[0];
    errorPipe = error[0];
}

Process::~Process() {
    if (process > 0) {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
    for (const int pipe : {outputPipe, errorPipe}) {
        if (pipe >= 0) {
            close(pipe);
        }
    }
}

bool Process::readMore(int milliseconds) {
    std::array<pollfd, 2> sources{{{outputPipe, POLLIN, 0}, {errorPipe, POLLIN, 0}}};
    if ((outputPipe < 0 && errorPipe < 0) ||
        poll(sources.data(), sources.size(), milliseconds) <= 0) {
        return false;
    }
    if (sources[0].revents != 0) {
        drain(outputPipe, _output);
    }
    if (sources[1].revents != 0) {
        drain(errorPipe, _errors);
    }
    return true;
}

std::optional<std::string> Process::waitForOutput(const std::string& text) {
    return waitForLine(_output, text);
}

std::optional<std::string> Process::waitForError(const std::string& text) {
    return waitForLine(_errors, text);
}

std::optional<std::string> Process::waitForLine(const std::string& stream,
                                                const std::string& text) {
    const Deadline deadline;
    std::optional<std::string> line = completeLineWith(stream, text);
    while (!line && readMore(deadline.milliseconds())) {
        line = completeLineWith(stream, text);
    }
    if (!line) {
        ADD_FAILURE() << "timed out waiting for \"" << text << "\"; output:\n"
                      << _output << "errors:\n"
                      << _errors;
    }
    return line;
}

bool Process::waitForLines(const std::string& text, std::size_t count,
                           std::chrono::seconds patience) {
    const Deadline deadline(patience);
    const auto lines = [&] {
        std::size_t found = 0;
        for (std::size_t at = 0; (at = _output.find(text, at)) != std::string::npos; ++at) {
            ++found;
        }
        return found;
    };
    while (lines() < count && !deadline.passed()) {
        if (!readMore(deadline.milliseconds())) {
            break;
        }
    }
    return lines() >= count;
}

bool Process::hasEnded() const {
    siginfo_t end{};
    return waitid(P_PID, static_cast<id_t>(process), &end, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           end.si_pid == process;
}

bool Process::waitUntilReading(const std::filesystem::path& device, std::chrono::seconds patience) {
    const Deadline deadline(patience);
    const std::string name = std::to_string(process);
    while (!hasOpen(name, device) || !isProcessAsleep(name)) {
        if (hasEnded() || deadline.passed()) {
            while (readMore(0)) {
            }
            ADD_FAILURE() << "the program did not open " << device << "; errors:\n" << _errors;
            return false;
        }
        sched_yield();
    }
    return true;
}

bool Process::waitUntilAsleep() const {
    const Deadline deadline;
    while (!isProcessAsleep(std::to_string(process))) {
        if (hasEnded()) {
            return false;
        }
        if (deadline.passed()) {
            ADD_FAILURE() << "the program does not sleep";
            return false;
        }
        sched_yield();
    }
    return true;
}

void Process::send(int signal) const {
    kill(process, signal);
}

std::optional<int> Process::waitForEnd() {
    const Deadline deadline;
    while (readMore(deadline.milliseconds())) {
    }
    if (outputPipe >= 0 || errorPipe >= 0) {
        ADD_FAILURE() << "the program did not exit; output:\n" << _output << "errors:\n" << _errors;
        return std::nullopt;
    }
    int status = 0;
    waitpid(process, &status, 0);
    process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

bool hasOpen(const std::string& process, const std::filesystem::path& file) {
    std::error_code error;
    const std::filesystem::path folder = "/proc/" + process + "/fd";
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        if (std::filesystem::read_symlink(entry.path(), error) == file) {
            return true;
        }
    }
    return false;
}

} // namespace glidemap::test
