// Runs the program without its interface, in a separate home folder.
//
// Thread:  one.
// Owner:   a test. The destructors kill an agent that still runs, and remove the home folder.
// Errors:  an agent that does not start fails the test.
#pragma once

#include "process.h"

#include <chrono>
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace glidemap::test {

// Formats one binding as in the bindings file. `action` and `scope` are JSON.
std::string bindingJson(const std::string& gesture, const std::string& action,
                        const std::string& scope = R"({"kind":"global"})");
std::string shortcutJson(int keyCode, unsigned long modifiers);

class AgentHome {
public:
    AgentHome();
    AgentHome(const AgentHome&) = delete;
    AgentHome& operator=(const AgentHome&) = delete;
    ~AgentHome();

    void writeBindings(std::initializer_list<std::string> bindings) const;
    void giveToNobody() const; // makes the user `nobody` the owner of all existing files
    void writeDefaults(const std::string& lines) const; // in the settings file's general section
    std::filesystem::path bindingsFile() const { return data / "Glidemap" / "bindings.json"; }
    std::filesystem::path applications() const { return data / "applications"; }

    const std::filesystem::path folder;
    const std::filesystem::path data;
};

// Waits until the file exists.
bool waitForFile(const std::filesystem::path& file);

class Agent {
public:
    // Whether the agent asks the user for missing access.
    enum class Asks { never, ifNeeded };

    // Returns when the agent has started all services. The agent then already reads the touchpads
    // to which it has access.
    explicit Agent(Process::User user = Process::User::root, Asks asks = Asks::never);

    // Waits until the log contains a line with the text, and returns the line.
    std::optional<std::string> waitForLog(const std::string& text) {
        return process->waitForOutput(text);
    }
    // Like waitForLog(), for the lines that GLIDEMAP_LOG enables on standard error.
    std::optional<std::string> waitForReason(const std::string& text) {
        return process->waitForError(text);
    }
    bool waitForLines(const std::string& text, std::size_t count, std::chrono::seconds patience) {
        return process->waitForLines(text, count, patience);
    }
    // Reads the output printed so far.
    void readOutput() {
        while (process->waitForMoreOutput(0)) {
        }
    }
    bool waitUntilAsleep() const { return process->waitUntilAsleep(); }
    void send(int signal) const { process->send(signal); }
    std::optional<int> waitForEnd() { return process->waitForEnd(); }
    const std::string& output() const { return process->output(); }
    const std::string& errors() const { return process->errors(); }
    pid_t id() const { return process->id(); }

private:
    std::unique_ptr<Process> process;
};

} // namespace glidemap::test
