// Asks the user for access through the system's prompt, one prompt at a time, and reports when it
// closes.
//
// Thread:  the main thread; ask() does not wait for the user.
// Owner:   the program. A prompt that closes after the destruction is not reported.
// Errors:  a prompt that cannot be shown counts as closed without access, and hasFailed() returns
//          true. The caller checks whether access was granted.
#pragma once

#include "core/main_queue.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace glidemap {

class AccessPrompt {
public:
    // The command shows the prompt and exits when the user has closed it.
    AccessPrompt(std::shared_ptr<MainQueue> queue, std::vector<std::string> askingCommand);
    AccessPrompt(const AccessPrompt&) = delete;
    AccessPrompt& operator=(const AccessPrompt&) = delete;

    // Does nothing while a prompt is open. The prompt opens after the main thread's current task.
    void ask();

    // Delays prompts until ready() reports that the user can read the explanation.
    void waitUntilReady() { isReady = false; }
    void ready();

    // Whether the last prompt failed: no authentication agent is running, or authentication failed.
    // Returns false if the user dismissed the prompt.
    bool hasFailed() const { return failed; }

    // The program that grants access when it runs as root; empty if it is not installed.
    std::string grantingProgram() const { return command.empty() ? std::string() : command.back(); }

    // Called on the main thread after each prompt, whether it succeeded or not.
    std::function<void()> onAnswer;

private:
    void start();
    void submit();
    void answered(int exitCode);

    std::shared_ptr<MainQueue> mainQueue;
    std::vector<std::string> command;
    bool isAsking = false;
    bool isReady = true;
    bool failed = false;
    std::shared_ptr<AccessPrompt*> life; // pending prompts hold it weakly
};

} // namespace glidemap
