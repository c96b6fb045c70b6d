// Has the system ask the user for access, one question at a time, and tells when it was answered.
//
// Thread:  the main thread; ask() does not wait for the user.
// Owner:   the program. An answer that comes after it has gone is told to nobody.
// Errors:  silent: what cannot be asked is not granted. Whether access was granted is for the
//          caller to look at.
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

    // Does nothing while a question is open. It comes after what the main thread is at: at the start
    // of the program that is its window.
    void ask();

    // Called on the main thread after each answer, whatever it was.
    std::function<void()> onAnswer;

private:
    void start();
    void answered();

    std::shared_ptr<MainQueue> mainQueue;
    std::vector<std::string> command;
    bool isAsking = false;
    std::shared_ptr<AccessPrompt*> life; // what an open question holds weakly
};

} // namespace glidemap
