// A program under test, with its output and its exit status.
//
// Thread:  one.
// Owner:   a test. The destructor kills a program that still runs.
// Errors:  a time-out fails the test, and the wait returns nullopt or false. waitForLines() and
//          waitForMoreOutput() return false without a failure.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::test {

class Process {
public:
    // The user who runs the program.
    enum class User { root, nobody };

    explicit Process(const std::vector<std::string>& command, User user = User::root);
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    // Waits until a line of the program's output contains the text, and returns the line.
    std::optional<std::string> waitForOutput(const std::string& text);

    // Does the same for the program's standard error.
    std::optional<std::string> waitForError(const std::string& text);

    // Reads until the text has occurred `count` times in the output, or until the time-out.
    bool waitForLines(const std::string& text, std::size_t count, std::chrono::seconds patience);

    // Waits for more output; returns false on time-out.
    bool waitForMoreOutput(int milliseconds) { return readMore(milliseconds); }

    // Waits until the program has opened the device and is ready to read its events. Earlier events
    // may be lost. Fails if the program exits instead.
    bool waitUntilReading(const std::filesystem::path& device,
                          std::chrono::seconds patience = std::chrono::seconds(60));

    // Waits until the program has finished all pending work. Returns false if the program has
    // exited instead; the caller decides whether that is a failure. A time-out fails the test.
    bool waitUntilAsleep() const;

    void send(int signal) const;

    pid_t id() const { return process; }

    // Waits until the program exits. Returns its exit status, or 128 plus the number of the signal
    // that terminated it. The output is then complete.
    std::optional<int> waitForEnd();

    const std::string& output() const { return _output; }
    const std::string& errors() const { return _errors; }

private:
    std::optional<std::string> waitForLine(const std::string& stream, const std::string& text);
    bool hasEnded() const;
    // Waits for output or the end of a stream, and reads the output. Returns false on a time-out or
    // after both streams have ended.
    bool readMore(int milliseconds);

    pid_t process = -1;
    int outputPipe = -1;
    int errorPipe = -1;
    std::string _output;
    std::string _errors;
};

// Returns whether a process has the file open. "self" means this process.
bool hasOpen(const std::string& process, const std::filesystem::path& file);

} // namespace glidemap::test
