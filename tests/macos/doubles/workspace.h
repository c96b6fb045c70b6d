// What a test tells the doubles of the workspace to answer, and what the user does.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::doubles {

enum class Policy { regular, accessory, prohibited };

struct RunningApplication {
    std::optional<std::string> bundleID;
    std::optional<std::string> name;
    Policy policy = Policy::regular;
    bool hasEnded = false;
};

struct Workspace {
    bool exists = true;
    std::optional<RunningApplication> frontmost;
    std::vector<RunningApplication> running;
    std::map<std::string, std::string> installed; // identifiers, with where the application is
    bool reducesMotion = false;
    std::function<void()> atRemoval; // just before an observer is removed
};

// Reset by every test's set-up.
Workspace& workspace();

// Makes the shared workspace go, with its centre of notices.
void closeWorkspace();

// The user goes to an application, or to one of which nothing is told, and the notice comes.
void activate(std::optional<RunningApplication> application);

// The application ends, and the notice comes. Which one is frontmost then is the test's to say.
void end(const RunningApplication& application);

// A notice of an activation that says nothing about it.
void noticeAnActivationOnly();

void setReducesMotion(bool reduces);

} // namespace glidemap::doubles
