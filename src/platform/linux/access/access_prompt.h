// Has the system ask the user for access, one question at a time, and tells when it was answered.
//
// Thread:  the main thread; ask() does not wait for the user.
// Owner:   the program. An answer that comes after it has gone is told to nobody.
// Errors:  what cannot be asked is not granted, and is an answer, too: hasFailed() says so. Whether
//          access was granted is for the caller to look at.
#pragma once

#include "core/main_queue.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace glidemap {

class AccessPrompt {
public:
    // The command asks, and ends when the user has answered.
    AccessPrompt(std::shared_ptr<MainQueue> queue, std::vector<std::string> askingCommand);
    AccessPrompt(const AccessPrompt&) = delete;
    AccessPrompt& operator=(const AccessPrompt&) = delete;

    // Does nothing while a question is open. It comes after what the main thread is at.
    void ask();

    // Questions wait until ready() says that the person can read what they are about.
    void waitUntilReady() { isReady = false; }
    void ready();

    // Whether the last question could not be put, because nothing here asks for passwords, or was
    // answered with something that was not accepted. Not so if the person has dismissed it.
    bool hasFailed() const { return failed; }

    // The program that grants access to whoever starts it as root; empty if none is installed.
    std::string grantingProgram() const { return command.empty() ? std::string() : command.back(); }

    // Called on the main thread after each answer, whatever it was.
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
    std::shared_ptr<AccessPrompt*> life; // what an open question holds weakly
};

} // namespace glidemap
