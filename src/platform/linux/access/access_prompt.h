// Shows the system's prompt in which the user can grant access to the input devices, and calls
// `onAnswer` when the prompt has closed. Only one prompt is open at a time.
//
// Thread:  the main thread; ask() does not wait for the user.
// Owner:   the program. A prompt that closes after the object's destruction is not reported.
// Errors:  a prompt that cannot be shown counts as closed without access, and hasFailed() returns
//          true. The caller must check whether access was granted.
#pragma once

#include "core/main_queue.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace glidemap {

class AccessPrompt {
public:
    // `askingCommand` must show the prompt, and exit when the user has closed it.
    AccessPrompt(std::shared_ptr<MainQueue> queue, std::vector<std::string> askingCommand);
    AccessPrompt(const AccessPrompt&) = delete;
    AccessPrompt& operator=(const AccessPrompt&) = delete;

    // Shows a prompt after the main thread's current task. Does nothing while a prompt is open.
    void ask();

    // Delays prompts until ready() is called, because the user must be able to read the explanation
    // before a prompt appears.
    void waitUntilReady() { isReady = false; }
    void ready();

    // Returns true if the last prompt could not be shown, for example because no authentication
    // agent is running, and also if authentication failed. Returns false if the user dismissed the
    // prompt.
    bool hasFailed() const { return failed; }

    // Returns the program that grants access when it runs as root; empty if it is not installed.
    std::string grantingProgram() const { return command.empty() ? std::string() : command.back(); }

    // Called on the main thread after each prompt, whether access was granted or not.
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
    std::shared_ptr<AccessPrompt*> life; // pending prompts hold weak references to it
};

} // namespace glidemap
