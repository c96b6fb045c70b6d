// A program under test, with its output and its end.
//
// Thread:  one.
// Owner:   a test. Destroying it kills a program that still runs.
// Errors:  what did not come in time is a failure of the test, and the wait answers nothing.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::vm {

class Process {
public:
    // Who the program runs as.
    enum class User { root, nobody };

    explicit Process(const std::vector<std::string>& command, User user = User::root);
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    // Waits until a line of the program's output has the text in it, and answers that line.
    std::optional<std::string> waitForOutput(const std::string& text);

    // The same of the lines on its standard error.
    std::optional<std::string> waitForError(const std::string& text);

    // Reads until so many lines have the text in them, or the time is over.
    bool waitForLines(const std::string& text, std::size_t count, std::chrono::seconds patience);

    // Waits for more output than there is; false if there is none in that time.
    bool waitForMoreOutput(int milliseconds) { return readMore(milliseconds); }

    // Waits until the program has the device open and waits for it to speak; before that, what it
    // says may be lost. A program that ends instead is a failure.
    bool waitUntilReading(const std::filesystem::path& device,
                          std::chrono::seconds patience = std::chrono::seconds(60));

    // Waits until the program has dealt with everything there is for it to do. False if it has
    // ended instead, which may be just what it had to do.
    bool waitUntilAsleep() const;

    void send(int signal) const;

    pid_t id() const { return process; }

    // The exit status, or 128 and the signal that ended the program. Its output is complete then.
    std::optional<int> waitForEnd();

    const std::string& output() const { return _output; }
    const std::string& errors() const { return _errors; }

private:
    std::optional<std::string> waitForLine(const std::string& stream, const std::string& text);
    bool hasEnded() const;
    // Reads what there is; waits for more, for the end of both streams, or for the deadline.
    bool readMore(int milliseconds);

    pid_t process = -1;
    int outputPipe = -1;
    int errorPipe = -1;
    std::string _output;
    std::string _errors;
};

// Whether a process (this one: "self") has the file open.
bool hasOpen(const std::string& process, const std::filesystem::path& file);

} // namespace glidemap::vm
